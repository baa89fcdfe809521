// The element classes, for whoever lists, checks or documents them. Not installed.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include <quorvan/elements/items/item_schema.h>

namespace quorvan::items {

/// The element classes, in the order of allElements().
enum class ElementClass : std::uint8_t {
  kLine,
  kCircle,
  kText,
  kFilledPolygon,
  kMesh,
  kFormwork,
  kStraightBar,
  kLBar,
  kUBar,
  kPin,
  kPointBar,
  kPolygonBar,
  kFrameRect,
  kFrameCirc,
  kStirrup,
  kRepartition,
  kDrawingControl,
};

/// One element class: its name and its items in the order of writing.
struct ElementSchema {
  ElementClass id;
  std::string_view className;
  std::span<const ItemSchema> items;
};

/// All element classes.
std::span<const ElementSchema> allElements();

/// What the class files.
const ElementSchema& schemaOf(ElementClass id);

/// The element class of that name, or null.
const ElementSchema* findElement(std::string_view className);

}  // namespace quorvan::items
