#include <quorvan/export/filing/filing_state.h>

namespace quorvan {

CKtFiler theFiler;
bool filingOpen = false;
bool filingStopped = false;

}  // namespace quorvan
