// A bar or link of the drawing, of whichever of the nine classes.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <tools/files/transfer_file.h>
#include <tools/model/item_value.h>

namespace quorvan::tool {

enum class BarShape : std::uint8_t {
  kStraight,
  kL,
  kU,
  kPin,
  kPoint,
  kPolygon,
  kFrameRect,
  kFrameCirc,
  kStirrup,
};

struct Hook {
  double length = 0.0;
  double angle = 0.0;  // in the unit of the drawing
};

/// The centre line follows from the items as follows. The straight bar and the pin run from point
/// to point; the L bar has its bend at the second point; the U bar's third leg is equal and
/// parallel to its first; the rectangular frame's fourth corner completes a parallelogram; the
/// stirrup runs there and back between the ends of its long axis. The links carry one hook in the
/// file and have it at both ends.
struct Bar {
  BarShape shape = BarShape::kStraight;
  std::vector<Coordinates> line;  // centre line without hooks; one point for a bar seen end-on
  bool isClosed = false;          // the last point joins the first
  Coordinates center;             // circular frame
  double radius = 0.0;            // circular frame
  double overlap = 0.0;           // circular frame
  std::array<Hook, 2> hooks;
  std::array<bool, 2> isHookUp{};  // straight bar
  bool side = false;               // polygon bar
  std::string grade;
  std::string adherence;
  double diameter = 0.0;
  std::int64_t reference = 0;
  bool isHidden = false;

  [[nodiscard]] bool isLink() const noexcept {
    return shape == BarShape::kFrameRect || shape == BarShape::kFrameCirc ||
           shape == BarShape::kStirrup;
  }
  /// A bar seen end-on has no length in the file.
  [[nodiscard]] bool hasLength() const noexcept { return shape != BarShape::kPoint; }
};

/// Whether elements of the class are bars or links.
std::optional<BarShape> barShapeOf(items::ElementClass id) noexcept;
std::optional<BarShape> barShapeOf(std::string_view className);
inline std::optional<BarShape> barShapeOf(const Element& element) noexcept {
  return element.schema == nullptr ? std::nullopt : barShapeOf(element.schema->id);
}

/// What people call the shape: "straight bar", "rectangular frame".
std::string_view shapeName(BarShape shape) noexcept;

/// The bar in the items of an element of its class.
Bar toBar(BarShape shape, const std::vector<ItemValue>& items);

/// Length of the centre line with both hooks, without any deduction for bends. A hook of negative
/// length is none.
double lengthOf(const Bar& bar) noexcept;

double distance(const Coordinates& a, const Coordinates& b) noexcept;

}  // namespace quorvan::tool
