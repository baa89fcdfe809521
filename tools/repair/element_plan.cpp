#include <tools/repair/element_plan.h>

#include <string>

#include <tools/check/rules.h>
#include <tools/model/item_reader.h>

namespace quorvan::tool {

ElementPlan::ElementPlan(const TransferFile& file)
    : m_index(file), m_newIndexes(file.elements().size()) {
  leaveOutEqualHiddenBars(file);
  number(file);
}

std::int64_t ElementPlan::newReference(std::string_view className, std::int64_t index) const {
  const Element* target = m_index.find(className, index);
  if (target == nullptr) {
    return index;
  }
  if (const auto equal = m_equals.find(target); equal != m_equals.end()) {
    target = equal->second;
  }
  return newIndex(*target);
}

void ElementPlan::leaveOutEqualHiddenBars(const TransferFile& file) {
  std::unordered_map<std::string, const Element*> seen;
  ItemReader reader(file);
  for (const Element& element : file.elements()) {
    const auto shape = barShapeOf(element);
    if (!shape || *shape == BarShape::kPoint || !toBar(*shape, reader.read(element)).isHidden) {
      continue;
    }
    const auto [known, isNew] = seen.emplace(comparedTexts(file.tree(), element), &element);
    if (!isNew) {
      m_equals.emplace(&element, known->second);
    }
  }
}

void ElementPlan::number(const TransferFile& file) {
  std::unordered_map<std::string_view, std::int32_t> counts;
  for (const Element& element : file.elements()) {
    if (!m_equals.contains(&element)) {
      m_newIndexes[element.place] = ++counts[element.className()];
    }
  }
}

}  // namespace quorvan::tool
