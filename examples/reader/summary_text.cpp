#include "summary_text.h"

#include <algorithm>
#include <iomanip>
#include <sstream>
#include <string>
#include <string_view>

namespace {

// --- UTF-8 --------------------------------------------------------------------------------------

// One character of a wide text, which is UTF-16 on Windows and UTF-32 elsewhere.
char32_t nextCharacter(std::wstring_view text, std::size_t& at) {
  const auto unit = static_cast<char32_t>(text[at++]);
  const bool isHigh = unit >= 0xD800 && unit < 0xDC00;
  if (isHigh && at < text.size()) {
    const auto low = static_cast<char32_t>(text[at]);
    if (low >= 0xDC00 && low < 0xE000) {
      ++at;
      return 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
    }
  }
  return unit;
}

void append(std::string& utf8, char32_t character) {
  const auto add = [&utf8](char32_t byte) { utf8 += static_cast<char>(byte); };
  if (character < 0x80) {
    add(character);
    return;
  }
  const int more = character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
  const char32_t lead[] = {0, 0xC0, 0xE0, 0xF0};
  add(lead[more] | (character >> (6 * more)));
  for (int shift = 6 * (more - 1); shift >= 0; shift -= 6) {
    add(0x80 | ((character >> shift) & 0x3F));
  }
}

std::string utf8(const CString& text) {
  std::string result;
  for (std::size_t at = 0; at < text.view().size();) {
    append(result, nextCharacter(text.view(), at));
  }
  return result;
}

// --- parts of the summary -----------------------------------------------------------------------

std::string number(double value) {
  std::ostringstream out;
  out << value;
  return out.str();
}

std::string hiddenNote(const BarCount& count) {
  return count.hidden == 0 ? "" : ", " + std::to_string(count.hidden) + " hidden";
}

// Equal neighbours together: "10 x 200, 7 x 250".
std::string runs(const std::vector<double>& spacings) {
  std::string result;
  for (auto run = spacings.begin(); run != spacings.end();) {
    const auto end = std::find_if(run, spacings.end(), [&](double s) { return s != *run; });
    result += (result.empty() ? "" : ", ") + std::to_string(end - run) + " x " + number(*run);
    run = end;
  }
  return result.empty() ? "none" : result;
}

template <class Values, class ToText>
std::string joined(const Values& values, ToText toText) {
  std::string result;
  for (const auto& value : values) {
    result += (result.empty() ? "" : ", ") + toText(value);
  }
  return result;
}

void printElements(std::ostream& out, const DrawingSummary& summary) {
  out << "elements\n";
  for (const auto& [className, count] : summary.elements) {
    out << std::setw(7) << count << "  " << className;
    if (const auto found = summary.incomplete.find(className); found != summary.incomplete.end()) {
      out << " (" << found->second << " incomplete)";
    }
    out << '\n';
  }
}

void printBars(std::ostream& out, const DrawingSummary& summary) {
  out << "bar elements by steel grade and diameter\n";
  for (const auto& [kind, count] : summary.barsByKind) {
    out << std::setw(7) << count.all << "  " << utf8(kind.first) << " ø" << number(kind.second)
        << hiddenNote(count) << '\n';
  }
  out << "bar elements by reference\n";
  for (const auto& [reference, mark] : summary.marks) {
    out << std::setw(7) << mark.count.all << "  no. " << reference << ": ø"
        << joined(mark.diameters, number) << ' '
        << joined(mark.shapes, [](const std::string& shape) { return shape; })
        << hiddenNote(mark.count) << '\n';
  }
}

void printSeries(std::ostream& out, const DrawingSummary& summary) {
  out << "repartitions\n";
  for (const Series& series : summary.series) {
    out << std::setw(7) << series.bars << "  as " << utf8(series.barClass) << " no. "
        << series.barIndex << " of the file, view " << series.viewPoint << ", spacing "
        << runs(series.spacings) << (series.hidden ? ", hidden" : "") << '\n';
  }
}

bool hasLetter(const CString& text) {
  const std::wstring_view view = text.view();
  return std::any_of(view.begin(), view.end(), [](wchar_t c) {
    return (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z') || c > 0x7F;
  });
}

// Numbers of dimension lines say little by themselves and are left out.
void printTexts(std::ostream& out, const DrawingSummary& summary) {
  constexpr std::size_t kWidth = 96;
  out << "texts\n";
  std::string line;
  for (const CString& text : summary.texts) {
    if (!hasLetter(text)) {
      continue;
    }
    const std::string next = utf8(text);
    if (!line.empty() && line.size() + next.size() > kWidth) {
      out << "  " << line << '\n';
      line.clear();
    }
    line += (line.empty() ? "" : " | ") + next;
  }
  out << "  " << line << '\n';
}

}  // namespace

void print(std::ostream& out, const DrawingSummary& summary) {
  if (summary.hasControlRecord) {
    out << "drawing " << utf8(summary.name) << ", version " << utf8(summary.version)
        << ", service pack " << summary.servicePack << ", check sum " << summary.checkSum << '\n';
  } else {
    out << "drawing without a control record\n";
  }
  printElements(out, summary);
  printBars(out, summary);
  printSeries(out, summary);
  printTexts(out, summary);
}
