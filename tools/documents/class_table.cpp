// The element classes in the description of JSON.
#include <vector>

#include <quorvan/elements/bar_attribute_items.h>
#include <quorvan/elements/element_classes.h>

#include <tools/documents/drawing_documents.h>
#include <tools/model/bar.h>
#include <tools/model/item_value.h>

namespace quorvan::tool {

namespace {

struct ClassRow {
  std::string classes;
  std::string items;
};

std::string quoted(std::string_view name) {
  return '`' + std::string(name) + '`';
}

std::string itemsOf(const items::ElementSchema& element) {
  const std::size_t shared =
      barShapeOf(element.id).has_value() ? items::kBarAttributeSchemas.size() : 0;
  std::string names;
  for (const items::ItemSchema& item : element.items.first(element.items.size() - shared)) {
    names += (names.empty() ? "" : ", ") + quoted(displayName(item));
  }
  return names;
}

// Series and the record of the drawing have chapters of their own.
bool isFiledAsItIs(items::ElementClass id) {
  return id != items::ElementClass::kRepartition && id != items::ElementClass::kDrawingControl;
}

}  // namespace

std::string classTable() {
  std::vector<ClassRow> rows;
  for (const items::ElementSchema& element : items::allElements()) {
    if (!isFiledAsItIs(element.id)) {
      continue;
    }
    const std::string items = itemsOf(element);
    if (!rows.empty() && rows.back().items == items) {
      rows.back().classes += ", " + quoted(element.className);
    } else {
      rows.push_back({quoted(element.className), items});
    }
  }
  std::string table = "| class | items |\n|---|---|\n";
  for (const ClassRow& row : rows) {
    table.append("| ").append(row.classes).append(" | ").append(row.items).append(" |\n");
  }
  return table;
}

}  // namespace quorvan::tool
