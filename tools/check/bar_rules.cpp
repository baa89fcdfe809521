#include <algorithm>
#include <cmath>

#include <tools/check/rules.h>
#include <tools/text/number_text.h>

namespace quorvan::tool {

namespace {

constexpr double kSizeTolerance = 1e-6;
constexpr int kLengthDecimals = 0;

}  // namespace

std::string comparedTexts(const DocumentTree& tree, const Element& element) {
  std::string texts(element.className());
  for (const Node* item = tree.firstChild(*element.node); item != nullptr;
       item = tree.nextSibling(*item)) {
    for (const Attribute& attribute : tree.attributes(*item)) {
      // Lengths keep neighbouring texts apart.
      for (const std::string_view part : {item->name, attribute.name, attribute.value}) {
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
                        bar.shape, std::isfinite(length) ? length : 0.0};
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
    m_sink.add(findings::kReferenceDiffers, element, "Reference", describe(variant),
               describe(known.front()) + " as in " + nameOf(m_file, *known.front().element),
               nodeOf(items, "Reference"));
  }
  known.push_back(variant);
}

bool ReferenceRule::areAlike(const Variant& a, const Variant& b) {
  constexpr double kLengthTolerance = 1e-3;  // of the length
  if (a.steel != b.steel) {
    return false;
  }
  if (a.shape == BarShape::kPoint || b.shape == BarShape::kPoint) {
    return true;
  }
  return a.shape == b.shape &&
         std::abs(a.length - b.length) <= kLengthTolerance * std::max(a.length, b.length);
}

std::string ReferenceRule::describe(const Variant& variant) {
  std::string text = std::string(shapeName(variant.shape)) + ", " + variant.steel;
  if (variant.length != 0.0) {
    text += ", length " + fixed(variant.length, kLengthDecimals);
  }
  return text;
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
