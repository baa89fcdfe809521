// How this program lays JSON out.
#pragma once

#include <ostream>
#include <string>
#include <string_view>

#include <nlohmann/json.hpp>

namespace quorvan::tool {

using Json = nlohmann::ordered_json;

/// On one line, with a blank behind colons and commas; numbers as short as they go.
std::string inlineJson(const Json& value);

/// Writes one object as indentedJson() would, without having the whole of it in memory: the values
/// one after the other, those of a list entry by entry.
class JsonStream {
 public:
  explicit JsonStream(std::ostream& out) : m_out(out) {}

  void add(std::string_view key, const Json& value);

  void beginList(std::string_view key);
  /// An object.
  void addEntry(const Json& entry);
  void endList();

  /// Ends the object, and the line.
  void end();

 private:
  void beginValue(std::string_view key);

  std::ostream& m_out;
  std::string m_text;
  bool m_isFirst = true;
  bool m_isFirstEntry = true;
};

/// Indented; arrays of plain values stand on one line, and so do short objects that hold no other.
/// Ends with a line end.
std::string indentedJson(const Json& value);

}  // namespace quorvan::tool
