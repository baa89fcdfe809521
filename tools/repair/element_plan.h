// Which elements a mended copy has, and under which index.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include <tools/check/finding.h>
#include <tools/files/transfer_file.h>
#include <tools/model/repartition.h>
#include <tools/text/keyed_hash.h>

namespace quorvan::tool {

class ElementPlan {
 public:
  /// The classes that the findings ask to number are numbered from 1, in the 16 bits in which the
  /// library files an index, and so are those of elements that are left out.
  ElementPlan(const TransferFile& file, const std::vector<Finding>& findings);

  [[nodiscard]] bool isNumbered(std::string_view className) const {
    return m_numbered.contains(std::string(className));
  }
  [[nodiscard]] bool isLeftOut(const Element& element) const { return m_equals.contains(&element); }

  /// The index of an element that stays, of a class that is numbered.
  [[nodiscard]] std::int32_t newIndex(const Element& element) const {
    return m_newIndexes[element.place];
  }

  /// The index to which a repartition refers afterwards. A repartition of a bar that is not there
  /// keeps its index, or gets the one that says so where another bar has that index now.
  [[nodiscard]] std::int64_t newReference(std::string_view className, std::int64_t index) const;

 private:
  void number(const TransferFile& file);
  [[nodiscard]] bool isTaken(std::string_view className, std::int64_t index) const;

  ElementIndex m_index;
  std::vector<std::int32_t> m_newIndexes;
  std::unordered_set<std::string, KeyedHash> m_numbered;
  std::unordered_map<std::string_view, std::uint32_t, KeyedHash>
      m_counts;                                                 // of the numbered classes
  std::unordered_map<const Element*, const Element*> m_equals;  // left out: the one that stays
};

}  // namespace quorvan::tool
