#include <algorithm>
#include <cmath>
#include <numbers>

#include <tools/check/rules.h>
#include <tools/text/number_text.h>

namespace quorvan::tool {

namespace {

constexpr double kSizeTolerance = 1e-6;
constexpr int kLengthDecimals = 0;
constexpr double kLengthTolerance = 1e-3;  // of the length

// ", legs 600, 1200, bend 90", as far as a line has room for them.
std::string shapeText(const CornerLine& line, double radius) {
  constexpr std::size_t kMost = 8;
  if (radius != 0.0) {
    return ", radius " + rounded(radius, 3);
  }
  std::string text;
  for (std::size_t i = 0; i < std::min(line.legs.size(), kMost); ++i) {
    text += (i == 0 ? ", legs " : ", ") + rounded(line.legs[i], 1);
  }
  for (std::size_t i = 0; i < std::min(line.corners.size(), kMost); ++i) {
    const double degrees = line.corners[i].angle * 180.0 / std::numbers::pi;
    text += (i == 0 ? ", bends " : ", ") + rounded(line.corners[i].isLeft ? degrees : -degrees, 1);
  }
  return text;
}

// What two bars at one place have in common, whichever end comes first. Empty where a number has no
// place among thousandths.
std::string placeOf(const Bar& bar, bool isBackwards) {
  constexpr double kFinest = 1e-3;
  constexpr double kMost = 1e15;
  std::vector<double> numbers;
  std::vector<Coordinates> line = bar.line;
  if (isBackwards) {
    std::ranges::reverse(line);
  }
  line.push_back(bar.center);
  for (const Coordinates& point : line) {
    numbers.insert(numbers.end(), {point.x, point.y, point.z});
  }
  for (const std::size_t i : {isBackwards ? 1U : 0U, isBackwards ? 0U : 1U}) {
    numbers.insert(numbers.end(), {bar.hooks[i].length, bar.hooks[i].angle,
                                   bar.hooks[i].length > 0.0 && bar.isHookUp[i] ? 1.0 : 0.0});
  }
  numbers.insert(numbers.end(), {bar.radius, bar.overlap, bar.diameter, bar.side ? 1.0 : 0.0});
  std::string text;
  for (const double number : numbers) {
    if (!(std::abs(number) < kMost)) {
      return {};
    }
    text += std::to_string(std::llround(number / kFinest)) + ' ';
  }
  return text;
}

}  // namespace

std::string comparedTexts(const DocumentTree& tree, const Element& element) {
  std::string texts(element.className());
  for (const Node* item = tree.firstChild(*element.node); item != nullptr;
       item = tree.nextSibling(*item)) {
    for (const Attribute& attribute : tree.attributes(*item)) {
      // Lengths keep neighbouring texts apart.
      for (const std::string_view part : {tree.name(*item), attribute.name, attribute.value}) {
        texts.append(std::to_string(part.size())).append(1, ':').append(part);
      }
    }
  }
  return texts;
}

void HiddenBarRule::look(const Element& element, const Bar& bar) {
  if (!bar.isHidden || bar.shape == BarShape::kPoint) {
    return;
  }
  const auto [known, isNew] = m_seen.emplace(comparedTexts(m_file.tree(), element), &element);
  if (!isNew) {
    Mend mend = mendBy(Mend::Kind::kLeaveOut);
    mend.element = &element;
    mend.equal = known->second;
    m_sink.add(findings::kEqualHiddenBars, element, "",
               "the same items as " + nameOf(m_file, *known->second), "one of them", nullptr, mend);
  }
}

void ReferenceRule::look(const Element& element, const std::vector<ItemValue>& items,
                         const Bar& bar) {
  constexpr std::size_t kMostVariants = 16;  // one finding each; a mark with more is no mark
  const double length = bar.hasLength() ? lengthOf(bar) : 0.0;
  const Variant variant{&element,
                        "diameter " + rounded(bar.diameter, 3) + ", grade " + bar.grade +
                            ", adherence " + bar.adherence,
                        bar.shape,
                        std::isfinite(length) ? length : 0.0,
                        lineOf(bar),
                        bar.radius};
  std::vector<Variant>& known = m_marks[bar.reference];
  const auto isLike = [&variant](const Variant& other) { return areAlike(variant, other); };
  const bool isEndOn = !bar.hasLength();
  if (std::ranges::any_of(known, isLike)) {
    // A bar with a length tells more than the ones seen end-on.
    if (!isEndOn && known.front().shape == BarShape::kPoint) {
      known.front() = variant;
    }
    return;
  }
  if (known.size() == kMostVariants) {
    return;
  }
  if (!known.empty()) {
    const Variant& first = known.front();
    const bool withLegs = haveOneLength(variant, first);
    m_sink.add(findings::kReferenceDiffers, element, "Reference", describe(variant, withLegs),
               describe(first, withLegs) + " as in " + nameOf(m_file, *first.element),
               nodeOf(items, "Reference"));
  }
  known.push_back(variant);
}

CornerLine ReferenceRule::lineOf(const Bar& bar) {
  if (!bar.hasLength() || bar.shape == BarShape::kFrameCirc) {
    return {};
  }
  const auto isThere = [](const Hook& hook) { return hook.length > 0.0; };
  if (!m_angles && std::ranges::any_of(bar.hooks, isThere)) {
    m_angles = guessAngleUnit(m_file).unit;
  }
  return cornerLineOf(bar, m_angles.value_or(AngleUnit::kDegrees));
}

bool ReferenceRule::haveOneLength(const Variant& a, const Variant& b) {
  return a.steel == b.steel && a.shape == b.shape &&
         std::abs(a.length - b.length) <= kLengthTolerance * std::max(a.length, b.length);
}

bool ReferenceRule::areAlike(const Variant& a, const Variant& b) {
  if (a.steel != b.steel) {
    return false;
  }
  if (a.shape == BarShape::kPoint || b.shape == BarShape::kPoint) {
    return true;
  }
  return haveOneLength(a, b) && tool::areAlike(a.line, b.line) &&
         std::abs(a.radius - b.radius) <= kLengthTolerance * std::max(a.length, b.length);
}

std::string ReferenceRule::describe(const Variant& variant, bool withLegs) {
  std::string text = std::string(shapeName(variant.shape)) + ", " + variant.steel;
  if (variant.length != 0.0) {
    text += ", length " + fixed(variant.length, kLengthDecimals);
  }
  return withLegs ? text + shapeText(variant.line, variant.radius) : text;
}

void EqualBarRule::look(const Element& element, const Bar& bar) {
  if (bar.isHidden) {
    return;
  }
  std::string place = placeOf(bar, false);
  if (place.empty()) {
    return;
  }
  if (!bar.isClosed) {
    place = std::min(place, placeOf(bar, true));
  }
  place.append(shapeName(bar.shape)).append(1, ' ').append(std::to_string(bar.reference));
  place.append(1, ' ').append(bar.grade).append(1, '\n').append(bar.adherence);
  const auto [known, isNew] = m_seen.emplace(std::move(place), &element);
  if (!isNew) {
    m_sink.add(findings::kEqualBars, element, "",
               "mark " + std::to_string(bar.reference) + " at the place of " +
                   nameOf(m_file, *known->second),
               "one of them");
  }
}

void checkDiameter(const Element& element, const std::vector<ItemValue>& items, const Bar& bar,
                   const StandardSizes& sizes, FindingSink& sink) {
  const auto difference = [&bar](double size) { return std::abs(size - bar.diameter); };
  const auto nearest = std::ranges::min_element(sizes.diameters, {}, difference);
  if (nearest == sizes.diameters.end() || difference(*nearest) < kSizeTolerance) {
    return;
  }
  sink.add(findings::kDiameter, element, "Diameter", shortest(bar.diameter),
           "a standard size, the nearest is " + shortest(*nearest), nodeOf(items, "Diameter"));
}

}  // namespace quorvan::tool
