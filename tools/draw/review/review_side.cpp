#include <tools/draw/review/review_side.h>

#include <utility>

#include <tools/draw/element_painter.h>
#include <tools/draw/shapes/shape_sink.h>

namespace quorvan::tool {

namespace {

constexpr Color kPaleFill{232, 232, 232};  // what lies on it is pale as well

}  // namespace

ReviewSide::ReviewSide(const TransferFile& file, const DrawOptions& options)
    : m_file(file),
      m_options(options),
      m_angles(options.angles ? *options.angles : guessAngleUnit(file).unit),
      m_repeated(file),
      m_survey(survey(file, options, m_angles, m_repeated)),
      m_states(file.elements().size(), ReviewState::kSame),
      m_isReplaced(file.elements().size(), false),
      m_differences(file.elements().size(), kNoElement) {}

void ReviewSide::note(const Element* element, ReviewState state, std::size_t difference,
                      DifferenceKind kind) {
  if (element != nullptr) {
    m_states[element->place] = state;
    m_isReplaced[element->place] = kind == DifferenceKind::kChanged;
    m_differences[element->place] = static_cast<std::uint32_t>(difference);
  }
}

void ReviewSide::draw(const Sheet& sheet, std::vector<Shape>* same, std::vector<Shape>& different) {
  DrawContext context{sheet, ColorScheme::kIndex, m_angles, m_options.hidden};
  ShapeSink sink(context);
  ElementPainter painter(m_file, m_repeated, sink, nullptr);
  auto outlier = m_survey.outliers.begin();
  for (const Element& element : m_file.elements()) {
    if (outlier != m_survey.outliers.end() && *outlier == element.place) {
      ++outlier;
    } else if (same != nullptr || m_states[element.place] != ReviewState::kSame) {
      painter.draw(element);
    }
  }
  for (Shape& shape : sink.take()) {
    if (!m_options.shows(shape.layer)) {
      continue;
    }
    const ReviewState state = m_states[shape.element];
    const bool isReplaced = m_isReplaced[shape.element];
    Shape drawn = std::move(shape);
    drawn.element = m_differences[drawn.element];
    const bool isText = drawn.kind == Shape::Kind::kText;
    drawn.style = isText ? Style{lookOf(state).color, 0.0, true} : styled(drawn.style, state);
    if (state == ReviewState::kSame) {
      drawn.style.color = drawn.layer == Layer::kFills ? kPaleFill : drawn.style.color;
      same->push_back(std::move(drawn));
    } else if (isText && isOld(state)) {
      // Beneath the text that took its place, nobody could read it.
      if (!isReplaced) {
        different.push_back(strikeThrough(drawn));
        different.push_back(std::move(drawn));
      }
    } else {
      different.push_back(std::move(drawn));
    }
  }
}

}  // namespace quorvan::tool
