// Which elements a mended copy has, and under which index.
#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include <tools/files/transfer_file.h>
#include <tools/model/repartition.h>

namespace quorvan::tool {

class ElementPlan {
 public:
  explicit ElementPlan(const TransferFile& file);

  /// The index under which the element is written; 0 for one that is left out.
  [[nodiscard]] std::int32_t newIndex(const Element& element) const {
    return m_newIndexes[element.place];
  }

  /// The index to which a repartition refers afterwards: unchanged where it refers to nothing.
  [[nodiscard]] std::int64_t newReference(std::string_view className, std::int64_t index) const;

 private:
  void leaveOutEqualHiddenBars(const TransferFile& file);
  void number(const TransferFile& file);

  ElementIndex m_index;
  std::vector<std::int32_t> m_newIndexes;
  std::unordered_map<const Element*, const Element*> m_equals;  // left out: the one that stays
};

}  // namespace quorvan::tool
