// A transfer file as the program reads it, for tests of what it makes of one.
#pragma once

#include <cstddef>
#include <sstream>
#include <string>
#include <vector>

#include <tools/console/console.h>
#include <tools/files/transfer_file.h>
#include <tools/model/item_problem.h>
#include <tools/model/item_value.h>

namespace quorvan::test {

class LoadedFile {
 public:
  /// Writes the bytes as "loaded.xml" and reads them.
  explicit LoadedFile(const std::string& bytes, tool::Tolerance tolerance = tool::Tolerance::kNone);

  [[nodiscard]] const tool::TransferFile& file() const { return m_file; }
  [[nodiscard]] const tool::DocumentTree& tree() const { return m_file.tree(); }
  [[nodiscard]] const tool::Element& element(std::size_t place) const {
    return m_file.elements().at(place);
  }
  /// What reading the file said on standard error.
  [[nodiscard]] std::string warnings() const { return m_err.str(); }

  /// The items of an element of a known class.
  [[nodiscard]] std::vector<tool::ItemValue> items(std::size_t place) const;
  /// What is wrong with them.
  [[nodiscard]] std::vector<tool::ItemProblem> problems(std::size_t place) const;

 private:
  std::ostringstream m_out;
  std::ostringstream m_err;
  tool::Console m_console{m_out, m_err};
  tool::TransferFile m_file;
};

/// A file with these class elements.
LoadedFile loadedElements(const std::string& elements);

}  // namespace quorvan::test
