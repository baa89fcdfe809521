// Clouds round what a revision changed.
#pragma once

#include <cstddef>
#include <vector>

#include <tools/draw/scene/scene.h>

namespace quorvan::tool {

/// What lies together: the box around it, and which of the boxes it is.
struct CloudGroup {
  SheetBox box = SheetBox::none();
  std::vector<std::size_t> members;
};

/// The boxes in groups, from the left; those nearer than a few millimetres of paper are together.
/// Where that would leave hundreds of groups, those farther apart are as well.
std::vector<CloudGroup> groupsOfBoxes(const std::vector<SheetBox>& boxes);

/// A cloud round the box.
Path cloudAround(const SheetBox& box);

}  // namespace quorvan::tool
