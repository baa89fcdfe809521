// The description of the file format lists the classes, their items in order and their types as the
// item tables have them.

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <tests/support/saved_file.h>
#include <tests/support/test_data.h>
#include <quorvan/elements/element_classes.h>

namespace quorvan::test {
namespace {

std::string typeOf(const items::ItemSchema& item) {
  const std::string entries = " `" + std::string(item.stem) + "1` \u2026";
  switch (item.kind) {
    case items::Kind::kPoint:
      return "point";
    case items::Kind::kVector:
      return "vector";
    case items::Kind::kDouble:
      return "double";
    case items::Kind::kLong:
      return "long";
    case items::Kind::kColor:
      return "colour";
    case items::Kind::kString:
      return "string";
    case items::Kind::kFlag:
      return "flag";
    case items::Kind::kNumericFlag:
      return "side";
    case items::Kind::kAdherence:
      return "adherence";
    case items::Kind::kPointList:
      return "points" + entries;
    case items::Kind::kSegmentList:
      return "segments" + entries;
    case items::Kind::kDoubleList:
      return "doubles" + entries;
    case items::Kind::kNumberedPoints:
      return "numbered points" + entries;
  }
  return {};
}

/// A row of a table: the name of an item, its type and whether it may be missing.
struct Row {
  std::string name;
  std::string type;
  bool optional;

  bool operator==(const Row&) const = default;
};

void PrintTo(const Row& row, std::ostream* out) {
  *out << row.name << " | " << row.type << (row.optional ? " | optional" : "");
}

std::vector<std::string> cells(const std::string& line) {
  std::vector<std::string> found;
  std::istringstream text(line.substr(1));
  for (std::string cell; std::getline(text, cell, '|');) {
    const std::size_t first = cell.find_first_not_of(' ');
    found.push_back(first == std::string::npos
                        ? ""
                        : cell.substr(first, cell.find_last_not_of(' ') - first + 1));
  }
  return found;
}

// The rows of the table below the heading.
std::vector<Row> tableBelow(const std::string& document, const std::string& heading) {
  std::vector<Row> rows;
  const std::size_t at = document.find("\n### " + heading + "\n");
  if (at == std::string::npos) {
    return rows;
  }
  std::istringstream text(document.substr(at + heading.size() + 6));
  for (std::string line; std::getline(text, line) && !line.starts_with('#');) {
    if (!line.starts_with("| ") || line == "| item | type | |") {
      continue;
    }
    const auto cell = cells(line);
    if (cell.at(0) == "bar attributes") {
      const auto attributes = tableBelow(document, "Bar attributes");
      rows.insert(rows.end(), attributes.begin(), attributes.end());
    } else {
      rows.push_back({cell.at(0), cell.at(1), cell.at(2).starts_with("optional")});
    }
  }
  return rows;
}

const std::string& document() {
  static const std::string text = fileBytes(quorvan::test::dataPath("../docs/format.md"));
  return text;
}

TEST(FormatDocument, ListsTheItemsOfEveryClassInTheirOrder) {
  for (const items::ElementSchema& element : items::allElements()) {
    std::vector<Row> expected;
    for (const items::ItemSchema& item : element.items) {
      expected.push_back({std::string(item.name), typeOf(item), item.optional});
    }
    EXPECT_EQ(tableBelow(document(), std::string(element.className)), expected)
        << element.className;
  }
}

TEST(FormatDocument, ListsNoOtherClass) {
  std::size_t classes = 0;
  for (std::size_t at = document().find("\n### CKt"); at != std::string::npos;
       at = document().find("\n### CKt", at + 1)) {
    ++classes;
  }
  EXPECT_EQ(classes, items::allElements().size());
}

}  // namespace
}  // namespace quorvan::test
