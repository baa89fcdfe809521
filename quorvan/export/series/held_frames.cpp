#include <quorvan/export/series/held_frames.h>

namespace quorvan {

FrameGroup pendingFrames;
FrameGroup groupInProgress;
std::vector<FrameGroup> groupedFrames;

}  // namespace quorvan
