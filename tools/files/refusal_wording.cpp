#include <tools/files/refusal_wording.h>

#include <string_view>
#include <utility>
#include <vector>

#include <tools/files/source_markup.h>
#include <tools/files/source_text.h>

namespace quorvan::tool {

namespace {

struct Wording {
  std::string_view reason;  // of the parser
  std::string_view sentence;
};

constexpr std::string_view kMismatch = "mismatched tag";
constexpr std::string_view kNoElement = "no element found";

constexpr Wording kWordings[] = {
    {"not well-formed (invalid token)",
     "there is a character here that no markup has at this place"},
    {"unclosed token", "the file ends within the tag or comment that begins here"},
    {"partial character", "the file ends within a character"},
    {"duplicate attribute", "the tag has an attribute twice"},
    {"junk after document element", "something stands behind the end of the root element"},
    {"undefined entity", "the entity that is used here is declared nowhere"},
    {"recursive entity reference", "an entity contains itself"},
    {"reference to invalid character number", "the character reference is to no character"},
    {"XML or text declaration not at start of entity",
     "the XML declaration does not stand at the very beginning"},
    {"unknown encoding", "the encoding that the declaration names is not known"},
    {"encoding specified in XML declaration is incorrect",
     "the characters are not in the encoding that is declared"},
    {"unclosed CDATA section", "the character data that begin here have no end"},
    {"syntax error", "there is something here that no markup has at this place"},
    {"XML declaration not well-formed", "the XML declaration is not as it must be"},
    {"unbound prefix", "the prefix of a name is declared nowhere"},
    {"out of memory", "there is not enough memory"},
};

struct OpenTag {
  std::string name;
  Position position;
};

// The elements that are open where the parser stopped, and the tag there.
class OpenTags {
 public:
  OpenTags(std::string_view text, bool isSingleByte, Position end) : m_markup(text, isSingleByte) {
    while (m_markup.next()) {
      const Position at = m_markup.position();
      if (std::pair(at.line, at.column) > std::pair(end.line, end.column)) {
        break;
      }
      look(at);
    }
  }

  // The tag that is closed by another one; empty where all is in order.
  [[nodiscard]] std::string mismatch() const {
    return m_closing.empty() ? std::string() : last() + " is closed by </" + m_closing + '>';
  }
  [[nodiscard]] std::string unclosed() const {
    return m_open.empty() ? "the file has no root element" : last() + " is not closed";
  }

 private:
  void look(Position at) {
    const SourcePiece::Kind kind = m_markup.piece().kind;
    if (kind == SourcePiece::Kind::kStartTag) {
      m_open.push_back({std::string(m_markup.name()), at});
    } else if (kind == SourcePiece::Kind::kEndTag && !m_open.empty() && m_closing.empty()) {
      if (m_open.back().name == m_markup.name()) {
        m_open.pop_back();
      } else {
        m_closing = m_markup.name();
      }
    }
  }

  [[nodiscard]] std::string last() const {
    const OpenTag& open = m_open.back();
    return '<' + open.name + "> of line " + std::to_string(open.position.line) + ", column " +
           std::to_string(open.position.column);
  }

  SourceMarkup m_markup;
  std::vector<OpenTag> m_open;
  std::string m_closing;
};

}  // namespace

Refusal inWords(Refusal refusal, const std::string& bytes) {
  if (refusal.reason == kMismatch || refusal.reason == kNoElement) {
    const SourceEncoding encoding = encodingOf(bytes);
    const std::string text = plainText(bytes, encoding);
    const OpenTags open(text, encoding.isSingleByte, refusal.position);
    if (refusal.reason == kNoElement) {
      refusal.reason = open.unclosed();
    } else if (std::string sentence = open.mismatch(); !sentence.empty()) {
      refusal.reason = std::move(sentence);
    }
  }
  for (const Wording& wording : kWordings) {
    if (refusal.reason == wording.reason) {
      refusal.reason = wording.sentence;
    }
  }
  return refusal;
}

}  // namespace quorvan::tool
