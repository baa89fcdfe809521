// Differences in words.
#pragma once

#include <map>
#include <string>
#include <vector>

#include <tools/diff/difference.h>
#include <tools/model/item_reader.h>

namespace quorvan::tool {

/// So many elements that were moved alike are one line.
inline constexpr std::size_t kTogether = 4;

/// Differences that are told in one line: one, or those that were moved by the same vector.
using DifferenceGroup = std::vector<const Difference*>;

/// The differences in their order, such as were moved alike together where the first of them
/// stands.
std::vector<DifferenceGroup> groupsOf(const std::vector<Difference>& differences);

class DifferenceTexts {
 public:
  DifferenceTexts(const TransferFile& before, const TransferFile& after);

  /// The element in words: the old one where there is one.
  std::string describe(const Difference& one);
  /// Its class and index, in both files where they differ.
  [[nodiscard]] std::string source(const Difference& one) const;
  /// "moved: straight bar, ..., by (100, 0, 0)"; "moved: everything, 508 elements, by ...".
  std::string lineOf(const DifferenceGroup& group);
  /// What was moved in the group: "30 Line, 2 UBar".
  [[nodiscard]] static std::string classesOf(const DifferenceGroup& group);

 private:
  const TransferFile& m_before;
  const TransferFile& m_after;
  ItemReader m_old;
  ItemReader m_new;
  std::size_t m_placed;  // elements of the old drawing that have a place
};

}  // namespace quorvan::tool
