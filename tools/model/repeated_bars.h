// The bars that repartitions repeat.
#pragma once

#include <unordered_map>

#include <tools/model/bar.h>
#include <tools/model/item_reader.h>
#include <tools/model/repartition.h>

namespace quorvan::tool {

/// Reads each bar once, however many repartitions repeat it.
class RepeatedBars {
 public:
  explicit RepeatedBars(const TransferFile& file) : m_index(file), m_reader(file) {}

  [[nodiscard]] const ElementIndex& index() const noexcept { return m_index; }

  /// The bar; null where the file does not have it. Valid as long as this lives.
  const Bar* find(const Repartition& series);

 private:
  ElementIndex m_index;
  ItemReader m_reader;
  std::unordered_map<const Element*, Bar> m_bars;
};

}  // namespace quorvan::tool
