// The markup of a well-formed document, piece by piece, as it stands in the source.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include <tools/files/position.h>

namespace quorvan::tool {

/// A piece of the source: from `begin` to before `end`.
struct SourcePiece {
  enum class Kind : std::uint8_t {
    kStartTag,
    kEmptyTag,  // a tag that closes itself
    kEndTag,
    kText,  // with anything but white space in it
    kCharacterData,
    kComment,
    kInstruction,
    kDocumentType,
    kDeclaration,
  };

  Kind kind = Kind::kText;
  std::size_t begin = 0;
  std::size_t end = 0;

  [[nodiscard]] bool opensElement() const noexcept {
    return kind == Kind::kStartTag || kind == Kind::kEmptyTag;
  }
};

class SourceMarkup {
 public:
  /// `text` comes from plainText() and outlives the walk.
  SourceMarkup(std::string_view text, bool isSingleByte)
      : m_text(text), m_isSingleByte(isSingleByte) {}

  /// Goes to the next piece; false behind the last. White space between pieces is passed over.
  bool next();

  [[nodiscard]] const SourcePiece& piece() const noexcept { return m_piece; }
  [[nodiscard]] std::string_view text() const noexcept {
    return m_text.substr(m_piece.begin, m_piece.end - m_piece.begin);
  }

  /// The name in a tag or instruction.
  [[nodiscard]] std::string_view name() const noexcept;

  /// Where the piece begins. Costs what was passed over since the last question.
  Position position();

 private:
  void setMarkup(std::size_t at);
  [[nodiscard]] std::size_t behind(std::string_view end, std::size_t at) const;
  [[nodiscard]] std::size_t endOfTag(std::size_t at) const;
  [[nodiscard]] std::size_t endOfDocumentType(std::size_t at) const;

  std::string_view m_text;
  bool m_isSingleByte;
  SourcePiece m_piece;
  std::size_t m_at = 0;  // that position() has counted to
  Position m_position{1, 1};
};

}  // namespace quorvan::tool
