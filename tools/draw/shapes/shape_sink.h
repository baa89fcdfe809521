// Collects the shapes of a scene, each kind of element by kind.
#pragma once

#include <cmath>
#include <cstdint>
#include <numbers>
#include <string>
#include <utility>
#include <vector>

#include <tools/draw/scene/draw_options.h>
#include <tools/draw/scene/occupancy.h>
#include <tools/draw/scene/scene.h>
#include <tools/draw/scene/sheet.h>
#include <tools/draw/shapes/callout.h>

namespace quorvan::tool {

/// Line widths on paper, in mm.
namespace pen {
inline constexpr double kFine = 0.13;
inline constexpr double kThin = 0.18;
inline constexpr double kMedium = 0.35;
inline constexpr double kThickest = 60.0;  // a bar of any size at 1:1
inline constexpr double kFormwork = 0.25;
}  // namespace pen

/// The colours that the program gives by itself.
namespace ink {
inline constexpr Color kFormwork{40, 40, 40};
inline constexpr Color kBars{176, 18, 30};
inline constexpr Color kLinks{20, 80, 170};
inline constexpr Color kRepartitions{0, 110, 90};
inline constexpr Color kMeshes{120, 60, 160};
inline constexpr Color kMarks{20, 40, 120};
inline constexpr Color kTitle{0, 0, 0};
inline constexpr Color kPaper{255, 255, 255};
}  // namespace ink

/// What is fixed for the whole drawing.
struct DrawContext {
  const Sheet& sheet;
  ColorScheme colors;
  AngleUnit angles;
  HiddenBars hidden;
  Language language = Language::kEnglish;
  double lettering = 2.0;    // mm, of what the program adds
  bool isMeasuring = false;  // only what the elements themselves look like
  double paper = 1.0;        // a millimetre of paper in the sheet's unit

  /// Within a full turn, either way round.
  [[nodiscard]] double radians(double angle) const noexcept {
    constexpr double kDegrees = 360.0;
    return angles == AngleUnit::kDegrees ? std::fmod(angle, kDegrees) * std::numbers::pi / 180.0
                                         : std::fmod(angle, 2.0 * std::numbers::pi);
  }
};

class ShapeSink {
 public:
  explicit ShapeSink(const DrawContext& context)
      : m_context(context),
        m_taken(context.isMeasuring ? 1.0 : context.sheet.width(),
                context.isMeasuring ? 1.0 : context.sheet.height()) {}

  [[nodiscard]] const DrawContext& context() const noexcept { return m_context; }
  [[nodiscard]] const Sheet& sheet() const noexcept { return m_context.sheet; }

  /// The element that what follows belongs to.
  void begin(std::uint32_t element, bool isHidden = false) {
    m_element = element;
    m_isHidden = isHidden;
    m_isDashed = isHidden && m_context.hidden == HiddenBars::kDashed;
    m_hasHidden = m_hasHidden || isHidden;
  }

  [[nodiscard]] std::uint32_t element() const noexcept { return m_element; }

  void addPath(Layer layer, const Style& style, Path path);
  void addCircle(Layer layer, const Style& style, PlanePoint center, double radius);
  void addText(Layer layer, Color color, Lettering lettering) {
    addText(layer, Style{color, 0.0, true}, std::move(lettering));
  }
  void addText(Layer layer, const Style& style, Lettering lettering);

  /// Adds a text that the program puts there by itself, at the place where it covers least.
  void addLabel(Layer layer, Color color, Lettering lettering, std::vector<PlanePoint> places);

  /// Adds a text with a leader.
  void addCallout(Callout callout);

  /// Finds places for labels and callouts, now that everything else has its own.
  void drawLabels();

  /// What lies inside an outline is concrete: labels stand beside it.
  void addConcrete(const std::vector<PlanePoint>& outline) {
    if (!m_context.isMeasuring) {
      m_taken.fill(outline, Occupancy::Kind::kConcrete);
    }
  }

  /// A colour as it is drawn: what would be too pale to read is darkened, and counted.
  [[nodiscard]] Color ink(std::int64_t number);
  /// The height of a text as it is drawn: that of the labels for a text without one, and counted.
  [[nodiscard]] double heightOf(double height);

  [[nodiscard]] std::uint64_t darkened() const noexcept { return m_darkened; }
  [[nodiscard]] std::uint64_t withoutHeight() const noexcept { return m_withoutHeight; }

  [[nodiscard]] bool has(Layer layer) const noexcept {
    return !m_layers[static_cast<std::size_t>(layer)].empty();
  }
  [[nodiscard]] bool hasHidden() const noexcept { return m_hasHidden; }

  /// The shapes, by layer.
  [[nodiscard]] std::vector<Shape> take();
  /// Elements with a shape that cannot be drawn, because it has no finite place.
  [[nodiscard]] std::uint64_t leftOut() const noexcept { return m_leftOut; }

 private:
  [[nodiscard]] Shape shapeOn(Layer layer, Shape::Kind kind, const Style& style) const;
  [[nodiscard]] SheetBox visible() const noexcept;
  void leaveOut();
  void add(Shape shape);
  void addGaps(const Shape& dashed);
  void drawCallout(const Callout& callout, bool isQuick);

  struct Label {
    Layer layer;
    Color color;
    Lettering lettering;
    std::vector<PlanePoint> places;
    std::uint32_t element;
  };

  DrawContext m_context;
  Occupancy m_taken;
  std::vector<Shape> m_layers[kLayers];
  std::uint32_t m_element = kNoElement;
  bool m_isHidden = false;
  bool m_isDashed = false;
  bool m_hasHidden = false;
  std::vector<Label> m_labels;
  std::vector<Callout> m_callouts;
  std::uint64_t m_darkened = 0;
  std::uint64_t m_withoutHeight = 0;
  std::uint32_t m_lastLeftOut = kNoElement;
  std::uint64_t m_leftOut = 0;
};

}  // namespace quorvan::tool
