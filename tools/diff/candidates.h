// Finds the elements of a drawing that one of another may correspond to.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include <tools/model/item_value.h>

namespace quorvan::tool {

/// Elements, by their places in a file, under a text and a point in space. Looking one up costs
/// the same however many there are: at most kMostLooks of those near the point are looked at.
class Candidates {
 public:
  static constexpr std::size_t kMostLooks = 64;

  /// Points within `tolerance` of each other find each other.
  explicit Candidates(double tolerance);

  void add(const std::string& text, const Coordinates& point, std::uint32_t place);

  /// Calls `look` with the places under the text and near the point that `isFree`, until it returns
  /// true or there are no more.
  template <class IsFree, class Look>
  void visit(const std::string& text, const Coordinates& point, const IsFree& isFree,
             const Look& look) {
    for (const std::uint64_t key : keysNear(text, point)) {
      const auto found = m_places.find(key);
      if (found == m_places.end()) {
        continue;
      }
      List& list = found->second;
      // Those at the front that were taken are never looked at again.
      while (list.first < list.places.size() && !isFree(list.places[list.first])) {
        ++list.first;
      }
      std::size_t looks = 0;
      for (std::size_t i = list.first; i < list.places.size() && looks < kMostLooks; ++i) {
        if (!isFree(list.places[i])) {
          continue;
        }
        ++looks;
        if (look(list.places[i])) {
          return;
        }
      }
    }
  }

 private:
  struct List {
    std::size_t first = 0;
    std::vector<std::uint32_t> places;
  };

  [[nodiscard]] std::uint64_t keyOf(std::uint64_t text, double x, double y, double z) const;
  [[nodiscard]] std::vector<std::uint64_t> keysNear(const std::string& text,
                                                    const Coordinates& point) const;

  double m_tolerance;
  double m_cell;
  std::unordered_map<std::uint64_t, List> m_places;
};

}  // namespace quorvan::tool
