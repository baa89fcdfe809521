#include <algorithm>
#include <filesystem>
#include <map>

#include <tools/check/report.h>
#include <tools/console/terminal.h>
#include <tools/text/json_text.h>

namespace quorvan::tool {

namespace {

constexpr const char* kSchema = "https://json.schemastore.org/sarif-2.1.0.json";

bool isUnreserved(char one) {
  return (one >= 'a' && one <= 'z') || (one >= 'A' && one <= 'Z') || (one >= '0' && one <= '9') ||
         one == '-' || one == '.' || one == '_' || one == '~' || one == '/';
}

// The rules that results or notifications name, by number; a result says the place of its own.
class RuleList {
 public:
  explicit RuleList(const std::vector<FileFindings>& results) {
    for (const FileFindings& result : results) {
      for (const Finding& finding : result.findings) {
        m_places.emplace(finding.kind->number, Rule{finding.kind});
      }
      for (const NotChecked& one : result.notChecked.value_or(std::vector<NotChecked>())) {
        m_places.emplace(one.kind->number, Rule{one.kind});
      }
    }
    std::size_t place = 0;
    for (auto& [number, rule] : m_places) {
      rule.place = place++;
    }
  }

  [[nodiscard]] std::size_t placeOf(const FindingKind& kind) const {
    return m_places.at(kind.number).place;
  }
  [[nodiscard]] Json toJson() const {
    Json rules = Json::array();
    for (const auto& [number, rule] : m_places) {
      rules.push_back({{"id", std::to_string(number)},
                       {"shortDescription", {{"text", rule.kind->title}}},
                       {"help", {{"text", rule.kind->remedy}}},
                       {"defaultConfiguration", {{"level", severityName(rule.kind->severity)}}}});
    }
    return rules;
  }

 private:
  struct Rule {
    const FindingKind* kind;
    std::size_t place = 0;
  };

  std::map<int, Rule> m_places;
};

std::string messageOf(const Finding& finding) {
  return std::string(finding.kind->title) + ": found " +
         (finding.found.empty() ? "nothing" : finding.found) + "; expected " + finding.expected +
         ". To mend: " + std::string(finding.remedy()) + '.';
}

Json locationOf(const std::string& file, const Finding& finding) {
  Json location = {{"physicalLocation", {{"artifactLocation", {{"uri", uriOf(file)}}}}}};
  if (finding.position.line != 0) {
    location["physicalLocation"]["region"] = {{"startLine", finding.position.line},
                                              {"startColumn", finding.position.column}};
  }
  if (!finding.className.empty()) {
    std::string name = finding.className + (finding.index.empty() ? "" : ' ' + finding.index);
    name += finding.item.empty() ? "" : ", " + finding.item;
    location["logicalLocations"] = Json::array({{{"fullyQualifiedName", name}}});
  }
  return location;
}

Json toSarifResult(const std::string& file, const Finding& finding, const RuleList& rules) {
  return {{"ruleId", std::to_string(finding.kind->number)},
          {"ruleIndex", rules.placeOf(*finding.kind)},
          {"level", severityName(finding.kind->severity)},
          {"message", {{"text", messageOf(finding)}}},
          {"locations", Json::array({locationOf(file, finding)})}};
}

Json notificationOf(const std::string& file, const NotChecked& one, const RuleList& rules) {
  return {
      {"level", "note"},
      {"message", {{"text", "not checked: " + std::string(one.kind->title) + ": " + one.reason}}},
      {"associatedRule",
       {{"id", std::to_string(one.kind->number)}, {"index", rules.placeOf(*one.kind)}}},
      {"locations",
       Json::array({{{"physicalLocation", {{"artifactLocation", {{"uri", uriOf(file)}}}}}}})}};
}

}  // namespace

std::string uriOf(const std::string& file) {
  constexpr const char* kDigits = "0123456789ABCDEF";
  constexpr bool isWindows = std::filesystem::path::preferred_separator == '\\';
  constexpr unsigned kDigitBits = 4;
  const bool isAbsolute = toPath(file).is_absolute();
  std::string uri = isAbsolute ? "file://" : "";
  if (isAbsolute && !file.starts_with('/') && !file.starts_with('\\')) {
    uri += '/';  // before the letter of a drive
  }
  for (const char one : file) {
    const auto byte = static_cast<unsigned char>(one);
    if (isUnreserved(one) || (one == ':' && isAbsolute)) {
      uri += one;
    } else if (isWindows && one == '\\') {
      uri += '/';
    } else {
      uri.append(1, '%').append(1, kDigits[byte >> kDigitBits]).append(1, kDigits[byte & 0xFU]);
    }
  }
  return uri;
}

void writeFindingsSarif(const std::vector<FileFindings>& results, std::ostream& out) {
  const RuleList rules(results);
  Json found = Json::array();
  Json notifications = Json::array();
  for (const FileFindings& result : results) {
    for (const Finding& finding : result.findings) {
      found.push_back(toSarifResult(result.file, finding, rules));
    }
    for (const NotChecked& one : result.notChecked.value_or(std::vector<NotChecked>())) {
      notifications.push_back(notificationOf(result.file, one, rules));
    }
  }
  const Json driver = {{"name", "quorvan check"},
                       {"version", QUORVAN_VERSION},
                       {"semanticVersion", QUORVAN_VERSION},
                       {"rules", rules.toJson()}};
  const Json invocation = {{"executionSuccessful", true},
                           {"toolExecutionNotifications", std::move(notifications)}};
  const Json run = {{"tool", {{"driver", driver}}},
                    {"columnKind", "unicodeCodePoints"},
                    {"invocations", Json::array({invocation})},
                    {"results", std::move(found)}};
  out << indentedJson({{"$schema", kSchema}, {"version", "2.1.0"}, {"runs", Json::array({run})}});
}

}  // namespace quorvan::tool
