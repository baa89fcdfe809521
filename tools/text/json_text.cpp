#include <tools/text/json_text.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

#include <tools/text/number_text.h>
#include <tools/text/table.h>

namespace quorvan::tool {

namespace {

constexpr std::size_t kIndent = 2;
constexpr std::size_t kWidth = 100;

// A text in quotes. What could steer a terminal or turn its text is written out, and what is no
// UTF-8, which a file name may be, becomes U+FFFD.
std::string quotedText(const Json& value) {
  std::string plain = value.dump(-1, ' ', false, Json::error_handler_t::replace);
  if (std::ranges::all_of(plain, [](char unit) { return unit >= ' ' && unit != '\x7F'; })) {
    return plain;
  }
  return printable(plain);
}

// A number that is no JSON number is the text that stands for it: "inf", "-inf" or "nan".
std::string numberText(const Json& value) {
  if (value.is_number_unsigned()) {
    return std::to_string(value.get<std::uint64_t>());
  }
  if (value.is_number_integer()) {
    return std::to_string(value.get<std::int64_t>());
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

// The library's own way to a text is slow to set up; most texts need nothing written out.
void appendText(std::string& out, const std::string& text) {
  const auto isPlain = [](char one) {
    return one >= ' ' && one <= '~' && one != '"' && one != '\\';
  };
  if (std::all_of(text.begin(), text.end(), isPlain)) {
    out.append(1, '"').append(text).append(1, '"');
  } else {
    out += quotedText(text);
  }
}

void appendPlain(std::string& out, const Json& value) {
  if (value.is_number()) {
    out += numberText(value);
  } else if (value.is_string()) {
    appendText(out, value.get_ref<const std::string&>());
  } else if (value.is_boolean()) {
    out += value.get<bool>() ? "true" : "false";
  } else {
    out += value.dump();
  }
}

// Calls `append` with each value, with `between` from the second on and the name before those that
// have one.
template <class Append>
void appendEach(std::string& out, const Json& value, std::string_view first,
                std::string_view between, const Append& append) {
  bool isFirst = true;
  const auto begin = [&] {
    out += isFirst ? first : between;
    isFirst = false;
  };
  if (const auto* const object = value.get_ptr<const Json::object_t*>()) {
    for (const auto& [key, entry] : *object) {
      begin();
      appendText(out, key);
      out += ": ";
      append(entry);
    }
    return;
  }
  for (const Json& entry : value) {
    begin();
    append(entry);
  }
}

void appendInline(std::string& out, const Json& value) {
  if (!value.is_structured()) {
    return appendPlain(out, value);
  }
  out += value.is_array() ? '[' : '{';
  appendEach(out, value, "", ", ", [&out](const Json& entry) { appendInline(out, entry); });
  out += value.is_array() ? ']' : '}';
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
  out += value.is_array() ? '[' : '{';
  const std::string feed = '\n' + std::string(indent + kIndent, ' ');
  appendEach(out, value, feed, ',' + feed,
             [&](const Json& entry) { appendIndented(out, entry, indent + kIndent); });
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

void JsonStream::beginValue(std::string_view key) {
  m_text = m_isFirst ? "{\n" : ",\n";
  m_isFirst = false;
  m_text.append(kIndent, ' ');
  appendText(m_text, std::string(key));
  m_text += ": ";
}

void JsonStream::add(std::string_view key, const Json& value) {
  beginValue(key);
  appendIndented(m_text, value, kIndent);
  m_out << m_text;
}

void JsonStream::beginList(std::string_view key) {
  beginValue(key);
  m_out << m_text << '[';
  m_isFirstEntry = true;
}

void JsonStream::addEntry(const Json& entry) {
  m_text = m_isFirstEntry ? "\n" : ",\n";
  m_isFirstEntry = false;
  m_text.append(2 * kIndent, ' ');
  appendIndented(m_text, entry, 2 * kIndent);
  m_out << m_text;
}

void JsonStream::endList() {
  if (!m_isFirstEntry) {
    m_out << '\n' << std::string(kIndent, ' ');
  }
  m_out << ']';
}

void JsonStream::end() {
  m_out << "\n}\n";
}

std::string indentedJson(const Json& value) {
  std::string out;
  appendIndented(out, value, 0);
  return out + '\n';
}

}  // namespace quorvan::tool
