// The frames that are held back until the filing ends. Not installed.
//
// They live as long as the library is loaded; what is still held then is freed unwritten.
#pragma once

#include <memory>
#include <vector>

#include <quorvan/export/series/pending_frame.h>

namespace quorvan {

/// Frames in the order in which they were pushed.
using FrameGroup = std::vector<std::unique_ptr<PendingFrame>>;

/// Frames handed over and not yet grouped.
extern FrameGroup pendingFrames;

/// The group being collected at endFiling; empty between calls.
extern FrameGroup groupInProgress;

/// The groups formed at endFiling. A group that was written stays, emptied.
extern std::vector<FrameGroup> groupedFrames;

}  // namespace quorvan
