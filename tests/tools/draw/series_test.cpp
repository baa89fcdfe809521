// Repartitions at every angle: their bars lie where the host pushed them.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include <nlohmann/json.hpp>

#include <tests/tools/picture.h>
#include <tests/tools/tool_run.h>

namespace {

using quorvan::test::drawJson;
using quorvan::test::measure;
using quorvan::test::runTool;

struct PushedBar {
  double x1, y1, x2, y2;
};

std::string number(double value) {
  std::ostringstream out;
  out.precision(12);
  out << value;
  return out.str();
}

constexpr const char* kRest =
    R"("SteelGrade": "B500B", "Adherence": "Ha", "Diameter": 10, "Reference": 1, "Hidden": false})";

std::string straightBar(const PushedBar& bar) {
  return R"({"class": "CKtZantoStraightBar", "Point1": [)" + number(bar.x1) + ", " +
         number(bar.y1) + R"(, 0], "Point2": [)" + number(bar.x2) + ", " + number(bar.y2) +
         R"(, 0], "HookLength1": 0, "HookLength2": 0, "Hook1Up": false, "Hook2Up": false, )" +
         R"("HookAngle1": 0, "HookAngle2": 0, )" + kRest;
}

std::string frame() {
  return std::string(
             R"({"class": "CKtZantoFrameRect", "Point1": [0, 0, 0], "Point2": [200, 0, 0], )"
             R"("Point3": [200, 300, 0], "HookLength1": 0, "HookAngle1": 0, )") +
         kRest;
}

std::string series(const std::string& className, const std::vector<PushedBar>& bars) {
  std::string text;
  for (const PushedBar& bar : bars) {
    text += (text.empty() ? R"({"series": [)" : ", ") + std::string(R"({"value1": )") +
            number(bar.x1) + R"(, "value2": )" + number(bar.y1) + R"(, "value3": 0, "value4": )" +
            number(bar.x2) + R"(, "value5": )" + number(bar.y2) +
            R"(, "value6": 0, "className": ")" + className +
            R"(", "hookLength1": 0, "hookAngle1": 0, "steelGrade": "B500B", "adherence": "Ha", )"
            R"("reference": 1, "diameter": 10, "hidden": false, "keyC": 1, "viewPoint": 2, )"
            R"("lastInt": 0})";
  }
  return text + "]}";
}

// Bars of 2400 at that angle, 200 apart square to them, each shifted along itself by `shift`.
std::vector<PushedBar> barsAt(double degrees, double shift = 0.0) {
  const double angle = degrees * std::numbers::pi / 180.0;
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  std::vector<PushedBar> bars;
  for (int i = 0; i < 9; ++i) {
    const double x = 500.0 - 200.0 * i * s + shift * i * c;
    const double y = 300.0 + 200.0 * i * c + shift * i * s;
    bars.push_back({x, y, x + 2400.0 * c, y + 2400.0 * s});
  }
  return bars;
}

// Each bar pushed is a line of the picture, at 1:10: placed after the first one.
void expectDrawn(const std::vector<PushedBar>& bars, const std::string& svg) {
  const auto shapes = measure(svg).layer("repartitions");
  ASSERT_FALSE(shapes.empty());
  const quorvan::test::PaintedShape& drawn = shapes.front();
  ASSERT_EQ(drawn.xs.size(), 2 * bars.size());
  const auto matches = [&](const PushedBar& bar, std::size_t at) {
    const auto lies = [&](std::size_t point, double x, double y) {
      return std::abs(drawn.xs[point] - drawn.xs[0] - (x - bars[0].x1) / 10.0) < 0.01 &&
             std::abs(drawn.ys[point] - drawn.ys[0] + (y - bars[0].y1) / 10.0) < 0.01;
    };
    return lies(2 * at, bar.x1, bar.y1) && lies(2 * at + 1, bar.x2, bar.y2);
  };
  for (std::size_t i = 0; i < bars.size(); ++i) {
    EXPECT_TRUE(matches(bars[i], i))
        << "bar " << i << " lies at " << drawn.xs[2 * i] << ' ' << drawn.ys[2 * i] << ", "
        << drawn.xs[2 * i + 1] << ' ' << drawn.ys[2 * i + 1];
  }
}

bool says(const std::string& svg, const std::string& text) {
  for (const auto& shape : measure(svg).layer("repartitions")) {
    if (shape.content.find(text) != std::string::npos) {
      return true;
    }
  }
  return false;
}

TEST(ToolDrawSeries, LiesAlongItsBarsAtEveryAngle) {
  for (const double angle : {0.0, 10.0, 30.0, 45.0, 75.0, 90.0, 120.0, 160.0, 200.0, 340.0}) {
    SCOPED_TRACE(angle);
    const auto bars = barsAt(angle);
    const std::string svg = drawJson(
        straightBar(bars[0]) + ", " + series("CKtZantoStraightBar", bars), {"--scale", "10"});
    expectDrawn(bars, svg);
    EXPECT_TRUE(says(svg, "200")) << svg;
    EXPECT_FALSE(says(svg, "200.")) << svg;
  }
}

// Links come without a direction of their own in such a view: it follows from the series.
TEST(ToolDrawSeries, FindsTheDirectionOfLinks) {
  for (const double angle : {20.0, 50.0, 110.0, 155.0}) {
    SCOPED_TRACE(angle);
    const auto bars = barsAt(angle);
    expectDrawn(bars,
                drawJson(frame() + ", " + series("CKtZantoFrameRect", bars), {"--scale", "10"}));
  }
}

// All bars of a parallelogram begin on one upright line: only the repeated bar says their angle.
TEST(ToolDrawSeries, TakesTheDirectionOfTheRepeatedBar) {
  const double shift = 200.0 * std::tan(30.0 * std::numbers::pi / 180.0);
  const auto bars = barsAt(30.0, shift);
  EXPECT_NEAR(bars[0].x1, bars[8].x1, 1e-9);
  expectDrawn(bars, drawJson(straightBar(bars[0]) + ", " + series("CKtZantoStraightBar", bars),
                             {"--scale", "10"}));
}

TEST(ToolDrawSeries, StatesTheSpacingSquareToItsBarsInInfoToo) {
  const auto bars = barsAt(30.0);
  drawJson(straightBar(bars[0]) + ", " + series("CKtZantoStraightBar", bars));
  const auto info = nlohmann::json::parse(runTool({"info", "--json", "written.xml"}).out);
  for (const double spacing : info["files"][0]["repartitions"][0]["spacings"]) {
    EXPECT_NEAR(spacing, 200.0, 1e-3);
  }
}

}  // namespace
