#include <tools/draw/review/list_columns.h>

#include <algorithm>
#include <utility>

#include <tools/draw/review/review_states.h>
#include <tools/draw/scene/sheet.h>
#include <tools/draw/scene/text_width.h>

namespace quorvan::tool {

namespace {

constexpr double kFromDrawing = 2.0;    // mm
constexpr double kColumnWidth = 120.0;  // mm
constexpr double kLineLettering = 2.0;
constexpr double kLinePitch = 4.2;
constexpr int kMostColumns = 8;

// As many bytes as go on a line, whole words where there are some.
std::size_t fittingBytes(const std::string& text) {
  const double room = kColumnWidth - 2.0 * kMargin;
  if (textWidth(text, kLineLettering) <= room) {
    return text.size();
  }
  std::size_t fits = std::min(text.find_first_not_of(' '), text.size());
  for (std::size_t end = text.find(' ', fits); end != std::string::npos;
       end = text.find(' ', end + 1)) {
    if (textWidth(text.substr(0, end), kLineLettering) > room) {
      break;
    }
    fits = end;
  }
  return fits == text.find_first_not_of(' ') ? std::min(text.find(' ', fits), text.size()) : fits;
}

}  // namespace

ListColumns::ListColumns(Scene& scene)
    : m_scene(scene), m_left(scene.width + kFromDrawing), m_y(scene.height - kMargin) {}

void ListColumns::add(const std::string& line, Color color, std::uint32_t element) {
  std::string rest = line;
  const std::size_t indent = std::min(line.find_first_not_of(' '), line.size());
  while (!rest.empty()) {
    const std::size_t end = fittingBytes(rest);
    put(rest.substr(0, end), color, element);
    rest.erase(0, std::min(rest.find_first_not_of(' ', end), rest.size()));
    rest.insert(0, rest.empty() ? 0 : indent + 4, ' ');
  }
}

void ListColumns::skip() {
  m_y -= kLinePitch / 2.0;
}

void ListColumns::put(const std::string& line, Color color, std::uint32_t element) {
  if (m_columns == 0 || m_y < kMargin + kLinePitch) {
    if (m_columns == kMostColumns) {
      tellLeftOut();
      return;
    }
    ++m_columns;
    m_y = m_scene.height - kMargin - kLinePitch;
    m_scene.width = m_left + kColumnWidth * m_columns;
  }
  const std::size_t blanks = std::min(line.find_first_not_of(' '), line.size());
  const double x = m_left + kColumnWidth * (m_columns - 1) + static_cast<double>(blanks);
  Shape shape = reviewText(Layer::kTitle, color, line.substr(blanks), {x, m_y}, kLineLettering);
  shape.element = element;
  m_scene.shapes.push_back(std::move(shape));
  m_y -= kLinePitch;
}

// In the place of the last line that there was room for.
void ListColumns::tellLeftOut() {
  m_leftOut += m_leftOut == 0 ? 2 : 1;
  Shape& last = m_scene.shapes.back();
  last.lettering.text = "\u2026 " + std::to_string(m_leftOut) + " more lines";
  last.element = kNoElement;
  last.style.color = {};
}

}  // namespace quorvan::tool
