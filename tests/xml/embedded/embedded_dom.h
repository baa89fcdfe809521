// What the tests of the embedded document share.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include <tests/xml/dom_contract.h>
#include <quorvan/xml/embedded/reading/expat_reader.h>
#include <quorvan/xml/embedded/reading/plain_scanner.h>

namespace quorvan::test {

class EmbeddedDom : public DomContract {
 protected:
  /// The bytes saved after a file of the given bytes was loaded; "(refused)" if it was not.
  [[nodiscard]] std::string resaved(std::string_view bytes) const;

  /// Everything that a reader makes of a file of these bytes, white-space marks included;
  /// "(refused)" when it makes no tree.
  using Reader = embedded::Tree::Owned (*)(embedded::FileSource& file);
  [[nodiscard]] std::string readBy(Reader reader, std::string_view bytes) const;
  /// The same for the file of the last call.
  [[nodiscard]] std::string readAgainBy(Reader reader) const;

  /// The path of a file in the test's folder as the system takes it.
  [[nodiscard]] std::string path(const char* name) const { return file(name).string(); }
};

/// Everything that a tree holds.
std::string dump(const embedded::Tree& tree);

}  // namespace quorvan::test
