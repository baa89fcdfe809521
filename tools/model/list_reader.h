// Reads the lists among the items of an element, as the library does.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include <quorvan/elements/items/item_schema.h>

#include <tools/files/document_tree.h>
#include <tools/model/attribute_reader.h>
#include <tools/model/item_value.h>

namespace quorvan::tool {

class ListEntries;

class ListReader {
 public:
  /// The lists of one element.
  ListReader(AttributeReader& attributes, const Node& element)
      : m_attributes(attributes), m_element(element) {}

  /// The entries of a list that is there, with what is wrong with it and with them.
  void read(const items::ItemSchema& schema, ItemValue& value);

 private:
  struct Announced;

  void checkCount(const Announced& list, const ListEntries& entries, const ListEntries* bulges);
  void readPoints(const ListEntries& entries, std::vector<Coordinates>& points);
  void readNumbers(const ListEntries& entries, std::vector<double>& numbers);
  void readSegments(const ListEntries& points, const ListEntries& bulges,
                    std::vector<Segment>& segments);

  AttributeReader& m_attributes;
  const Node& m_element;
};

}  // namespace quorvan::tool
