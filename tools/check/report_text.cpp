#include <tools/check/report.h>
#include <tools/text/counted_noun.h>
#include <tools/text/table.h>

namespace quorvan::tool {

namespace {

std::string placeOf(const std::string& file, const Finding& finding) {
  if (finding.position.line == 0) {
    return file;
  }
  return file + ':' + std::to_string(finding.position.line) + ':' +
         std::to_string(finding.position.column);
}

void print(const std::string& file, const Finding& finding, std::ostream& out) {
  out << printable(placeOf(file, finding)) << ": " << severityName(finding.kind->severity) << ' '
      << finding.kind->number << ": " << finding.kind->title;
  std::string subject = finding.className;
  if (!finding.index.empty()) {
    subject += ' ' + finding.index;
  }
  if (!finding.item.empty()) {
    subject += (subject.empty() ? "" : ", ") + finding.item;
  }
  if (!subject.empty()) {
    out << ": " << printable(subject);
  }
  out << "\n    found " << (finding.found.empty() ? "nothing" : printable(finding.found))
      << "; expected " << printable(finding.expected) << "\n    to mend: " << finding.remedy()
      << (finding.isRepairable() ? " [--repair]" : "") << '\n';
}

}  // namespace

void printFindings(const FileFindings& result, std::ostream& out) {
  for (const Finding& finding : result.findings) {
    print(result.file, finding, out);
  }
  for (const NotChecked& one : result.notChecked.value_or(std::vector<NotChecked>())) {
    out << printable(result.file) << ": not checked " << one.kind->number << " (" << one.kind->title
        << "): " << one.reason << '\n';
  }
  out << printable(result.file) << ": ";
  if (result.findings.empty()) {
    out << "no findings\n";
  } else {
    const auto all = [&result](Severity severity, std::string_view noun) {
      return counted(static_cast<std::uint64_t>(result.count(severity)), noun);
    };
    out << all(Severity::kError, "error") << ", " << all(Severity::kWarning, "warning") << ", "
        << all(Severity::kNote, "note") << '\n';
  }
}

}  // namespace quorvan::tool
