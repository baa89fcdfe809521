#include <tools/files/source_markup.h>

namespace quorvan::tool {

namespace {

constexpr std::string_view kMarkupBlanks = " \t\r\n";
constexpr std::string_view kDeclarationBegin = "<?xml";

bool isMarkupBlank(char unit) {
  return kMarkupBlanks.find(unit) != std::string_view::npos;
}

}  // namespace

bool SourceMarkup::next() {
  const std::size_t begin = m_piece.end;
  const std::size_t markup = std::min(m_text.find('<', begin), m_text.size());
  std::size_t text = begin;
  while (text != markup && isMarkupBlank(m_text[text])) {
    ++text;
  }
  if (text != markup) {
    m_piece = {SourcePiece::Kind::kText, text, markup};
    return true;
  }
  if (markup == m_text.size()) {
    m_piece = {SourcePiece::Kind::kText, markup, markup};
    return false;
  }
  setMarkup(markup);
  return true;
}

void SourceMarkup::setMarkup(std::size_t at) {
  using Kind = SourcePiece::Kind;
  const std::string_view rest = m_text.substr(at);
  const char mark = rest.size() > 1 ? rest[1] : '/';
  if (mark == '/') {
    m_piece = {Kind::kEndTag, at, behind(">", at)};
  } else if (mark == '?') {
    const bool isDeclaration = at == 0 && rest.starts_with(kDeclarationBegin) &&
                               rest.size() > kDeclarationBegin.size() &&
                               isMarkupBlank(rest[kDeclarationBegin.size()]);
    m_piece = {isDeclaration ? Kind::kDeclaration : Kind::kInstruction, at, behind("?>", at)};
  } else if (mark != '!') {
    const std::size_t end = endOfTag(at + 1);
    const bool isEmpty = end - at > 2 && m_text[end - 2] == '/' && m_text[end - 1] == '>';
    m_piece = {isEmpty ? Kind::kEmptyTag : Kind::kStartTag, at, end};
  } else if (rest.starts_with("<!--")) {
    m_piece = {Kind::kComment, at, behind("-->", at + 4)};
  } else if (rest.starts_with("<![CDATA[")) {
    m_piece = {Kind::kCharacterData, at, behind("]]>", at)};
  } else {
    m_piece = {Kind::kDocumentType, at, endOfDocumentType(at + 1)};
  }
}

std::string_view SourceMarkup::name() const noexcept {
  std::string_view piece = text();
  piece.remove_prefix(std::min(piece.find_first_not_of("<?/"), piece.size()));
  return piece.substr(0, piece.find_first_of(" \t\r\n/>?"));
}

Position SourceMarkup::position() {
  movePosition(m_position, m_text, m_at, m_piece.begin, m_isSingleByte);
  m_at = m_piece.begin;
  return m_position;
}

std::size_t SourceMarkup::behind(std::string_view end, std::size_t at) const {
  const std::size_t found = m_text.find(end, at);
  return found == std::string_view::npos ? m_text.size() : found + end.size();
}

std::size_t SourceMarkup::endOfTag(std::size_t at) const {
  while ((at = m_text.find_first_of("\"'>", at)) != std::string_view::npos) {
    if (m_text[at] == '>') {
      return at + 1;
    }
    at = behind(m_text.substr(at, 1), at + 1);
  }
  return m_text.size();
}

std::size_t SourceMarkup::endOfDocumentType(std::size_t at) const {
  std::size_t open = 0;
  while ((at = m_text.find_first_of("\"'<>[]", at)) != std::string_view::npos) {
    const char unit = m_text[at];
    if (unit == '"' || unit == '\'') {
      at = behind(m_text.substr(at, 1), at + 1);
    } else if (m_text.substr(at).starts_with("<!--")) {
      at = behind("-->", at + 4);
    } else if (m_text.substr(at).starts_with("<?")) {
      at = behind("?>", at);
    } else {
      ++at;
      if (unit == '<' || unit == '[') {
        ++open;
      } else if (open == 0) {
        return at;
      } else {
        --open;
      }
    }
  }
  return m_text.size();
}

}  // namespace quorvan::tool
