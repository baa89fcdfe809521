// Objects of the drawing JSON as items of elements.
#pragma once

#include <string>
#include <vector>

#include <quorvan/elements/element_classes.h>

#include <tools/model/item_value.h>
#include <tools/text/json_text.h>

namespace quorvan::tool {

/// A member is missing, unknown or of the wrong type; the text says which.
class WrongMember : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// An element that is to be filed.
struct ElementInput {
  const items::ElementSchema* schema = nullptr;
  std::vector<ItemValue> items;  // one for each of the schema
};

/// The element of an object with the member "class". Raises WrongMember.
ElementInput elementFromJson(const Json& object);

// Values of single members. `name` is for the message of WrongMember.
double doubleFromJson(const Json& value, const std::string& name);
std::int64_t longFromJson(const Json& value, const std::string& name, std::int64_t largest);
bool flagFromJson(const Json& value, const std::string& name);
std::string textFromJson(const Json& value, const std::string& name);

/// The largest values of numbers of 32 bits.
inline constexpr std::int64_t kLargestLong = 2147483647;
inline constexpr std::int64_t kLargestColor = 4294967295;

}  // namespace quorvan::tool
