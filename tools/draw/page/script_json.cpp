#include <tools/draw/page/script_json.h>

#include <algorithm>

namespace quorvan::tool {

std::string scriptJson(const Json& value) {
  std::string out;
  for (const char unit : inlineJson(value)) {
    if (unit == '<') {
      out += "\\u003c";
    } else if (unit == '>') {
      out += "\\u003e";
    } else if (unit == '&') {
      out += "\\u0026";
    } else {
      out += unit;
    }
  }
  return out;
}

void appendScriptText(std::string& out, const std::string& text) {
  const auto isPlain = [](char one) {
    return one >= ' ' && one <= '~' && one != '"' && one != '\\' && one != '<' && one != '>' &&
           one != '&';
  };
  if (std::all_of(text.begin(), text.end(), isPlain)) {
    out.append(1, '"').append(text).append(1, '"');
  } else {
    out += scriptJson(text);
  }
}

}  // namespace quorvan::tool
