// Writes a record of bending data.
#pragma once

#include <string>
#include <string_view>

namespace quorvan::tool::bvbs {

class RecordText {
 public:
  /// `kind` is the name of one: "BF2D".
  explicit RecordText(std::string_view kind) : m_text(std::string(kind) + '@') {}

  /// Opens a block; its fields follow.
  void open(char letter) { m_text += letter; }
  /// `value` has no @.
  void field(char letter, std::string_view value) {
    m_text += letter;
    m_text.append(value) += '@';
  }
  /// Appends blocks that are written already.
  void append(std::string_view blocks) { m_text.append(blocks); }
  /// A private block; `text` has no @.
  void note(std::string_view text) {
    m_text += 'P';
    m_text.append(text) += '@';
  }

  /// The record with its checksum, without a line end.
  [[nodiscard]] std::string finished() const;

 private:
  std::string m_text;
};

}  // namespace quorvan::tool::bvbs
