// Where the rules of detailing put what they find, and what they leave out.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include <tools/check/finding_sink.h>
#include <tools/model/item_value.h>
#include <tools/text/keyed_hash.h>

namespace quorvan::tool {

/// A bar or series that a rule looks at.
struct Subject {
  const Element& element;
  const std::vector<ItemValue>& items;
  std::int64_t mark;
};

class BreachSink {
 public:
  explicit BreachSink(const TransferFile& file) : m_sink(file, m_findings) {}

  /// The same of another bar of a mark counts with the first.
  void add(const FindingKind& kind, const Subject& subject, std::string_view item,
           std::string found, std::string expected, Breach breach);

  /// What could not be held against the rule, and why. The same reason counts once, with the
  /// number of times where `isCounted`.
  void leaveOut(const FindingKind& kind, const std::string& reason, bool isCounted = false);

  [[nodiscard]] std::vector<Finding> takeFindings();
  [[nodiscard]] std::vector<NotChecked> notChecked() const;

 private:
  struct Omission {
    const FindingKind* kind;
    std::size_t count;
  };
  struct Repetition {
    std::size_t place;
    std::int64_t mark;
    std::size_t more;
  };

  std::vector<Finding> m_findings;
  FindingSink m_sink;
  std::unordered_map<std::string, Repetition, KeyedHash> m_known;
  std::map<std::pair<int, std::string>, Omission> m_omissions;
};

/// "12.5 mm".
std::string inMillimetres(double length);

}  // namespace quorvan::tool
