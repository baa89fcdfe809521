// Reads the attributes of items, as the library does, and tells what is wrong with them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <tools/files/document_tree.h>
#include <tools/model/item_problem.h>
#include <tools/model/item_value.h>

namespace quorvan::tool {

/// Which values count: those that readers find, or those that were filed. Readers find no entry of
/// a list that is longer than its size can say, and 0 for a number without digits.
enum class Values : std::uint8_t { kAsRead, kAsFiled };

/// The name in quotation marks.
std::string quoted(std::string_view name);

/// The attribute as it stands in a file.
std::string quoted(std::string_view name, std::string_view value);

class AttributeReader {
 public:
  /// What is wrong is appended to `problems` unless it is null.
  AttributeReader(const DocumentTree& tree, Values values, std::vector<ItemProblem>* problems)
      : m_tree(tree), m_values(values), m_problems(problems) {}

  [[nodiscard]] const DocumentTree& tree() const noexcept { return m_tree; }
  [[nodiscard]] Values values() const noexcept { return m_values; }
  [[nodiscard]] bool reports() const noexcept { return m_problems != nullptr; }

  void report(ProblemKind kind, const Node* at, std::string_view item, std::string found,
              std::string expected, std::optional<AttributeMend> mend = std::nullopt);

  // A value whose attribute is missing keeps what it holds.
  void readDouble(const Node& node, std::string_view attribute, double& value);
  void readLong(const Node& node, std::string_view attribute, std::int64_t& value);
  /// The number of a list's entries; `mend` puts right what is wrong with it, if that is certain.
  void readCount(const Node& node, std::string_view attribute, std::optional<AttributeMend> mend,
                 std::int64_t& count);
  void readFlag(const Node& node, bool& value);
  void readString(const Node& node, std::string& value);
  void readAdherence(const Node& node, std::string& value);
  void readPoint(const Node& node, Coordinates& point);

 private:
  std::optional<std::string_view> text(const Node& node, std::string_view attribute,
                                       RightText right);
  void reportNoAttribute(const Node& node, std::string_view attribute, RightText right);
  void reportNumber(const Node& node, std::string_view attribute, std::string_view text,
                    bool isNumber, RightText right, const char* expected);
  bool readOrdered(const Node& node, Coordinates& point) const;

  const DocumentTree& m_tree;
  Values m_values;
  std::vector<ItemProblem>* m_problems;
  // While the count of a list is read: what puts it right, if that is certain.
  std::optional<std::optional<AttributeMend>> m_count;
};

}  // namespace quorvan::tool
