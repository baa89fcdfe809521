#include <tools/repair/start_tag.h>

namespace quorvan::tool {

namespace {

constexpr std::string_view kTagBlanks = " \t\r\n";

std::string inQuotes(std::string_view text) {
  std::string quoted = "\"";
  for (const char unit : text) {
    if (unit == '<') {
      quoted += "&lt;";
    } else if (unit == '&') {
      quoted += "&amp;";
    } else if (unit == '"') {
      quoted += "&quot;";
    } else {
      quoted += unit;
    }
  }
  return quoted + '"';
}

}  // namespace

void StartTag::mend(const AttributeMend& mend) {
  const Place old = mend.from.empty() ? find(mend.name) : find(mend.from);
  if (old.name == old.end) {
    m_source.insert(old.end, ' ' + mend.name + '=' + inQuotes(mend.value.value_or("")));
    return;
  }
  if (mend.value) {
    m_source.replace(old.value, old.end - old.value, inQuotes(*mend.value));
  }
  m_source.replace(old.name, old.nameEnd - old.name, mend.name);
}

void StartTag::rename(std::string_view name) {
  m_source.replace(1, nameEnd() - 1, name);
}

void StartTag::open() {
  m_source.erase(m_source.size() - 2, 1);
}

std::size_t StartTag::nameEnd() const {
  return m_source.find_first_of(" \t\r\n/>", 1);
}

StartTag::Place StartTag::find(std::string_view name) const {
  std::size_t end = nameEnd();
  for (;;) {
    Place place;
    place.name = m_source.find_first_not_of(kTagBlanks, end);
    if (place.name == std::string::npos || m_source[place.name] == '/' ||
        m_source[place.name] == '>') {
      return {end, end, end, end};
    }
    place.nameEnd = m_source.find_first_of(" \t\r\n=", place.name);
    place.value = m_source.find_first_of("\"'", place.nameEnd);
    if (place.value == std::string::npos) {
      return {end, end, end, end};
    }
    place.end = m_source.find(m_source[place.value], place.value + 1) + 1;
    if (std::string_view(m_source).substr(place.name, place.nameEnd - place.name) == name) {
      return place;
    }
    end = place.end;
  }
}

}  // namespace quorvan::tool
