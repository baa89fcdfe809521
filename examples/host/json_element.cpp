#include "json_element.h"

#include <cstdint>
#include <limits>
#include <utility>

void Points::add(const Point& point) {
  xs.push_back(point.x);
  ys.push_back(point.y);
  zs.push_back(point.z);
}

JsonElement::JsonElement(const nlohmann::json& value, std::string place)
    : m_value(&value), m_place(std::move(place)) {
  if (!value.is_object()) {
    fail("must be an object");
  }
}

double JsonElement::number(const char* item) {
  const nlohmann::json& value = take(item);
  if (!value.is_number()) {
    failItem(item, "a number");
  }
  return value.get<double>();
}

int JsonElement::whole(const char* item) {
  const nlohmann::json& value = take(item);
  using Limits = std::numeric_limits<std::int32_t>;
  if (!value.is_number_integer() || value < Limits::min() || value > Limits::max()) {
    failItem(item, "a whole number of 32 bits");
  }
  return value.get<std::int32_t>();
}

unsigned long JsonElement::color(const char* item) {
  const nlohmann::json& value = take(item);
  if (!value.is_number_unsigned() || value > std::numeric_limits<std::uint32_t>::max()) {
    failItem(item, "a whole number from 0 to 4294967295");
  }
  return value.get<std::uint32_t>();
}

bool JsonElement::flag(const char* item) {
  const nlohmann::json& value = take(item);
  if (!value.is_boolean()) {
    failItem(item, "true or false");
  }
  return value.get<bool>();
}

CString JsonElement::text(const char* item) {
  const std::string value = utf8(item);
  if (value.find('\0') != std::string::npos) {
    failItem(item, "a text without U+0000");
  }
  return {value.c_str()};
}

std::string JsonElement::utf8(const char* item) {
  const nlohmann::json& value = take(item);
  if (!value.is_string()) {
    failItem(item, "a text");
  }
  return value.get<std::string>();
}

Point JsonElement::point(const char* item) {
  return pointOf(take(item), item);
}

Points JsonElement::points(const char* item) {
  const nlohmann::json& value = take(item);
  if (!value.is_array()) {
    failItem(item, "a list of points");
  }
  Points points;
  for (const nlohmann::json& point : value) {
    points.add(pointOf(point, item));
  }
  return points;
}

JsonElement JsonElement::object(const char* item) {
  return JsonElement(take(item), '"' + std::string(item) + '"');
}

std::vector<JsonElement> JsonElement::list(const char* item, const char* entryName) {
  const nlohmann::json& value = take(item);
  if (!value.is_array()) {
    failItem(item, "a list");
  }
  const std::string place = (m_place.empty() ? "" : m_place + ", ") + entryName + " ";
  std::vector<JsonElement> entries;
  for (const nlohmann::json& entry : value) {
    entries.emplace_back(entry, place + std::to_string(entries.size() + 1));
  }
  return entries;
}

void JsonElement::expectNoOtherItem() const {
  for (const auto& [name, value] : m_value->items()) {
    if (m_taken.count(name) == 0) {
      fail("has an item \"" + name + "\" that does not belong here");
    }
  }
}

void JsonElement::fail(const std::string& what) const {
  throw DrawingError((m_place.empty() ? "the file" : m_place) + " " + what);
}

const nlohmann::json& JsonElement::take(const char* item) {
  m_taken.insert(item);
  const auto found = m_value->find(item);
  if (found == m_value->end()) {
    fail("has no item \"" + std::string(item) + "\"");
  }
  return *found;
}

void JsonElement::failItem(const char* item, const char* expected) const {
  fail("has an item \"" + std::string(item) + "\" that is not " + expected);
}

Point JsonElement::pointOf(const nlohmann::json& value, const char* item) const {
  const bool isPoint = value.is_array() && value.size() == 3 && value[0].is_number() &&
                       value[1].is_number() && value[2].is_number();
  if (!isPoint) {
    failItem(item, "made of three numbers each");
  }
  return {value[0].get<double>(), value[1].get<double>(), value[2].get<double>()};
}
