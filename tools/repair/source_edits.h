// What is to be changed in the source of a file, by place.
#pragma once

#include <cstdint>
#include <map>
#include <utility>
#include <vector>

#include <tools/check/finding.h>
#include <tools/files/transfer_file.h>

namespace quorvan::tool {

/// What happens to one element or other node.
struct SourceEdit {
  bool isRemoved = false;
  std::vector<AttributeMend> attributes;
};

class SourceEdits {
 public:
  /// Of the findings that can be mended but for forbidden characters.
  SourceEdits(const TransferFile& file, const std::vector<Finding>& findings);

  /// The edit of what begins at the place; null where nothing is to be done.
  [[nodiscard]] const SourceEdit* at(Position place) const;
  [[nodiscard]] bool renamesRoot() const noexcept { return m_renamesRoot; }
  [[nodiscard]] bool addsControl() const noexcept { return m_addsControl; }

 private:
  SourceEdit& edit(Position place) { return m_edits[{place.line, place.column}]; }
  void number(const TransferFile& file, const std::vector<Finding>& findings);

  std::map<std::pair<std::uint32_t, std::uint32_t>, SourceEdit> m_edits;
  bool m_renamesRoot = false;
  bool m_addsControl = false;
};

}  // namespace quorvan::tool
