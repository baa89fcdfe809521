// The schema of a drawing in JSON.
#include <nlohmann/json.hpp>

#include <quorvan/elements/element_classes.h>

#include <tools/documents/drawing_documents.h>
#include <tools/model/item_value.h>

namespace quorvan::tool {

namespace {

using Json = nlohmann::ordered_json;

Json reference(std::string_view definition) {
  return {{"$ref", "#/$defs/" + std::string(definition)}};
}

Json typeOf(items::Kind kind) {
  switch (kind) {
    case items::Kind::kPoint:
    case items::Kind::kVector:
      return reference("point");
    case items::Kind::kDouble:
      return reference("number");
    case items::Kind::kLong:
      return reference("long");
    case items::Kind::kColor:
      return reference("color");
    case items::Kind::kString:
    case items::Kind::kAdherence:
      return {{"type", "string"}};
    case items::Kind::kFlag:
    case items::Kind::kNumericFlag:
      return {{"type", "boolean"}};
    case items::Kind::kPointList:
    case items::Kind::kNumberedPoints:
      return reference("points");
    case items::Kind::kSegmentList:
      return reference("segments");
    case items::Kind::kDoubleList:
      return reference("numbers");
  }
  return {};
}

// A list that a file may lack is empty in JSON.
Json definition(const items::ElementSchema& element) {
  Json members = {{"class", {{"const", element.className}}}};
  Json required = {"class"};
  for (const items::ItemSchema& item : element.items) {
    const std::string name(displayName(item));
    members[name] = typeOf(item.kind);
    if (!item.optional || isList(item.kind)) {
      required.push_back(name);
    }
  }
  return {{"type", "object"},
          {"properties", members},
          {"required", required},
          {"additionalProperties", false}};
}

bool isClass(std::string_view name) {
  return name.starts_with("CKt");
}

// The classes stand where the first of them stood.
Json withClasses(const Json& definitions) {
  Json result;
  bool hasClasses = false;
  for (const auto& [name, value] : definitions.items()) {
    if (!isClass(name)) {
      result[name] = value;
    } else if (!hasClasses) {
      for (const items::ElementSchema& element : items::allElements()) {
        result[std::string(element.className)] = definition(element);
      }
      hasClasses = true;
    }
  }
  return result;
}

}  // namespace

std::string drawingSchema(std::string_view schema) {
  Json made = Json::parse(schema);
  made["$defs"] = withClasses(made["$defs"]);
  Json elements;
  for (const auto& [name, value] : made["$defs"].items()) {
    if (isClass(name)) {
      elements.push_back(reference(name));
    }
  }
  elements.push_back(reference("series"));
  made["properties"]["elements"]["items"]["anyOf"] = elements;
  return made.dump(2) + '\n';
}

}  // namespace quorvan::tool
