#include <tools/diff/difference_text.h>

#include <algorithm>

#include <tools/model/class_names.h>
#include <tools/model/description.h>
#include <tools/text/table.h>

namespace quorvan::tool {

namespace {

bool hasPlace(const Element& element) {
  return element.schema != nullptr && !element.is(items::ElementClass::kDrawingControl);
}

}  // namespace

std::vector<DifferenceGroup> groupsOf(const std::vector<Difference>& differences) {
  std::map<std::string, DifferenceGroup> moved;
  for (const Difference& one : differences) {
    if (one.kind == DifferenceKind::kMoved) {
      moved[placeText(one.by)].push_back(&one);
    }
  }
  std::vector<DifferenceGroup> groups;
  for (const Difference& one : differences) {
    const auto together =
        one.kind == DifferenceKind::kMoved ? moved.find(placeText(one.by)) : moved.end();
    if (together == moved.end() || together->second.size() < kTogether) {
      groups.push_back({&one});
    } else if (together->second.front() == &one) {
      groups.push_back(together->second);
    }
  }
  return groups;
}

DifferenceTexts::DifferenceTexts(const TransferFile& before, const TransferFile& after)
    : m_before(before),
      m_after(after),
      m_old(before),
      m_new(after),
      m_placed(static_cast<std::size_t>(std::ranges::count_if(before.elements(), hasPlace))) {}

std::string DifferenceTexts::describe(const Difference& one) {
  const Element& element = one.before != nullptr ? *one.before : *one.after;
  if (element.schema == nullptr) {
    return std::string(element.className()) + " (not known)";
  }
  return tool::describe(element, one.before != nullptr ? m_old.read(element) : m_new.read(element));
}

std::string DifferenceTexts::source(const Difference& one) const {
  const auto name = [](const TransferFile& file, const Element& element) {
    return std::string(shortClassName(element.className())) + ' ' +
           std::string(file.indexOf(element));
  };
  if (one.before == nullptr) {
    return name(m_after, *one.after);
  }
  if (one.after == nullptr || m_before.indexOf(*one.before) == m_after.indexOf(*one.after)) {
    return name(m_before, *one.before);
  }
  return name(m_before, *one.before) + ", now " + std::string(m_after.indexOf(*one.after));
}

std::string DifferenceTexts::lineOf(const DifferenceGroup& group) {
  const Difference& first = *group.front();
  std::string line = std::string(differenceName(first.kind)) + ": ";
  if (group.size() == 1) {
    line += describe(first);
  } else {
    line += (group.size() == m_placed ? "everything, " : "") + std::to_string(group.size()) +
            " elements";
  }
  return first.kind == DifferenceKind::kMoved ? line + ", by " + placeText(first.by) : line;
}

std::string DifferenceTexts::classesOf(const DifferenceGroup& group) {
  std::map<std::string_view, std::size_t> classes;
  for (const Difference* const one : group) {
    ++classes[shortClassName(one->before->className())];
  }
  std::string text;
  for (const auto& [name, count] : classes) {
    text += (text.empty() ? "" : ", ") + std::to_string(count) + ' ' + std::string(name);
  }
  return text;
}

}  // namespace quorvan::tool
