#include <tools/repair/source_edits.h>

#include <optional>
#include <string>

#include <quorvan/filer/vocabulary.h>

#include <tools/model/item_reader.h>
#include <tools/model/item_text.h>
#include <tools/repair/element_plan.h>

namespace quorvan::tool {

namespace {

// What gives the attribute the number; nothing where it has it already.
std::optional<AttributeMend> mendNumber(std::optional<std::string_view> text,
                                        std::string_view attribute, std::int64_t number) {
  if (text && exactLong(*text) == number) {
    return std::nullopt;
  }
  return AttributeMend{text ? std::string(attribute) : std::string(), std::string(attribute),
                       std::to_string(number)};
}

// What lets a repartition refer to its bar under the new index.
std::optional<AttributeMend> mendReference(const DocumentTree& tree,
                                           const std::vector<ItemValue>& items,
                                           const ElementPlan& plan) {
  const Repartition series = toRepartition(items);
  const ItemValue* const index = findItem(items, "Index");
  const auto text = index == nullptr || index->isMissing()
                        ? std::nullopt
                        : tree.attribute(*index->node, filer::kLongKind.text());
  const std::int64_t reference = plan.newReference(series.className, series.index);
  if (!text || reference == series.index) {
    return std::nullopt;
  }
  return mendNumber(text, filer::kLongKind.text(), reference);
}

}  // namespace

SourceEdits::SourceEdits(const TransferFile& file, const std::vector<Finding>& findings) {
  for (const Finding& finding : findings) {
    switch (finding.mend.kind) {
      case Mend::Kind::kRemove:
      case Mend::Kind::kLeaveOut:
        edit(finding.mend.place).isRemoved = true;
        break;
      case Mend::Kind::kSetAttribute:
        edit(finding.mend.place).attributes.push_back(finding.mend.attribute);
        break;
      case Mend::Kind::kRenameRoot:
        m_renamesRoot = true;
        break;
      case Mend::Kind::kAddControl:
        m_addsControl = true;
        break;
      case Mend::Kind::kNone:
      case Mend::Kind::kReplaceCharacter:  // is done before, in the text
      case Mend::Kind::kNumber:            // is done below, to whole classes
        break;
    }
  }
  number(file, findings);
}

const SourceEdit* SourceEdits::at(Position place) const {
  const auto found = m_edits.find({place.line, place.column});
  return found == m_edits.end() ? nullptr : &found->second;
}

void SourceEdits::number(const TransferFile& file, const std::vector<Finding>& findings) {
  const ElementPlan plan(file, findings);
  ItemReader reader(file);
  for (const Element& element : file.elements()) {
    if (plan.isLeftOut(element)) {
      continue;
    }
    if (plan.isNumbered(element.className())) {
      const auto text = file.tree().attribute(*element.node, filer::kIndexName.text());
      if (auto mend = mendNumber(text, filer::kIndexName.text(), plan.newIndex(element))) {
        edit(file.tree().position(*element.node)).attributes.push_back(*std::move(mend));
      }
    }
    if (element.is(items::ElementClass::kRepartition)) {
      const std::vector<ItemValue>& items = reader.read(element);
      if (auto mend = mendReference(file.tree(), items, plan)) {
        edit(file.tree().position(*findItem(items, "Index")->node))
            .attributes.push_back(*std::move(mend));
      }
    }
  }
}

}  // namespace quorvan::tool
