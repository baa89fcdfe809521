// Sorting the pushed frames into series. Not installed.
#pragma once

namespace quorvan {

/// Moves every pending frame into a group of frames with equal reference, view point, key and
/// third value (compared exactly), appended to groupedFrames in the order of their first frames.
/// A group with a visible frame loses its hidden ones, which are freed here. On std::bad_alloc
/// every frame is still pending or grouped.
void groupPendingFrames();

}  // namespace quorvan
