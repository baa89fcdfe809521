#include <tools/listing/element_to_json.h>

#include <tools/model/control_members.h>

namespace quorvan::tool {

namespace {

Json toJson(const Coordinates& point) {
  return Json::array({point.x, point.y, point.z});
}

Json toJson(const std::vector<Coordinates>& points) {
  Json list = Json::array();
  for (const Coordinates& point : points) {
    list.push_back(toJson(point));
  }
  return list;
}

Json toJson(const std::vector<Segment>& segments) {
  Json list = Json::array();
  for (const Segment& segment : segments) {
    list.push_back({{"start", toJson(segment.start)},
                    {"end", toJson(segment.end)},
                    {"bulge", toJson(segment.bulge)}});
  }
  return list;
}

}  // namespace

Json itemToJson(const ItemValue& item) {
  switch (item.schema->kind) {
    case items::Kind::kPoint:
    case items::Kind::kVector:
      return toJson(item.point);
    case items::Kind::kDouble:
      return item.number;
    case items::Kind::kLong:
    case items::Kind::kColor:
      return item.integer;
    case items::Kind::kFlag:
    case items::Kind::kNumericFlag:
      return item.flag;
    case items::Kind::kString:
    case items::Kind::kAdherence:
      return item.text;
    case items::Kind::kPointList:
    case items::Kind::kNumberedPoints:
      return toJson(item.points);
    case items::Kind::kSegmentList:
      return toJson(item.segments);
    case items::Kind::kDoubleList:
      return item.numbers;
  }
  return nullptr;
}

Json elementToJson(std::string_view className, const std::vector<ItemValue>& items) {
  Json object = {{"class", className}};
  for (const ItemValue& item : items) {
    if (!item.isMissing()) {
      object[std::string(displayName(*item.schema))] = itemToJson(item);
    }
  }
  return object;
}

Json controlToJson(const std::vector<ItemValue>& items) {
  Json object = Json::object();
  for (const ControlMember& member : kControlMembers) {
    const ItemValue* const item = findItem(items, member.item);
    if (item != nullptr && !item->isMissing()) {
      object[std::string(member.key)] = itemToJson(*item);
    }
  }
  return object;
}

}  // namespace quorvan::tool
