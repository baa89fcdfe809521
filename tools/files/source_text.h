// The bytes of a file and the text that they are.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

#include <tools/console/console.h>

namespace quorvan::tool {

/// A file cannot be read.
class Unreadable : public Failure {
 public:
  Unreadable(const std::string& name, std::string reason)
      : Failure(name + ": " + reason), m_reason(std::move(reason)) {}
  [[nodiscard]] const std::string& reason() const noexcept { return m_reason; }

 private:
  std::string m_reason;
};

/// All bytes of the file, which messages call `name`. Raises Unreadable.
std::string readBytes(const std::filesystem::path& path, const std::string& name);

/// Writes a file of these bytes. Raises Failure when it cannot be written whole.
void writeBytes(const std::filesystem::path& path, std::string_view bytes);

/// The byte order mark of UTF-8.
inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

/// What the beginning of a file says about its characters.
struct SourceEncoding {
  std::string declared;  // as spelled in the declaration, empty without one
  bool hasMark = false;  // a byte order mark
  bool isUtf16 = false;
  bool isBigEndian = false;
  bool isSingleByte = false;  // every character is one byte

  /// The name of the encoding that applies.
  [[nodiscard]] std::string name() const;
};

SourceEncoding encodingOf(std::string_view bytes);

/// The text as UTF-8 or, for single bytes, as it stands; without its mark.
std::string plainText(std::string_view bytes, const SourceEncoding& encoding);

/// The bytes of a file with that text: what plainText() undoes.
std::string sourceBytes(std::string_view text, const SourceEncoding& encoding);

}  // namespace quorvan::tool
