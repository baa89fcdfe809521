#include <quorvan/elements/items/item_schema.h>

#include <quorvan/elements/items/circle_items.h>
#include <quorvan/elements/items/drawing_control_items.h>
#include <quorvan/elements/items/filled_polygon_items.h>
#include <quorvan/elements/items/formwork_items.h>
#include <quorvan/elements/items/frame_circ_items.h>
#include <quorvan/elements/items/frame_rect_items.h>
#include <quorvan/elements/items/l_bar_items.h>
#include <quorvan/elements/items/line_items.h>
#include <quorvan/elements/items/mesh_items.h>
#include <quorvan/elements/items/pin_items.h>
#include <quorvan/elements/items/point_bar_items.h>
#include <quorvan/elements/items/polygon_bar_items.h>
#include <quorvan/elements/items/repartition_items.h>
#include <quorvan/elements/items/stirrup_items.h>
#include <quorvan/elements/items/straight_bar_items.h>
#include <quorvan/elements/items/text_items.h>
#include <quorvan/elements/items/u_bar_items.h>

namespace quorvan::items {

namespace {

// The items of one class, kept for the life of the program.
template <class Items>
struct SchemaOf {
  static constexpr auto kItems = Items::kTable.schema();
  static constexpr ElementSchema kElement{Items::kTable.className.text(), kItems};
};

constexpr ElementSchema kElements[] = {
    SchemaOf<CKtZantoLineItems>::kElement,        SchemaOf<CKtZantoCircleItems>::kElement,
    SchemaOf<CKtZantoTextItems>::kElement,        SchemaOf<CKtFilledPolygonItems>::kElement,
    SchemaOf<CKtZantoMeshItems>::kElement,        SchemaOf<CKtZantoFormworkItems>::kElement,
    SchemaOf<CKtZantoStraightBarItems>::kElement, SchemaOf<CKtZantoLBarItems>::kElement,
    SchemaOf<CKtZantoUBarItems>::kElement,        SchemaOf<CKtZantoPinItems>::kElement,
    SchemaOf<CKtZantoPointBarItems>::kElement,    SchemaOf<CKtZantoPolygonBarItems>::kElement,
    SchemaOf<CKtZantoFrameRectItems>::kElement,   SchemaOf<CKtZantoFrameCircItems>::kElement,
    SchemaOf<CKtZantoStirrupItems>::kElement,     SchemaOf<CKtZantoRepartitionItems>::kElement,
    SchemaOf<CKtDrawingControlItems>::kElement,
};

}  // namespace

std::span<const ElementSchema> allElements() {
  return kElements;
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
