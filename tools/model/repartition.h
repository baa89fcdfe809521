// A series of like bars.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <tools/files/transfer_file.h>
#include <tools/model/item_value.h>
#include <tools/text/keyed_hash.h>

namespace quorvan::tool {

struct Repartition {
  Coordinates start;
  Coordinates end;
  Coordinates axis;
  std::vector<double> top;
  std::vector<double> bottom;
  std::vector<double> positions;
  std::string className;  // of the repeated bar
  std::int64_t index = 0;
  std::int64_t viewPoint = 0;
  bool isHidden = false;

  /// How many bars it has.
  [[nodiscard]] std::size_t number() const noexcept {
    return top.empty() ? positions.size() : top.size();
  }
  /// Whether it lies along a line of its own: straight bars seen in view 1 have none.
  [[nodiscard]] bool hasLine() const noexcept { return positions.size() + 1 == top.size(); }
  /// The distances from each bar to the next. A series without a line of its own gives its spacing
  /// with every bar.
  [[nodiscard]] std::vector<double> spacings() const;
};

Repartition toRepartition(const std::vector<ItemValue>& items);

/// The spacings in words: "200", "200, 150", "3 x 200, 150, 2 x 200"; those that differ by less
/// than a thousandth count as equal. A long list ends in "...".
std::string spacingText(const std::vector<double>& spacings);

/// Finds elements by class name and "index" attribute.
class ElementIndex {
 public:
  explicit ElementIndex(const TransferFile& file);

  /// The first element of the class with that index; null without one.
  [[nodiscard]] const Element* find(std::string_view className, std::int64_t index) const;

 private:
  struct Entry {
    std::int64_t index;
    const Element* element;
  };

  // By ascending index.
  std::unordered_map<std::string_view, std::vector<Entry>, KeyedHash> m_classes;
};

}  // namespace quorvan::tool
