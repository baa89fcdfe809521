// The class map of a filer: how many class elements there are of each name.
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <utility>

namespace quorvan::dom {
class Name;
}

namespace quorvan::filer {

/// Counts by class name. A name that was asked for lately is found again without a search.
class ClassCounts {
 public:
  ClassCounts() = default;
  ClassCounts(const ClassCounts& other) : m_counts(other.m_counts) {}
  ClassCounts(ClassCounts&& other) noexcept { swap(other); }
  ClassCounts& operator=(ClassCounts other) noexcept {
    swap(other);
    return *this;
  }
  ~ClassCounts() = default;

  /// The count of that name; null when it has none.
  int* find(const dom::Name& name) noexcept;
  /// Adds to the count of that name, which begins at 0, and returns the sum.
  int add(const dom::Name& name, int change);

  /// Adds all counts of the other.
  void add(const ClassCounts& other);

  void clear() noexcept;
  void swap(ClassCounts& other) noexcept {
    m_counts.swap(other.m_counts);
    m_recent.swap(other.m_recent);
  }

 private:
  using Counts = std::map<std::string, int, std::less<>>;  // by name, as UTF-8

  Counts m_counts;
  std::array<Counts::value_type*, 16> m_recent = {};  // by the name's hash
};

}  // namespace quorvan::filer
