#include <tests/tools/picture.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>
#include <regex>

#include <tests/support/saved_file.h>
#include <tests/tools/sample.h>
#include <tests/tools/tool_run.h>

namespace quorvan::test {

namespace {

constexpr double kLetter = 0.5;      // of the font's size
constexpr double kCapitals = 0.716;  // of the font's size

using Attributes = std::map<std::string, std::string>;

Attributes attributesIn(const std::string& tag) {
  static const std::regex kAttribute("([-a-z]+)=\"([^\"]*)\"");
  Attributes found;
  for (std::sregex_iterator at(tag.begin(), tag.end(), kAttribute); at != std::sregex_iterator();
       ++at) {
    found[(*at)[1].str()] = (*at)[2].str();
  }
  return found;
}

double numberOf(const Attributes& attributes, const std::string& name) {
  const auto found = attributes.find(name);
  return found == attributes.end() ? 0.0 : std::stod(found->second);
}

void addPoint(PaintedShape& shape, double x, double y) {
  shape.xs.push_back(x);
  shape.ys.push_back(y);
}

// The arc from the last point, of at most half a turn, in small steps.
void addArc(PaintedShape& shape, double radius, bool isWithClock, double x, double y) {
  const double fromX = shape.xs.back();
  const double fromY = shape.ys.back();
  const double half = std::hypot(x - fromX, y - fromY) / 2.0;
  if (half > 0.0) {
    const double r = std::max(radius, half);
    const double rise = std::sqrt(r * r - half * half) * (isWithClock ? 1.0 : -1.0);
    const double centerX = (x + fromX) / 2.0 - (y - fromY) / (2.0 * half) * rise;
    const double centerY = (y + fromY) / 2.0 + (x - fromX) / (2.0 * half) * rise;
    const double begin = std::atan2(fromY - centerY, fromX - centerX);
    double sweep = std::atan2(y - centerY, x - centerX) - begin;
    const double turn = 2.0 * std::numbers::pi;
    sweep += isWithClock && sweep < 0.0 ? turn : !isWithClock && sweep > 0.0 ? -turn : 0.0;
    for (int i = 1; i < 16; ++i) {
      const double angle = begin + sweep * i / 16.0;
      addPoint(shape, centerX + r * std::cos(angle), centerY + r * std::sin(angle));
    }
  }
  addPoint(shape, x, y);
}

void addPath(PaintedShape& shape, const std::string& data) {
  static const std::regex kStep("([MLAZ])([-0-9.e ]*)");
  for (std::sregex_iterator at(data.begin(), data.end(), kStep); at != std::sregex_iterator();
       ++at) {
    std::istringstream in((*at)[2].str());
    const std::vector<double> n{std::istream_iterator<double>(in), {}};
    if ((*at)[1].str() == "A") {
      addArc(shape, n.at(0), n.at(4) == 1.0, n.at(5), n.at(6));
    } else if (n.size() == 2) {
      addPoint(shape, n[0], n[1]);
    }
  }
}

std::size_t letters(const std::string& text) {
  return static_cast<std::size_t>(std::ranges::count_if(
      text, [](char unit) { return (static_cast<unsigned char>(unit) & 0xC0U) != 0x80U; }));
}

void addText(PaintedShape& shape, const Attributes& attributes) {
  const double size = numberOf(attributes, "font-size");
  const double width = static_cast<double>(letters(shape.content)) * size * kLetter;
  const auto anchor = attributes.find("text-anchor");
  const double share = anchor == attributes.end() ? 0.0 : anchor->second == "middle" ? 0.5 : 1.0;
  double angle = 0.0;
  if (const auto turn = attributes.find("transform"); turn != attributes.end()) {
    angle = std::stod(turn->second.substr(turn->second.find('(') + 1)) * std::numbers::pi / 180.0;
  }
  for (const double along : {-share * width, (1.0 - share) * width}) {
    for (const double up : {0.0, -size * kCapitals}) {
      addPoint(shape, numberOf(attributes, "x") + along * std::cos(angle) - up * std::sin(angle),
               numberOf(attributes, "y") + along * std::sin(angle) + up * std::cos(angle));
    }
  }
}

void addCircle(PaintedShape& shape, const Attributes& attributes) {
  const double r = numberOf(attributes, "r");
  for (const double sign : {-1.0, 1.0}) {
    addPoint(shape, numberOf(attributes, "cx") + sign * r, numberOf(attributes, "cy") + sign * r);
  }
}

}  // namespace

double PaintedShape::left() const {
  return *std::ranges::min_element(xs);
}
double PaintedShape::right() const {
  return *std::ranges::max_element(xs);
}
double PaintedShape::top() const {
  return *std::ranges::min_element(ys);
}
double PaintedShape::bottom() const {
  return *std::ranges::max_element(ys);
}

std::vector<PaintedShape> PaintedPicture::layer(const std::string& name) const {
  std::vector<PaintedShape> found;
  std::ranges::copy_if(shapes, std::back_inserter(found),
                       [&](const PaintedShape& shape) { return shape.layer == name; });
  return found;
}

std::string drawFile(const std::string& bytes, const std::vector<std::string>& options,
                     std::string* messages) {
  writeFile("drawn.xml", bytes);
  std::vector<std::string> arguments{"draw", "drawn.xml", "-o", "drawn.svg"};
  arguments.insert(arguments.end(), options.begin(), options.end());
  const auto run = runTool(arguments);
  EXPECT_EQ(run.status, 0) << run.err;
  if (messages != nullptr) {
    *messages = run.err;
  }
  return fileBytes("drawn.svg");
}

std::string drawJson(const std::string& elements, const std::vector<std::string>& options,
                     std::string* messages) {
  writeFile(
      "drawing.json",
      R"({"drawing": {"name": "D", "version": "1", "servicePack": 0, "checkSum": 0}, "elements": [)" +
          elements + "]}");
  const auto run = runTool({"write", "drawing.json", "-o", "written.xml"});
  EXPECT_EQ(run.status, 0) << run.err;
  return drawFile(fileBytes("written.xml"), options, messages);
}

PaintedPicture measure(const std::string& svg) {
  PaintedPicture picture;
  std::smatch sheet;
  std::regex_search(svg, sheet, std::regex("viewBox=\"0 0 ([0-9.]+) ([0-9.]+)\""));
  picture.width = std::stod(sheet[1]);
  picture.height = std::stod(sheet[2]);
  std::map<std::string, std::pair<double, bool>> pens;
  static const std::regex kPen("\\.(s[0-9]+)\\{([^}]*)\\}");
  for (std::sregex_iterator at(svg.begin(), svg.end(), kPen); at != std::sregex_iterator(); ++at) {
    const std::string style = (*at)[2].str();
    std::smatch width;
    const bool hasWidth = std::regex_search(style, width, std::regex("stroke-width:([0-9.]+)"));
    pens[(*at)[1].str()] = {hasWidth ? std::stod(width[1]) : 0.0,
                            style.find("dasharray") != std::string::npos};
  }
  static const std::regex kTag("<(g|path|circle|text) ([^>]*)>([^<]*)");
  std::string layer;
  for (std::sregex_iterator at(svg.begin(), svg.end(), kTag); at != std::sregex_iterator(); ++at) {
    const Attributes attributes = attributesIn((*at)[2].str());
    PaintedShape shape{layer, (*at)[1].str(), (*at)[3].str(), -1, 0.0, false, {}, {}};
    if (shape.tag == "g") {
      layer = attributes.contains("data-layer") ? attributes.at("data-layer") : layer;
      continue;
    }
    const std::string style = attributes.at("class");
    const auto pen = pens[style.substr(0, style.find(' '))];
    shape.width = pen.first;
    shape.isDashed = pen.second;
    shape.element = attributes.contains("data-e") ? std::stoi(attributes.at("data-e")) : -1;
    if (shape.tag == "path") {
      addPath(shape, attributes.at("d"));
    } else if (shape.tag == "circle") {
      addCircle(shape, attributes);
    } else {
      addText(shape, attributes);
    }
    picture.shapes.push_back(std::move(shape));
  }
  return picture;
}

}  // namespace quorvan::test
