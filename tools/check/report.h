// How findings are told: in words, as JSON, as SARIF.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include <tools/check/finding.h>

namespace quorvan::tool {

/// The findings of one file, and how many there are of each severity.
void printFindings(const FileFindings& result, std::ostream& out);

/// After docs/schema/check.schema.json.
void writeFindingsJson(const std::vector<FileFindings>& results, std::ostream& out);

/// One run of SARIF 2.1.0, for what collects the findings of many programs. Columns count
/// characters. Rules that were not checked are notifications of the run.
void writeFindingsSarif(const std::vector<FileFindings>& results, std::ostream& out);

/// A file name as the reference that a URI is: a relative one stays relative.
std::string uriOf(const std::string& file);

}  // namespace quorvan::tool
