#include <quorvan/export/filing/filing_state.h>

namespace quorvan {

CKtFiler theFiler;
bool filingStopped = false;

}  // namespace quorvan
