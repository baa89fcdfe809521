#include <bench/drawing.h>

#include <bit>
#include <cmath>
#include <random>
#include <string_view>

namespace bench {

namespace {

// Numbers as drawings hold them: millimetres with a few decimals, never more than seven.
class Numbers {
 public:
  double coordinate() { return decimals(static_cast<double>(m_random() % 60000000) / 1000.0); }
  double size(unsigned int range) { return static_cast<double>(m_random() % range); }
  double angle() { return decimals(static_cast<double>(m_random() % 3600000) * 1e-6); }
  Point point() { return {coordinate(), coordinate(), (m_random() % 4 == 0) ? size(3000) : 0.0}; }
  unsigned int below(unsigned int limit) { return static_cast<unsigned int>(m_random() % limit); }

 private:
  static double decimals(double value) { return std::round(value * 1e4) / 1e4; }

  std::mt19937 m_random{20240611};
};

constexpr std::array kGrades = {L"B500A", L"B500B", L"B500C"};
constexpr std::array kTexts = {L"Coupe A-A \u00e9ch. 1:25",
                               L"4 \u00d820 e=15",
                               L"Enrobage 30 mm",
                               L"Beton C30/37 \u2013 classe XC3",
                               L"\u2300 16 \u2264 200 \u20ac",
                               L"Niveau fini +3.25"};
constexpr std::array kDiameters = {8.0, 10.0, 12.0, 16.0, 20.0, 25.0, 32.0};

Steel makeSteel(Numbers& n) {
  return {kGrades[n.below(kGrades.size())], L"Ha", kDiameters[n.below(kDiameters.size())],
          static_cast<long>(n.below(400)), false};
}

BentBar makeBent(Numbers& n) {
  return {n.point(), n.point(),   n.point(), n.size(300),
          n.angle(), n.size(300), n.angle(), makeSteel(n)};
}

Element makeElement(Numbers& n) {
  const unsigned int kind = n.below(100);
  if (kind < 22) {
    return Line{n.point(), n.point(), static_cast<long>(n.below(256))};
  }
  if (kind < 28) {
    return Circle{n.point(), n.size(500), static_cast<long>(n.below(256))};
  }
  if (kind < 42) {
    return Text{kTexts[n.below(kTexts.size())], n.point(), n.angle(), n.size(50), 1, 2, 7};
  }
  if (kind < 47) {
    Polygon polygon;
    polygon.points.resize(3 + n.below(4));
    for (Point& point : polygon.points) {
      point = n.point();
    }
    return polygon;
  }
  if (kind < 67) {
    return StraightBar{n.point(), n.point(),       n.size(300),     n.size(300), n.angle(),
                       n.angle(), n.below(2) != 0, n.below(2) != 0, makeSteel(n)};
  }
  if (kind < 75) {
    return LBar{makeBent(n)};
  }
  if (kind < 82) {
    return UBar{makeBent(n)};
  }
  if (kind < 92) {
    return Stirrup{n.point(), n.point(), n.size(300), n.angle(), makeSteel(n)};
  }
  return FrameRect{n.point(), n.point(), n.point(), n.size(300), n.angle(), makeSteel(n)};
}

// Mixes every value of an element into one number.
class Summing {
 public:
  void number(const char*, double value) { mix(std::bit_cast<std::uint64_t>(value)); }
  void integer(const char*, long value) { mix(static_cast<std::uint64_t>(value)); }
  void flag(const char*, bool value) { mix(value ? 1 : 2); }
  void text(const char*, const std::wstring& value) {
    for (const wchar_t unit : value) {
      mix(static_cast<std::uint64_t>(unit));
    }
  }
  void point(const char*, const Point& point) {
    number("", point.x);
    number("", point.y);
    number("", point.z);
  }
  void points(const char*, const std::vector<Point>& points) {
    for (const Point& p : points) {
      point("", p);
    }
  }
  [[nodiscard]] std::uint64_t sum() const { return m_sum; }

 private:
  void mix(std::uint64_t value) {
    m_sum = (m_sum ^ value) * 0x9E3779B97F4A7C15ULL;
    m_sum ^= m_sum >> 29;
  }

  std::uint64_t m_sum = 1469598103934665603ULL;
};

}  // namespace

Drawing makeDrawing(std::size_t elements) {
  Numbers numbers;
  Drawing drawing;
  drawing.elements.reserve(elements);
  for (std::size_t i = 0; i < elements; ++i) {
    drawing.elements.push_back(makeElement(numbers));
  }
  return drawing;
}

std::uint64_t checksum(const Element& element) {
  Summing summing;
  std::visit([&](const auto& e) { visitItems(e, summing); }, element);
  return summing.sum();
}

std::uint64_t checksum(const Drawing& drawing) {
  std::uint64_t sum = 0;
  for (const Element& element : drawing.elements) {
    sum += checksum(element);
  }
  return sum;
}

}  // namespace bench
