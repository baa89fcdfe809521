// The bytes of a file: its encoding, and where its elements begin.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include <tools/console/progress.h>
#include <tools/files/document_tree.h>

namespace quorvan::tool {

/// All bytes of the file. Raises Failure when it cannot be read.
std::string readBytes(const std::filesystem::path& path);

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

/// Where the tags of the elements begin, in the order of the file, which is well-formed. `text`
/// comes from plainText().
std::vector<Position> startTagPositions(std::string_view text, bool isSingleByte,
                                        Progress& progress);

}  // namespace quorvan::tool
