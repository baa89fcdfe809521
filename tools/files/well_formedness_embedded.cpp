#include <algorithm>
#include <limits>

#include <quorvan/xml/dom.h>
#include <quorvan/xml/values.h>

#include <tools/files/well_formedness.h>

namespace quorvan::tool {

namespace {

std::uint32_t bounded(std::uint64_t number) {
  return static_cast<std::uint32_t>(
      std::min<std::uint64_t>(number, std::numeric_limits<std::uint32_t>::max()));
}

}  // namespace

Refusal findRefusal(const std::filesystem::path& path, const std::string& /*bytes*/) {
  IXMLDOMDocumentPtr document;
  dom::LoadProblem problem;
  if (dom::createDocument(document) >= 0) {
    dom::load(document, CString(path.c_str()), problem);
  }
  return {{bounded(problem.line), bounded(problem.column)},
          problem.reason.empty() ? "the document service refuses it" : problem.reason};
}

}  // namespace quorvan::tool
