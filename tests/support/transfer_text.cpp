#include <tests/support/transfer_text.h>

#include <cstdint>
#include <cstdio>
#include <fstream>

namespace quorvan::test {

namespace {

// The code points of a wide text: UTF-16 where wide characters have 16 bits.
std::vector<std::uint32_t> codePoints(std::wstring_view text) {
  std::vector<std::uint32_t> codes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    std::uint32_t code = static_cast<std::uint32_t>(text[i]);
    if (code >= 0xD800 && code <= 0xDBFF && i + 1 < text.size()) {
      code = 0x10000 + ((code - 0xD800) << 10) + (static_cast<std::uint32_t>(text[++i]) - 0xDC00);
    }
    codes.push_back(code);
  }
  return codes;
}

// In ISO-8859-1, what it lacks as a reference.
std::string encoded(std::wstring_view text) {
  std::string bytes;
  for (const std::uint32_t code : codePoints(text)) {
    if (code == '&') {
      bytes += "&amp;";
    } else if (code == '<') {
      bytes += "&lt;";
    } else if (code == '>') {
      bytes += "&gt;";
    } else if (code == '"') {
      bytes += "&quot;";
    } else if (code < 0x20 || code > 0xFF) {
      bytes += "&#" + std::to_string(code) + ';';
    } else {
      bytes += static_cast<char>(code);
    }
  }
  return bytes;
}

std::string attribute(std::string_view name, const std::string& value) {
  return std::string(name) + "=\"" + value + '"';
}

std::string element(std::string_view head, std::string_view content) {
  std::string text;
  text.reserve(2 * head.size() + content.size() + 5);
  text += '<';
  text += head;
  if (content.empty()) {
    return text += "/>";
  }
  text += '>';
  text += content;
  text += "</";
  text += head.substr(0, head.find(' '));
  return text += '>';
}

}  // namespace

std::string transferFile(const std::string& elements) {
  return "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n" + element("Document", elements) +
         "\r\n";
}

std::string classElement(std::string_view className, int index, const std::string& items) {
  return element(
      std::string(className) + " version=\"1\" " + attribute("index", std::to_string(index)),
      items);
}

// Most of a long list's text: printed at once, not put together from pieces.
std::string pointItem(std::string_view name, const CKtPnt3D& point) {
  char attributes[1100];
  const int length = std::snprintf(attributes, sizeof attributes, R"(X="%.7f" Y="%.7f" Z="%.7f")",
                                   point.X(), point.Y(), point.Z());
  return rawItem(name, std::string_view(attributes, static_cast<std::size_t>(length)));
}

std::string vectorItem(std::string_view name, const CKtVect3D& vector) {
  char attributes[80];
  const int length = std::snprintf(attributes, sizeof attributes, R"(X="%g" Y="%g" Z="%g")",
                                   vector.X(), vector.Y(), vector.Z());
  return rawItem(name, std::string_view(attributes, static_cast<std::size_t>(length)));
}

std::string doubleItem(std::string_view name, double value) {
  return rawItem(name, attribute("double", fixed7(value)));
}

std::string longItem(std::string_view name, long value) {
  return rawItem(name, attribute("long", std::to_string(value)));
}

std::string textItem(std::string_view name, std::wstring_view value) {
  return rawItem(name, attribute("string", encoded(value)));
}

std::string flagItem(std::string_view name, bool value) {
  return rawItem(name, attribute("string", value ? "True" : "False"));
}

std::string listItem(std::string_view name, long long size, const std::string& entries) {
  return element(std::string(name) + ' ' + attribute("size", std::to_string(size)), entries);
}

std::string pointEntries(std::string_view stem, const std::vector<CKtPnt3D>& points) {
  std::string entries;
  for (std::size_t i = 0; i < points.size(); ++i) {
    entries += pointItem(numbered(stem, static_cast<long long>(i) + 1), points[i]);
  }
  return entries;
}

std::string doubleEntries(std::string_view stem, const std::vector<double>& values) {
  std::string entries;
  for (std::size_t i = 0; i < values.size(); ++i) {
    entries += doubleItem(numbered(stem, static_cast<long long>(i) + 1), values[i]);
  }
  return entries;
}

std::string rawItem(std::string_view name, std::string_view attributes) {
  std::string text;
  text.reserve(name.size() + attributes.size() + 4);
  text += '<';
  text += name;
  if (!attributes.empty()) {
    text += ' ';
    text += attributes;
  }
  return text += "/>";
}

std::string numbered(std::string_view stem, long long number) {
  std::string name(stem);
  return name += std::to_string(number);
}

std::string fixed7(double value) {
  char buffer[400];
  const int length = std::snprintf(buffer, sizeof buffer, "%.7f", value);
  return {buffer, static_cast<std::size_t>(length)};
}

void writeBytes(const std::filesystem::path& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

}  // namespace quorvan::test
