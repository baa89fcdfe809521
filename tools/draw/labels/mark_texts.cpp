#include <tools/draw/labels/mark_texts.h>

#include <algorithm>
#include <charconv>
#include <cmath>

#include <tools/draw/scene/text_width.h>
#include <tools/model/item_reader.h>
#include <tools/text/ascii_letters.h>

namespace quorvan::tool {

namespace {

constexpr double kNear = 30.0;           // heights of the text
constexpr std::size_t kMostDigits = 6;   // of a mark
constexpr std::size_t kMostPlaces = 64;  // of one mark, that are looked at

bool isLetter(char unit) {
  return (unit >= 'a' && unit <= 'z') || (unit >= 'A' && unit <= 'Z') ||
         static_cast<unsigned char>(unit) >= 0x80U;
}

// Reads a text from its front.
class Cursor {
 public:
  explicit Cursor(std::string_view text) : m_rest(text) {}

  void skipBlanks() {
    while (!m_rest.empty() && (m_rest.front() == ' ' || m_rest.front() == '\t')) {
      m_rest.remove_prefix(1);
    }
  }
  // The word in lower case, whatever case the text has.
  bool take(std::string_view word) {
    if (m_rest.size() < word.size() ||
        !std::equal(word.begin(), word.end(), m_rest.begin(),
                    [](char a, char b) { return a == asciiLower(b); })) {
      return false;
    }
    m_rest.remove_prefix(word.size());
    return true;
  }
  // Of so many digits at least.
  std::optional<std::int64_t> number(std::size_t least = 1) {
    std::size_t digits = 0;
    while (digits < m_rest.size() && isAsciiDigit(m_rest[digits])) {
      ++digits;
    }
    if (digits < least || digits > kMostDigits) {
      return std::nullopt;
    }
    std::int64_t value = 0;
    std::from_chars(m_rest.data(), m_rest.data() + digits, value);
    m_rest.remove_prefix(digits);
    return value;
  }
  // With the digits behind a point, if there are any.
  std::optional<double> decimal() {
    const char* const begin = m_rest.data();
    if (!number()) {
      return std::nullopt;
    }
    if (Cursor behind = *this; behind.take(".") && behind.number()) {
      *this = behind;
    }
    double value = 0.0;
    std::from_chars(begin, m_rest.data(), value, std::chars_format::fixed);
    return value;
  }
  [[nodiscard]] bool startsWith(std::string_view word) const { return Cursor(*this).take(word); }
  [[nodiscard]] bool atEnd() const { return m_rest.empty(); }
  [[nodiscard]] bool atDigit() const { return !m_rest.empty() && isAsciiDigit(m_rest.front()); }

