#include <tools/files/source_places.h>

#include <quorvan/text/utf8.h>

#include <tools/files/source_markup.h>

namespace quorvan::tool {

namespace {

constexpr std::size_t kDeepestStray = 3;    // within an item; what lies in its elements is theirs
constexpr std::size_t kMostStrayText = 60;  // of a stray node, in bytes

// The beginning of the piece as UTF-8 that is not cut within a character.
std::string beginningOf(std::string_view piece, bool isSingleByte) {
  const std::string_view beginning = piece.substr(0, kMostStrayText);
  std::string text;
  const char* at = beginning.data();
  const char* const end = at + beginning.size();
  while (at != end) {
    if (isSingleByte) {
      appendUtf8(text, static_cast<unsigned char>(*at++));
    } else if (piece.size() > kMostStrayText && end - at < static_cast<std::ptrdiff_t>(kMaxUtf8) &&
               static_cast<unsigned char>(*at) >= 0x80) {
      break;
    } else {
      appendUtf8(text, decodeUtf8(at, end));
    }
  }
  return text + (piece.size() > kMostStrayText ? "..." : "");
}

class PlaceFinder {
 public:
  PlaceFinder(std::string_view text, bool isSingleByte)
      : m_isSingleByte(isSingleByte), m_size(text.size()), m_markup(text, isSingleByte) {}

  SourcePlaces find(Progress& progress) {
    while (m_markup.next()) {
      const SourcePiece& piece = m_markup.piece();
      progress.report(piece.begin, m_size);
      if (piece.opensElement()) {
        open();
      } else if (piece.kind == SourcePiece::Kind::kEndTag) {
        m_depth -= m_depth == 0 ? 0U : 1U;
      } else if (piece.kind != SourcePiece::Kind::kDeclaration) {
        look();
      }
    }
    return std::move(m_places);
  }

 private:
  void open() {
    m_places.elements.push_back(m_markup.position());
    if (m_depth == 1) {
      m_className = m_markup.name();
    } else if (m_depth == 2) {
      m_item = m_markup.name();
    }
    m_depth += m_markup.piece().kind == SourcePiece::Kind::kStartTag ? 1U : 0U;
  }

  void look() {
    const bool isBelow = m_depth != 0;
    if (isBelow ? m_depth > kDeepestStray || m_markup.piece().kind == SourcePiece::Kind::kComment
                : !m_places.elements.empty()) {
      return;
    }
    if (m_markup.piece().kind == SourcePiece::Kind::kDocumentType) {
      m_places.hasDeclarations = m_markup.text().find('[') != std::string_view::npos;
    }
    StrayNode node{m_markup.position(), beginningOf(m_markup.text(), m_isSingleByte), {}, {}};
    if (m_depth > 1) {
      node.className = m_className;
    }
    if (m_depth > 2) {
      node.item = m_item;
    }
    (isBelow ? m_places.below : m_places.beforeRoot).push_back(std::move(node));
  }

  bool m_isSingleByte;
  std::size_t m_size;
  SourceMarkup m_markup;
  std::size_t m_depth = 0;
  std::string_view m_className;
  std::string_view m_item;
  SourcePlaces m_places;
};

}  // namespace

SourcePlaces findPlaces(std::string_view text, bool isSingleByte, Progress& progress) {
  return PlaceFinder(text, isSingleByte).find(progress);
}

}  // namespace quorvan::tool
