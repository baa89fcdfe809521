// The element classes, for whoever lists, checks or documents them. Not installed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string_view>

#include <quorvan/elements/items/item_schema.h>

/* CLASS(name, type) for each, the one list of them. Readers know their numbers: a new class goes to
 * the end. */
#define QUORVAN_ELEMENT_CLASSES(CLASS)    \
  CLASS(Line, CKtZantoLine)               \
  CLASS(Circle, CKtZantoCircle)           \
  CLASS(Text, CKtZantoText)               \
  CLASS(FilledPolygon, CKtFilledPolygon)  \
  CLASS(Mesh, CKtZantoMesh)               \
  CLASS(Formwork, CKtZantoFormwork)       \
  CLASS(StraightBar, CKtZantoStraightBar) \
  CLASS(LBar, CKtZantoLBar)               \
  CLASS(UBar, CKtZantoUBar)               \
  CLASS(Pin, CKtZantoPin)                 \
  CLASS(PointBar, CKtZantoPointBar)       \
  CLASS(PolygonBar, CKtZantoPolygonBar)   \
  CLASS(FrameRect, CKtZantoFrameRect)     \
  CLASS(FrameCirc, CKtZantoFrameCirc)     \
  CLASS(Stirrup, CKtZantoStirrup)         \
  CLASS(Repartition, CKtZantoRepartition) \
  CLASS(DrawingControl, CKtDrawingControl)

namespace quorvan::items {

/// The element classes: kLine, kCircle and so on, in the order of allElements().
enum class ElementClass : std::uint8_t {
#define QUORVAN_ENUMERATOR(name, type) k##name,
  QUORVAN_ELEMENT_CLASSES(QUORVAN_ENUMERATOR)
#undef QUORVAN_ENUMERATOR
};

/// How many there are.
#define QUORVAN_LISTED(name, type) ElementClass::k##name,
inline constexpr std::size_t kElementClasses =
    std::initializer_list<ElementClass>{QUORVAN_ELEMENT_CLASSES(QUORVAN_LISTED)}.size();
#undef QUORVAN_LISTED

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
