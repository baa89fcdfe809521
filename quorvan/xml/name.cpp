#include <quorvan/xml/name.h>

#include <charconv>
#include <limits>

#include <quorvan/text/cstring.h>
#include <quorvan/text/utf8.h>

namespace quorvan::dom {

NameText::NameText(const CString& wide) : m_text(toUtf8(wide.view())) {}

NameText::NameText(std::string_view stem, std::int64_t number) : m_text(stem) {
  char digits[std::numeric_limits<std::int64_t>::digits10 + 3];
  char* const end = std::to_chars(digits, digits + sizeof digits, number).ptr;
  m_text.append(digits, static_cast<std::size_t>(end - digits));
}

}  // namespace quorvan::dom
