#include <tools/repair/element_plan.h>

namespace quorvan::tool {

namespace {

constexpr std::int64_t kNoBar = -1;

std::int32_t filedIndex(std::uint32_t number) {
  return static_cast<std::int16_t>(static_cast<std::uint16_t>(number));
}

}  // namespace

ElementPlan::ElementPlan(const TransferFile& file, const std::vector<Finding>& findings)
    : m_index(file), m_newIndexes(file.elements().size()) {
  for (const Finding& finding : findings) {
    if (finding.mend.kind == Mend::Kind::kLeaveOut) {
      m_equals.emplace(finding.mend.element, finding.mend.equal);
    } else if (finding.mend.kind != Mend::Kind::kNumber) {
      continue;
    }
    m_numbered.emplace(finding.mend.element->className());
  }
  number(file);
}

std::int64_t ElementPlan::newReference(std::string_view className, std::int64_t index) const {
  if (!isNumbered(className)) {
    return index;
  }
  const Element* target = m_index.find(className, index);
  if (target == nullptr) {
    return isTaken(className, index) ? kNoBar : index;
  }
  if (const auto equal = m_equals.find(target); equal != m_equals.end()) {
    target = equal->second;
  }
  return newIndex(*target);
}

void ElementPlan::number(const TransferFile& file) {
  for (const Element& element : file.elements()) {
    if (isNumbered(element.className()) && !isLeftOut(element)) {
      m_newIndexes[element.place] = filedIndex(++m_counts[element.className()]);
    }
  }
}

bool ElementPlan::isTaken(std::string_view className, std::int64_t index) const {
  const auto counted = m_counts.find(className);
  const std::int64_t count = counted == m_counts.end() ? 0 : counted->second;
  if (index < -32768 || index > 32767) {
    return false;
  }
  return count > 65535 || (index > 0 && index <= count) || (index <= 0 && index + 65536 <= count);
}

}  // namespace quorvan::tool
