#include <cmath>

#include <tools/check/report.h>
#include <tools/text/json_text.h>

namespace quorvan::tool {

namespace {

// In thousandths: what is reckoned has no more to say.
double numberIn(double value) {
  constexpr double kSteps = 1000.0;
  return std::round(value * kSteps) / kSteps;
}

Json toJson(const Finding& finding, std::size_t number) {
  const bool isPlaced = finding.position.line != 0;
  Json json = {{"number", number},
               {"code", finding.kind->number},
               {"severity", severityName(finding.kind->severity)},
               {"title", finding.kind->title},
               {"line", isPlaced ? Json(finding.position.line) : Json()},
               {"column", isPlaced ? Json(finding.position.column) : Json()},
               {"class", finding.className},
               {"index", finding.index},
               {"item", finding.item},
               {"found", finding.found},
               {"expected", finding.expected},
               {"remedy", finding.remedy()},
               {"repairable", finding.isRepairable()}};
  if (finding.breach) {
    json["clause"] = finding.breach->clause;
    json["value"] = numberIn(finding.breach->value);
    json["limit"] = numberIn(finding.breach->limit);
  }
  return json;
}

Json toJson(const FileFindings& result) {
  Json findings = Json::array();
  for (const Finding& finding : result.findings) {
    findings.push_back(toJson(finding, findings.size() + 1));
  }
  Json json = {{"file", result.file},
               {"errors", result.count(Severity::kError)},
               {"warnings", result.count(Severity::kWarning)},
               {"notes", result.count(Severity::kNote)},
               {"findings", std::move(findings)}};
  if (result.notChecked) {
    json["notChecked"] = Json::array();
    for (const NotChecked& one : *result.notChecked) {
      json["notChecked"].push_back(
          {{"code", one.kind->number}, {"title", one.kind->title}, {"reason", one.reason}});
    }
  }
  return json;
}

}  // namespace

void writeFindingsJson(const std::vector<FileFindings>& results, std::ostream& out) {
  Json files = Json::array();
  for (const FileFindings& result : results) {
    files.push_back(toJson(result));
  }
  out << indentedJson({{"files", std::move(files)}});
}

}  // namespace quorvan::tool
