// The tree of a saved transfer file, read by a parser of the tests' own that knows only what the
// library writes: no white space between elements, no text, no comments.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorvan::test {

/// An element of the file. Texts are as they stand in the file, references and all.
struct SavedElement {
  std::string name;
  std::vector<std::pair<std::string, std::string>> attributes;
  std::vector<SavedElement> children;

  /// The value of an attribute; "(none)" without it.
  [[nodiscard]] std::string attribute(std::string_view attributeName) const;

  /// The first child of that name; raises std::runtime_error without one.
  [[nodiscard]] const SavedElement& child(std::string_view childName) const;
};

/// The class elements of the file in their order. Raises std::runtime_error when the file is not
/// one that the library could have written.
std::vector<SavedElement> savedElements(const std::filesystem::path& path);

/// Those of one class.
std::vector<SavedElement> savedElements(const std::filesystem::path& path,
                                        std::string_view className);

/// "CKtZantoLine 1, CKtZantoLine 2, CKtDrawingControl 1": the class elements and their indexes.
std::string savedIndexes(const std::filesystem::path& path);

}  // namespace quorvan::test
