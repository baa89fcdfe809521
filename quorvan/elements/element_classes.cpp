#include <quorvan/elements/element_classes.h>

#include <array>
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

// A class without a table does not compile.
constexpr ElementSchema makeSchema(ElementClass id) {
  switch (id) {
    case ElementClass::kLine:
      return schema<CKtZantoLineItems>(id);
    case ElementClass::kCircle:
      return schema<CKtZantoCircleItems>(id);
    case ElementClass::kText:
      return schema<CKtZantoTextItems>(id);
    case ElementClass::kFilledPolygon:
      return schema<CKtFilledPolygonItems>(id);
    case ElementClass::kMesh:
      return schema<CKtZantoMeshItems>(id);
    case ElementClass::kFormwork:
      return schema<CKtZantoFormworkItems>(id);
    case ElementClass::kStraightBar:
      return schema<CKtZantoStraightBarItems>(id);
    case ElementClass::kLBar:
      return schema<CKtZantoLBarItems>(id);
    case ElementClass::kUBar:
      return schema<CKtZantoUBarItems>(id);
    case ElementClass::kPin:
      return schema<CKtZantoPinItems>(id);
    case ElementClass::kPointBar:
      return schema<CKtZantoPointBarItems>(id);
    case ElementClass::kPolygonBar:
      return schema<CKtZantoPolygonBarItems>(id);
    case ElementClass::kFrameRect:
      return schema<CKtZantoFrameRectItems>(id);
    case ElementClass::kFrameCirc:
      return schema<CKtZantoFrameCircItems>(id);
    case ElementClass::kStirrup:
      return schema<CKtZantoStirrupItems>(id);
    case ElementClass::kRepartition:
      return schema<CKtZantoRepartitionItems>(id);
    case ElementClass::kDrawingControl:
      return schema<CKtDrawingControlItems>(id);
  }
  throw "a class that the enumeration does not have";
}

constexpr std::size_t kClasses = static_cast<std::size_t>(ElementClass::kDrawingControl) + 1;

constexpr auto kElements = [] {
  std::array<ElementSchema, kClasses> all{};
  for (std::size_t i = 0; i < kClasses; ++i) {
    all[i] = makeSchema(static_cast<ElementClass>(i));
  }
  return all;
}();

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