 private:
  std::string_view m_rest;
};

// "HA 12": the kind of bar, the diameter.
std::optional<double> barAt(Cursor& at) {
  for (const std::string_view kind :
       {"ha", "dia", "dx", "\u00F8", "\u00D8", "\u2300", "h", "r", "t"}) {
    Cursor behind = at;
    if (!behind.take(kind)) {
      continue;
    }
    behind.skipBlanks();
    if (const auto diameter = behind.decimal()) {
      at = behind;
      return diameter;
    }
  }
  return std::nullopt;
}

// "(3)", from here on.
std::optional<MarkText> bracketed(Cursor at) {
  if (!at.take("(")) {
    return std::nullopt;
  }
  at.skipBlanks();
  const auto mark = at.number();
  at.skipBlanks();
  return mark && at.take(")") ? std::optional(MarkText{*mark}) : std::nullopt;
}

// "H12-03-200" and "H12-03", from here on. What stands behind the only dash of "H12-200" may be the
// mark or the spacing.
std::optional<MarkText> dashed(Cursor at) {
  constexpr std::int64_t kLeastSpacing = 100;
  const bool isKind = at.startsWith("h") || at.startsWith("r") || at.startsWith("t");
  const auto diameter = isKind ? barAt(at) : std::nullopt;
  if (!diameter || !at.take("-")) {
    return std::nullopt;
  }
  const auto mark = at.number(2);
  if (!mark) {
    return std::nullopt;
  }
  const bool isMark = *mark < kLeastSpacing || (at.take("-") && at.atDigit());
  return isMark ? MarkText{*mark, false, diameter} : MarkText{std::nullopt, false, diameter, mark};
}

// "rep. 3" and the like, from here on.
std::optional<MarkText> wordWithNumber(Cursor at) {
  constexpr std::string_view kWords[] = {"rep\u00E8re", "rep\u00C8re", "rep",     "r\u00E9p",
                                         "r\u00C9p",    "n\u00B0",     "n\u00BA", "no",
                                         "pos",         "position",    "mark",    "mk"};
  for (const std::string_view word : kWords) {
    Cursor behind = at;
    if (!behind.take(word)) {
      continue;
    }
    behind.take(".");
    behind.skipBlanks();
    if (const auto mark = behind.number(); mark && !behind.atDigit()) {
      return MarkText{*mark};
    }
  }
  return std::nullopt;
}

// The first of what is read at the characters that do not go on with a word.
template <class Read>
std::optional<MarkText> firstOf(std::string_view text, const Read& read) {
  for (std::size_t begin = 0; begin < text.size(); ++begin) {
    if (begin == 0 || !isLetter(text[begin - 1]) || !isLetter(text[begin])) {
      if (const auto found = read(Cursor(text.substr(begin)))) {
        return found;
      }
    }
  }
  return std::nullopt;
}

bool hasBar(std::string_view text) {
  return firstOf(text,
                 [](Cursor at) { return barAt(at) ? std::optional(MarkText{}) : std::nullopt; })
      .has_value();
}

// A mark that says that it is one.
std::optional<MarkText> statedMark(std::string_view text) {
  if (const auto word = firstOf(text, wordWithNumber)) {
    return word;
  }
  if (const auto found = firstOf(text, bracketed); found && hasBar(text)) {
    return found;
  }
  return firstOf(text, dashed);
}

struct Ring {
  PlanePoint center;
  double radius;
};

// The circles, from left to right.
std::vector<Ring> ringsOf(const TransferFile& file, const Sheet& sheet) {
  std::vector<Ring> rings;
  ItemReader reader(file);
  for (const Element& element : file.elements()) {
    if (element.is(items::ElementClass::kCircle)) {
      const std::vector<ItemValue>& items = reader.read(element);
      rings.push_back({sheet.place(findItem(items, "Center")->point),
                       std::abs(findItem(items, "Radius")->number) * sheet.factor()});
    }
  }
  std::erase_if(rings, [](const Ring& ring) { return !isFinite(ring.center); });
  std::ranges::sort(rings, {}, [](const Ring& ring) { return ring.center.x; });
  return rings;
}

// Whether one of the circles is round the text, and not much larger.
bool isInRing(PlanePoint center, double height, const std::vector<Ring>& rings) {
  constexpr double kLargest = 4.0;  // heights
  auto at = std::ranges::lower_bound(rings, center.x - height, {},
                                     [](const Ring& ring) { return ring.center.x; });
  for (; at != rings.end() && at->center.x <= center.x + height; ++at) {
    if (at->radius >= 0.5 * height && at->radius <= kLargest * height &&
        lengthOf(at->center - center) <= 0.6 * at->radius) {
      return true;
    }
  }
  return false;
}

double distanceTo(PlanePoint point, PlanePoint from, PlanePoint to) {
  const PlanePoint way = to - from;
  const double square = way.x * way.x + way.y * way.y;
  const PlanePoint out = point - from;
  const double share =
      square > 0.0 ? std::clamp((out.x * way.x + out.y * way.y) / square, 0.0, 1.0) : 0.0;
  return lengthOf(out - way * share);
}

}  // namespace

std::optional<MarkText> markIn(std::string_view text) {
  Cursor at(text);
  at.skipBlanks();
  if (const auto head = bracketed(at)) {
    return head;
  }
  const auto stated = statedMark(text);
  if (stated && stated->mark) {
    return stated;
  }
  const auto number = at.number();
  if (!number) {
    return stated;
  }
  at.skipBlanks();
  if (at.atEnd()) {
    return MarkText{*number, true};
  }
  if (const auto diameter = barAt(at)) {
    return MarkText{*number, false, diameter, stated ? stated->behind : std::nullopt};
  }
  return stated;
}

MarkTexts::MarkTexts(const TransferFile& file, const Sheet& sheet, const BarsByMark& bars) {
  const std::vector<Ring> rings = ringsOf(file, sheet);
  ItemReader reader(file);
  for (const Element& element : file.elements()) {
    if (!element.is(items::ElementClass::kText)) {
      continue;
    }
    const std::vector<ItemValue>& items = reader.read(element);
    auto said = markIn(findItem(items, "Contents")->text);
    if (said && said->behind && bars.has(*said->behind, *said->diameter)) {
      said->mark = *said->behind;
    }
    if (!said || !said->mark) {
      continue;
    }
    const double height = std::abs(findItem(items, "Height")->number) * sheet.factor();
    const PlanePoint at = sheet.place(findItem(items, "Location")->point);
    // A mark in a circle is centred, or begins at the lower left of its letters.
    const PlanePoint middle = at + PlanePoint{height / 2.0, height / 2.0};
    if (!isFinite(at) ||
        (said->isBareNumber && !isInRing(at, height, rings) && !isInRing(middle, height, rings))) {
      continue;
    }
    std::vector<Place>& places = m_places[*said->mark];
    if (places.size() < kMostPlaces) {
      places.push_back({at, height, said->diameter});
    }
  }
}

bool MarkTexts::name(std::int64_t mark, double diameter, PlanePoint from, PlanePoint to) const {
  const auto found = m_places.find(mark);
  return found != m_places.end() && std::ranges::any_of(found->second, [&](const Place& place) {
           return (!place.diameter || std::abs(*place.diameter - diameter) < 0.5) &&
                  distanceTo(place.center, from, to) <= kNear * place.height;
         });
}

}  // namespace quorvan::tool
