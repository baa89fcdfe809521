#include <quorvan/xml/embedded/reading/plain_scanner.h>

#include <bit>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string_view>

#include <quorvan/xml/embedded/files/file_window.h>
#include <quorvan/xml/embedded/reading/limits.h>
#include <quorvan/xml/embedded/reading/name_cache.h>
#include <quorvan/xml/embedded/reading/plain_characters.h>
#include <quorvan/xml/embedded/reading/plain_text.h>
#include <quorvan/xml/embedded/reading/tag_memory.h>
#include <quorvan/xml/embedded/reading/tree_builder.h>
#include <quorvan/xml/embedded/tree/declaration.h>
#include <quorvan/xml/embedded/tree/encoding.h>
#include <quorvan/xml/embedded/tree/value_text.h>

namespace quorvan::embedded {

namespace {

std::string_view textBetween(const char* begin, const char* end) noexcept {
  return {begin, static_cast<std::size_t>(end - begin)};
}

// Whether the text begins at `at`; the bytes compared must be readable.
bool startsWith(const char* at, std::string_view text) noexcept {
  return std::memcmp(at, text.data(), text.size()) == 0;
}

bool isEndOfTag(const char* at) noexcept {
  return *at == '>' || (*at == '/' && at[1] == '>');
}

// The first byte from `at` on that is not plain.
const char* endOfPlain(const char* at) noexcept {
  if constexpr (std::endian::native == std::endian::little) {
    for (;; at += sizeof(std::uint64_t)) {
      std::uint64_t bytes = 0;
      std::memcpy(&bytes, at, sizeof bytes);
      if (const std::uint64_t marks = markNotPlain(bytes); marks != 0) {
        return at + std::countr_zero(marks) / 8;
      }
    }
  } else {
    while (isPlain({at, 1})) {
      ++at;
    }
    return at;
  }
}

class PlainScanner {
 public:
  PlainScanner(FileSource& file, Tree& tree)
      : m_window(file), m_builder(tree), m_names(tree.nodes().names()) {}

  // False when there is anything beyond the plain form.
  bool scan();

 private:
  // What became of a part of the file.
  enum class Step : std::uint8_t {
    kTaken,
    kCut,    // it goes on where nothing has been read yet
    kOther,  // beyond the plain form
  };

  bool scanDeclaration();
  Step scanPart();
  Step scanStartTag();
  Step scanTagName(NameId& name);
  Step scanAttributeName(NameId& name);
  Step scanAttributes(Ref element, NameId attribute);
  Step scanValue(Ref element, NameId name);
  Step scanEndTag();
  Step scanComment();
  Step scanText();

  // Behind the name that begins at m_at; null when none begins there.
  [[nodiscard]] const char* endOfName() const noexcept;
  // A byte that does not fit: either the part is cut there, or it is beyond the plain form.
  [[nodiscard]] Step stepAt(const char* at) const noexcept {
    return at >= m_window.end() ? Step::kCut : Step::kOther;
  }
  // The first occurrence of the text, null if there is none.
  [[nodiscard]] const char* find(const char* from, std::string_view text) const noexcept;

