#include <tools/model/extents.h>

#include <algorithm>
#include <cmath>

#include <tools/model/item_reader.h>
#include <tools/model/repartition.h>

namespace quorvan::tool {

namespace {

class Box {
 public:
  explicit Box(std::optional<Extents>& extents) : m_extents(extents) {}

  // A point without a finite place has no part in the extents.
  void add(const Coordinates& point) {
    if (!std::isfinite(point.x) || !std::isfinite(point.y) || !std::isfinite(point.z)) {
      return;
    }
    if (m_extents) {
      m_extents->include(point);
    } else {
      m_extents.emplace(point);
    }
  }

  void addAround(const Coordinates& center, double radius) {
    add({center.x - radius, center.y - radius, center.z});
    add({center.x + radius, center.y + radius, center.z});
  }

  void addSegment(const Segment& segment) {
    add(segment.start);
    add(segment.end);
    add({(segment.start.x + segment.end.x) / 2 + segment.bulge.x,
         (segment.start.y + segment.end.y) / 2 + segment.bulge.y,
         (segment.start.z + segment.end.z) / 2 + segment.bulge.z});
  }

 private:
  std::optional<Extents>& m_extents;
};

// The circle that the element is, if it is one.
bool addCircle(const std::vector<ItemValue>& items, Box& box) {
  const ItemValue* const center = findItem(items, "Center");
  if (center == nullptr || center->isMissing()) {
    return false;
  }
  for (const std::string_view name : {"Radius", "FrameRadius"}) {
    if (const ItemValue* const radius = findItem(items, name)) {
      box.addAround(center->point, radius->number);
    }
  }
  return true;
}

void addPoints(const std::vector<ItemValue>& items, Box& box) {
  for (const ItemValue& item : items) {
    if (item.schema->kind == items::Kind::kPoint && !item.isMissing()) {
      box.add(item.point);
    }
    for (const Coordinates& point : item.points) {
      box.add(point);
    }
    for (const Segment& segment : item.segments) {
      box.addSegment(segment);
    }
  }
}

// What has a place, and what says whether a repartition has one.
bool isPlaced(const items::ItemSchema& item) {
  return item.kind == items::Kind::kPoint || isList(item.kind) || item.name == "Radius" ||
         item.name == "FrameRadius";
}

}  // namespace

void Extents::include(const Coordinates& point) {
  least = {std::min(least.x, point.x), std::min(least.y, point.y), std::min(least.z, point.z)};
  most = {std::max(most.x, point.x), std::max(most.y, point.y), std::max(most.z, point.z)};
}

void includeElement(std::optional<Extents>& extents, const std::vector<ItemValue>& items) {
  Box box(extents);
  if (!addCircle(items, box)) {
    addPoints(items, box);
  }
}

std::optional<Extents> extentsOf(const TransferFile& file) {
  std::optional<Extents> extents;
  const ItemSelection placed(isPlaced);
  ItemReader reader(file);
  for (const Element& element : file.elements()) {
    if (element.schema == nullptr) {
      continue;
    }
    const std::vector<ItemValue>& items = reader.read(element, placed);
    if (element.is(items::ElementClass::kRepartition) && !toRepartition(items).hasLine()) {
      continue;
    }
    includeElement(extents, items);
  }
  return extents;
}

}  // namespace quorvan::tool
