#include <tools/text/json_text.h>

#include <algorithm>
#include <cmath>

#include <tools/text/number_text.h>
#include <tools/text/table.h>

namespace quorvan::tool {

namespace {

constexpr std::size_t kIndent = 2;
constexpr std::size_t kWidth = 100;

// A text in quotes. What could steer a terminal or turn its text is written out, and what is no
// UTF-8, which a file name may be, becomes U+FFFD.
std::string quotedText(const Json& value) {
  const std::string plain = value.dump(-1, ' ', false, Json::error_handler_t::replace);
  if (std::ranges::all_of(plain, [](char unit) { return unit >= ' ' && unit != '\x7F'; })) {
    return plain;
  }
  return printable(plain);
}

// A number that is no JSON number is the text that stands for it: "inf", "-inf" or "nan".
std::string numberText(const Json& value) {
  if (!value.is_number_float()) {
    return value.dump();
  }
  const double number = value.get<double>();
  if (std::isfinite(number) && (number != 0.0 || !std::signbit(number))) {
    return shortest(number);
  }
  return std::isfinite(number) ? value.dump() : '"' + shortest(number) + '"';  // "-0.0"
}

bool holdsObject(const Json& value) {
  return std::any_of(value.begin(), value.end(), [](const Json& entry) {
    return entry.is_object() || (entry.is_array() && holdsObject(entry));
  });
}

void appendInline(std::string& out, const Json& value) {
  if (value.is_number()) {
    out += numberText(value);
  } else if (value.is_array() || value.is_object()) {
    out += value.is_array() ? '[' : '{';
    bool isFirst = true;
    for (const auto& [key, entry] : value.items()) {
      out += isFirst ? "" : ", ";
      isFirst = false;
      if (value.is_object()) {
        out += quotedText(key) + ": ";
      }
      appendInline(out, entry);
    }
    out += value.is_array() ? ']' : '}';
  } else {
    out += quotedText(value);
  }
}

void appendIndented(std::string& out, const Json& value, std::size_t indent) {
  if (!value.is_structured() || !holdsObject(value)) {
    const std::size_t begin = out.size();
    appendInline(out, value);
    if (!value.is_object() || indent + out.size() - begin <= kWidth) {
      return;
    }
    out.resize(begin);
  }
  out += value.is_array() ? "[" : "{";
  bool isFirst = true;
  for (const auto& [key, entry] : value.items()) {
    out += isFirst ? "\n" : ",\n";
    isFirst = false;
    out.append(indent + kIndent, ' ');
    if (value.is_object()) {
      out += quotedText(key) + ": ";
    }
    appendIndented(out, entry, indent + kIndent);
  }
  out += '\n';
  out.append(indent, ' ');
  out += value.is_array() ? ']' : '}';
}

}  // namespace

std::string inlineJson(const Json& value) {
  std::string out;
  appendInline(out, value);
  return out;
}

std::string indentedJson(const Json& value) {
  std::string out;
  appendIndented(out, value, 0);
  return out + '\n';
}

}  // namespace quorvan::tool
