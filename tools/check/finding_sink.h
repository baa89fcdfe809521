// Where the rules put what they find.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <tools/check/finding.h>
#include <tools/files/transfer_file.h>

namespace quorvan::tool {

class FindingSink {
 public:
  FindingSink(const TransferFile& file, std::vector<Finding>& findings)
      : m_file(file), m_findings(findings) {}

  /// About an element or, with `at`, a node in it.
  void add(const FindingKind& kind, const Element& element, std::string_view item,
           std::string found, std::string expected, const Node* at = nullptr, Mend mend = {}) {
    const Node& node = at == nullptr ? *element.node : *at;
    const Position position = m_file.tree().position(node);
    mend.place = position;
    m_findings.push_back({&kind, position, std::string(element.className()),
                          std::string(m_file.indexOf(element)), std::string(item), std::move(found),
                          std::move(expected), std::move(mend)});
  }

  /// About the file as a whole.
  void add(const FindingKind& kind, Position position, std::string found, std::string expected,
           Mend mend = {}) {
    mend.place = position;
    m_findings.push_back(
        {&kind, position, {}, {}, {}, std::move(found), std::move(expected), std::move(mend)});
  }

  /// About a node that nobody reads.
  void add(const FindingKind& kind, const StrayNode& node, std::string expected, Mend mend) {
    mend.place = node.position;
    m_findings.push_back({&kind,
                          node.position,
                          node.className,
                          {},
                          node.item,
                          '"' + node.text + '"',
                          std::move(expected),
                          std::move(mend)});
  }

 private:
  const TransferFile& m_file;
  std::vector<Finding>& m_findings;
};

/// "CKtZantoLine 3".
inline std::string nameOf(const TransferFile& file, const Element& element) {
  return std::string(element.className()) + ' ' + std::string(file.indexOf(element));
}

}  // namespace quorvan::tool
