#include <quorvan/elements/element_classes.h>

#include <cstddef>

#include <quorvan/elements/circle_items.h>
#include <quorvan/elements/drawing_control_items.h>
#include <quorvan/elements/filled_polygon_items.h>
#include <quorvan/elements/formwork_items.h>
#include <quorvan/elements/frame_circ_items.h>
#include <quorvan/elements/frame_rect_items.h>
#include <quorvan/elements/l_bar_items.h>
#include <quorvan/elements/line_items.h>
#include <quorvan/elements/mesh_items.h>
#include <quorvan/elements/pin_items.h>
#include <quorvan/elements/point_bar_items.h>
#include <quorvan/elements/polygon_bar_items.h>
#include <quorvan/elements/repartition_items.h>
#include <quorvan/elements/stirrup_items.h>
#include <quorvan/elements/straight_bar_items.h>
#include <quorvan/elements/text_items.h>
#include <quorvan/elements/u_bar_items.h>

namespace quorvan::items {

namespace {

// The items of one class, kept for the life of the program.
template <class Items>
struct ItemsOf {
  static constexpr auto kItems = Items::kTable.schema();
};

template <class Items>
constexpr ElementSchema schema(ElementClass id) {
  return {id, Items::kTable.className.text(), ItemsOf<Items>::kItems};
}

constexpr ElementSchema kElements[] = {
#define QUORVAN_SCHEMA(name, type) schema<type##Items>(ElementClass::k##name),
    QUORVAN_ELEMENT_CLASSES(QUORVAN_SCHEMA)
#undef QUORVAN_SCHEMA
};

}  // namespace

std::span<const ElementSchema> allElements() {
  return kElements;
}

const ElementSchema& schemaOf(ElementClass id) {
  return kElements[static_cast<std::size_t>(id)];
}

const ElementSchema* findElement(std::string_view className) {
  for (const ElementSchema& element : kElements) {
    if (element.className == className) {
      return &element;
    }
  }
  return nullptr;
}

}  // namespace quorvan::items
