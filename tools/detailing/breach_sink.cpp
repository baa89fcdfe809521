#include <tools/detailing/breach_sink.h>

#include <tools/text/number_text.h>

namespace quorvan::tool {

void BreachSink::add(const FindingKind& kind, const Subject& subject, std::string_view item,
                     std::string found, std::string expected, Breach breach) {
  const std::string key = std::to_string(kind.number) + ' ' + std::to_string(subject.mark) + ' ' +
                          std::string(item) + ' ' + found + ' ' + expected;
  const auto [known, isNew] = m_known.emplace(key, Repetition{m_findings.size(), subject.mark, 0});
  if (!isNew) {
    ++known->second.more;
    return;
  }
  m_sink.add(kind, subject.element, item, std::move(found), std::move(expected),
             nodeOf(subject.items, item));
  m_findings.back().breach = std::move(breach);
}

void BreachSink::leaveOut(const FindingKind& kind, const std::string& reason, bool isCounted) {
  Omission& omission =
      m_omissions.try_emplace({kind.number, reason}, Omission{&kind, 0}).first->second;
  omission.count += isCounted ? 1U : 0U;
}

std::vector<Finding> BreachSink::takeFindings() {
  for (const auto& [key, repetition] : m_known) {
    if (repetition.more != 0) {
      m_findings[repetition.place].found += "; so with " + std::to_string(repetition.more) +
                                            " more of mark " + std::to_string(repetition.mark);
    }
  }
  m_known.clear();
  sortByPlace(m_findings);
  return std::move(m_findings);
}

std::vector<NotChecked> BreachSink::notChecked() const {
  std::vector<NotChecked> all;
  for (const auto& [key, omission] : m_omissions) {
    all.push_back({omission.kind,
                   (omission.count == 0 ? "" : std::to_string(omission.count) + ' ') + key.second});
  }
  return all;
}

std::string inMillimetres(double length) {
  return rounded(length, 1) + " mm";
}

}  // namespace quorvan::tool
