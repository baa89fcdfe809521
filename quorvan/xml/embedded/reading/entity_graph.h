// Which entities stand in the text of which.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace quorvan::embedded {

/// Knows at each declaration how deep entities are nested by then, and at the end which of them
/// come to nothing because one in their text is not declared. Takes time in proportion to the texts
/// and memory to the references in them.
class EntityGraph {
 public:
  /// Takes in the first declaration of an entity: a general one, whose text refers to others as
  /// "&name;", or a parameter entity, whose text does as "%name;". False when one is nested deeper
  /// than kMaxEntityNesting now, as one that contains itself is; then nothing may follow.
  bool declareGeneral(std::string_view name, std::string_view text) {
    return declare('&', name, text);
  }
  bool declareParameter(std::string_view name, std::string_view text) {
    return declare('%', name, text);
  }

  /// To be called once, behind the last declaration.
  void finish();

  /// Whether the general entity is declared, and all that it is made of. After finish().
  [[nodiscard]] bool isWhole(std::string_view name) const;

 private:
  struct Entity {
    unsigned nesting = 0;  // 0 while it is not declared
    bool isWhole = true;
    std::vector<std::uint32_t> users;  // in whose text it stands
  };

  bool declare(char mark, std::string_view name, std::string_view text);
  std::uint32_t numberOf(char mark, std::string_view name);
  bool raiseNesting(std::uint32_t first, unsigned nesting);

  std::map<std::string, std::uint32_t, std::less<>> m_numbers;  // by mark and name
  std::vector<Entity> m_entities;
};

}  // namespace quorvan::embedded
