#include <tools/draw/labels/revision_clouds.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <tuple>
#include <utility>

namespace quorvan::tool {

namespace {

constexpr double kRoom = 2.5;        // mm, around what is in a cloud
constexpr double kBumpLength = 5.0;  // mm, the length of a cloud's arc
constexpr double kBumpRise = 0.3;    // of an arc, in its lengths
constexpr std::size_t kMostClouds = 300;

void join(CloudGroup& group, const CloudGroup& other) {
  group.box.include(other.box);
  group.members.insert(group.members.end(), other.members.begin(), other.members.end());
}

// A group that grew may meet those that it did not meet before.
void addTo(std::vector<CloudGroup>& groups, CloudGroup group, double room) {
  for (std::size_t i = 0; i < groups.size();) {
    if (groups[i].box.meets(group.box.grown(2.0 * room))) {
      join(group, groups[i]);
      groups[i] = std::move(groups.back());
      groups.pop_back();
      i = 0;
    } else {
      ++i;
    }
  }
  groups.push_back(std::move(group));
}

void addSide(Path& path, PlanePoint from, PlanePoint to) {
  const double length = lengthOf(to - from);
  const int bumps = std::max(1, static_cast<int>(std::lround(length / kBumpLength)));
  const PlanePoint step = (to - from) * (1.0 / bumps);
  // The box is gone round against the clock: what is outside lies to the right.
  const PlanePoint out = leftOf(step) * -kBumpRise;
  for (int i = 0; i < bumps; ++i) {
    const PlanePoint begin = from + step * i;
    path.arcThrough(begin + step * 0.5 + out, begin + step);
  }
}

}  // namespace

std::vector<CloudGroup> groupsOfBoxes(const std::vector<SheetBox>& boxes) {
  double room = kRoom;
  std::vector<CloudGroup> groups;
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    addTo(groups, {boxes[i], {i}}, room);
    while (groups.size() > kMostClouds) {
      room *= 2.0;
      std::vector<CloudGroup> wider;
      for (CloudGroup& group : groups) {
        addTo(wider, std::move(group), room);
      }
      groups = std::move(wider);
    }
  }
  for (CloudGroup& group : groups) {
    std::ranges::sort(group.members);
  }
  std::ranges::sort(groups, {}, [](const CloudGroup& group) {
    return std::tuple(group.box.least.x, -group.box.most.y, group.members.front());
  });
  return groups;
}

Path cloudAround(const SheetBox& box) {
  const SheetBox around = box.grown(kRoom);
  const PlanePoint corners[] = {
      around.least, {around.most.x, around.least.y}, around.most, {around.least.x, around.most.y}};
  Path path;
  path.moveTo(corners[0]);
  for (std::size_t i = 0; i < std::size(corners); ++i) {
    addSide(path, corners[i], corners[(i + 1) % std::size(corners)]);
  }
  path.close();
  return path;
}

}  // namespace quorvan::tool