  FileWindow m_window;
  TreeBuilder m_builder;
  NameCache m_names;
  TagMemory m_tags;
  NameId m_lastElement = kNoName;
  PlainText m_text;
  const char* m_at = nullptr;
  bool m_hasRoot = false;
};

bool PlainScanner::scan() {
  if (!m_window.moveOn(m_window.begin())) {
    return false;
  }
  m_at = m_window.begin();
  if (!scanDeclaration()) {
    return false;
  }
  for (;;) {
    const char* const part = m_at;
    const Step step = m_at == m_window.end() ? Step::kCut : scanPart();
    if (step == Step::kOther) {
      return false;
    }
    if (step == Step::kCut) {
      const bool isEnd = !m_window.moveOn(part);
      m_at = m_window.begin();
      if (isEnd) {
        return m_at == m_window.end() && m_hasRoot && m_builder.depth() == 0;
      }
    }
  }
}

bool PlainScanner::scanDeclaration() {
  constexpr std::string_view kBegin = "<?xml";
  if (!startsWith(m_at, kBegin)) {
    return true;
  }
  const char* const data = m_at + kBegin.size();
  const char* const end = find(data, "?>");
  if (end == nullptr || plain_form::classOf(*data) != plain_form::kBlank) {
    return false;
  }
  const std::optional<Declaration> parts = parseDeclaration(textBetween(data, end));
  if (!parts) {
    return false;
  }
  if (!parts->encoding.empty()) {
    const std::optional<Encoding> encoding = encodingNamed(parts->encoding);
    if (encoding == Encoding::kLatin1) {
      m_text.setLatin1();
    } else if (encoding != Encoding::kUtf8) {
      return false;
    }
  }
  m_builder.addDeclaration(*parts);
  m_at = end + 2;
  return true;
}

PlainScanner::Step PlainScanner::scanPart() {
  if (*m_at != '<') {
    return scanText();
  }
  const char next = m_at[1];
  if (next == '/') {
    return scanEndTag();
  }
  if (next == '!') {
    return scanComment();
  }
  return scanStartTag();
}

const char* PlainScanner::endOfName() const noexcept {
  const char* at = m_at;
  if (plain_form::classOf(*at) != plain_form::kNameStart) {
    return nullptr;
  }
  do {
    ++at;
  } while (plain_form::classOf(*at) == plain_form::kNameStart ||
           plain_form::classOf(*at) == plain_form::kNamePart);
  return at;
}

PlainScanner::Step PlainScanner::scanStartTag() {
  const char* const begin = m_at;
  NameId name = kNoName;
  NameId attribute = kNoName;
  TagMemory::Tag& expected = m_tags.behind(m_lastElement, m_builder.openId());
  const bool isExpected = m_builder.depth() != 0 && expected.isAt(begin);
  if (isExpected) {
    name = expected.element();
    attribute = expected.attribute();
    m_at += expected.length();
  } else if (const Step step = scanTagName(name); step != Step::kTaken) {
    return step;
  }
  if (m_builder.depth() == 0 ? m_hasRoot : m_builder.depth() == kMaxDepth) {
    return Step::kOther;
  }
  const Ref element = m_builder.createElement(name);
  Step step = isExpected ? Step::kTaken : scanAttributeName(attribute);
  if (!isExpected && attribute != kNoName) {
    TagMemory::learn(expected, textBetween(begin, m_at), name, attribute);
  }
  m_lastElement = name;
  if (step == Step::kTaken) {
    step = scanAttributes(element, attribute);
  }
  if (step != Step::kTaken) {
    m_builder.takeBack(element);
    return step;
  }
  m_hasRoot = true;
  if (m_at[0] == '/') {
    m_builder.addEmptyElement(element);
    m_at += 2;
  } else {
    m_builder.openElement(element);
    m_at += 1;
  }
  return Step::kTaken;
}

PlainScanner::Step PlainScanner::scanTagName(NameId& name) {
  ++m_at;
  const char* const end = endOfName();
  if (end == nullptr) {
    return stepAt(m_at);
  }
  if (end >= m_window.end()) {
    return Step::kCut;
  }
  name = m_names.idOf(textBetween(m_at, end));
  m_at = end;
  return Step::kTaken;
}

// Up to the value of the next attribute; or up to the end of the tag, which is not passed, and then
// there is no name.
PlainScanner::Step PlainScanner::scanAttributeName(NameId& name) {
  name = kNoName;
  const char* const stop = plain_form::skipBlanks(m_at);
  if (isEndOfTag(stop)) {
    m_at = stop;
    return Step::kTaken;
  }
  if (stop == m_at) {
    return stepAt(*stop == '/' ? stop + 1 : stop);
  }
  m_at = stop;
  const char* const end = endOfName();
  if (end == nullptr) {
    return stepAt(*stop == '/' ? stop + 1 : stop);
  }
  if (end[0] != '=' || end[1] != '"') {
    return stepAt(end[0] == '=' ? end + 1 : end);
  }
  name = m_names.idOf(textBetween(m_at, end));
  m_at = end + 2;
  return Step::kTaken;
}

// From the value of that attribute on, if there is one, up to the end of the tag.
PlainScanner::Step PlainScanner::scanAttributes(Ref element, NameId attribute) {
  for (std::size_t count = 1; attribute != kNoName; ++count) {
    if (count > kMaxAttributes) {
      return Step::kOther;
    }
    if (const Step step = scanValue(element, attribute); step != Step::kTaken) {
      return step;
    }
    if (isEndOfTag(m_at)) {
      break;
    }
    TagMemory::Tag& expected = m_tags.behind(attribute);
    if (expected.element() == kNoName && expected.isAt(m_at)) {
      attribute = expected.attribute();
      m_at += expected.length();
      continue;
    }
    const char* const begin = m_at;
    if (const Step step = scanAttributeName(attribute); step != Step::kTaken) {
      return step;
    }
    if (attribute != kNoName) {
      TagMemory::learn(expected, textBetween(begin, m_at), kNoName, attribute);
    }
  }
  return Step::kTaken;
}

PlainScanner::Step PlainScanner::scanValue(Ref element, NameId name) {
  NodeStore& nodes = m_builder.tree().nodes();
  const char* end = endOfPlain(m_at);
  if (*end == '"') {
    if (!nodes.putNew(element, name, {textBetween(m_at, end), true})) {
      return Step::kOther;
    }
    m_at = end + 1;
    return Step::kTaken;
  }
  end = find(end, "\"");
  if (end == nullptr) {
    return Step::kCut;
  }
  const auto text = m_text.decode(textBetween(m_at, end), PlainText::Place::kAttribute);
  if (!text || !nodes.putNew(element, name, {*text, isPlain(*text)})) {
    return Step::kOther;
  }
  m_at = end + 1;
  return Step::kTaken;
}

PlainScanner::Step PlainScanner::scanEndTag() {
  if (m_builder.depth() == 0) {
    return Step::kOther;
  }
  m_at += 2;
  const char* const end = endOfName();
  if (end == nullptr) {
    return stepAt(m_at);
  }
  const char* const stop = plain_form::skipBlanks(end);
  if (*stop != '>') {
    return stepAt(stop);
  }
  if (textBetween(m_at, end) != m_builder.openName()) {
    return Step::kOther;
  }
  m_builder.closeElement();
  m_at = stop + 1;
  return Step::kTaken;
}

PlainScanner::Step PlainScanner::scanComment() {
  constexpr std::string_view kBegin = "<!--";
  if (!startsWith(m_at, kBegin)) {
    return m_window.end() - m_at < static_cast<std::ptrdiff_t>(kBegin.size()) ? Step::kCut
                                                                              : Step::kOther;
  }
  const char* const text = m_at + kBegin.size();
  const char* const end = find(text, "--");
  if (end == nullptr || end + 2 == m_window.end()) {
    return Step::kCut;
  }
  if (end[2] != '>') {
    return Step::kOther;
  }
  const auto decoded = m_text.decode(textBetween(text, end), PlainText::Place::kComment);
  if (!decoded) {
    return Step::kOther;
  }
  m_builder.addNode(NodeType::kComment, kCommentName, *decoded);
  m_at = end + 3;
  return Step::kTaken;
}

PlainScanner::Step PlainScanner::scanText() {
  const char* end = plain_form::skipBlanks(m_at);
  if (*end == '<') {
    if (m_builder.depth() != 0) {
      m_builder.addSpace();
    }
    m_at = end;
    return Step::kTaken;
  }
  if (m_builder.depth() == 0) {
    // Outside the root there are blanks only, and they may end with the file.
    if (end < m_window.end()) {
      return Step::kOther;
    }
    m_at = end;
    return Step::kTaken;
  }
  end = find(end, "<");
  if (end == nullptr) {
    return Step::kCut;
  }
  const std::string_view raw = textBetween(m_at, end);
  const auto text = m_text.decode(raw, PlainText::Place::kText);
  if (!text || raw.find("]]>") != std::string_view::npos) {
    return Step::kOther;
  }
  m_builder.addText(*text);
  m_at = end;
  return Step::kTaken;
}

const char* PlainScanner::find(const char* from, std::string_view text) const noexcept {
  const std::size_t at = textBetween(from, m_window.end()).find(text);
  return at == std::string_view::npos ? nullptr : from + at;
}

}  // namespace

Tree::Owned scanPlain(FileSource& file) {
  Tree::Owned tree = Tree::create();
  if (!PlainScanner(file, *tree).scan()) {
    return nullptr;
  }
  return tree;
}

}  // namespace quorvan::embedded
