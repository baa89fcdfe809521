// The state that all flat functions share. Not installed.
//
// The objects live from the loading of the library to its unloading. A file that is still open
// then is saved by the destructor of theFiler, and the frames still held are freed.
#pragma once

#include <memory>
#include <vector>

#include <quorvan/export/pending_frame.h>
#include <quorvan/filer/filer.h>

namespace quorvan {

/// Frames in the order in which they were pushed.
using FrameGroup = std::vector<std::unique_ptr<PendingFrame>>;

/// The filer that every export writes into; opened by startFiling, closed by endFiling.
extern CKtFiler theFiler;

/// While true every export returns at once without doing anything.
extern bool filingStopped;

/// Frames handed over and not yet grouped.
extern FrameGroup pendingFrames;

/// The group being collected at endFiling; empty between calls.
extern FrameGroup groupInProgress;

/// The groups formed at endFiling. A group that was written stays, emptied.
extern std::vector<FrameGroup> groupedFrames;

}  // namespace quorvan
