#include <quorvan/export/filing_state.h>

namespace quorvan {

CKtFiler theFiler;
bool filingStopped = false;
FrameGroup pendingFrames;
FrameGroup groupInProgress;
std::vector<FrameGroup> groupedFrames;

}  // namespace quorvan
