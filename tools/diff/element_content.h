// What elements are compared by.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <tools/model/item_reader.h>
#include <tools/model/repeated_bars.h>

namespace quorvan::tool {

/// The content of one element.
struct Content {
  std::string discrete;             // class, texts, whole numbers, flags, lengths of lists
  std::vector<double> numbers;      // all others but the points
  std::vector<Coordinates> points;  // what moves with the element
};

/// Reads contents from one file.
class ContentReader {
 public:
  explicit ContentReader(const TransferFile& file) : m_reader(file), m_repeated(file) {}

  /// Valid until the next call.
  const Content& read(const Element& element);

  using Texts = std::vector<std::pair<std::string, std::string>>;

  /// The items as people read them. A repartition has what it repeats in words in the place of its
  /// index, and first of all its number, spacing and length.
  Texts texts(const Element& element);

  /// What a repartition repeats, by class and mark; empty where the bar is not there.
  std::string repeatedMark(const Element& series);

  /// The items of an element; valid until the next call of any function.
  const std::vector<ItemValue>& items(const Element& element) { return m_reader.read(element); }

 private:
  void add(const ItemValue& item);
  void addSeriesTexts(const std::vector<ItemValue>& items, Texts& texts);
  [[nodiscard]] std::string repeatedBar(const std::vector<ItemValue>& items);

  ItemReader m_reader;
  RepeatedBars m_repeated;
  Content m_content;
};

/// Whether the contents are equal but for `tolerance`.
bool areEqual(const Content& a, const Content& b, double tolerance);

/// Whether they are equal but for `tolerance` once the points of `a` are moved by one vector, which
/// is stored in `by`. False for elements without points.
bool areMoved(const Content& a, const Content& b, double tolerance, Coordinates& by);

}  // namespace quorvan::tool
