#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <sstream>

#include <nlohmann/json.hpp>

#include <tools/draw/page/packed_numbers.h>
#include <tools/draw/page/packed_picture.h>
#include <tools/draw/writers/svg_writer.h>

namespace {

using quorvan::tool::base64;
using quorvan::tool::Layer;
using quorvan::tool::PackedNumbers;
using quorvan::tool::PlanePoint;
using quorvan::tool::Scene;
using quorvan::tool::Shape;

Shape lineAt(PlanePoint from, PlanePoint way, std::uint32_t element) {
  Shape shape{};
  shape.layer = Layer::kBars;
  shape.kind = Shape::Kind::kPath;
  shape.element = element;
  shape.style.width = 0.5;
  shape.path.moveTo(from);
  shape.path.lineTo(from + way);
  return shape;
}

nlohmann::json packed(const Scene& scene) {
  std::ostringstream out;
  quorvan::tool::writePackedPicture(scene, out);
  EXPECT_EQ(out.str().find_first_of("<>&"), std::string::npos);
  return nlohmann::json::parse(out.str());
}

std::string packedNumbers(const std::vector<std::int64_t>& numbers) {
  PackedNumbers bytes;
  for (const std::int64_t number : numbers) {
    bytes.add(static_cast<std::uint64_t>(number));
  }
  return base64(bytes.bytes());
}

// Twice a way to the right or downwards, and one less than twice a way back.
TEST(PackedPicture, GivesShapesOfOneSeriesOneBody) {
  Scene scene;
  scene.width = 100.0;
  scene.height = 50.0;
  scene.shapes = {lineAt({10.0, 20.0}, {1.0, 0.0}, 7), lineAt({10.0, 19.5}, {1.0, 0.0}, 6)};
  const nlohmann::json picture = packed(scene);
  EXPECT_EQ(picture["bodyCount"], 1);
  EXPECT_EQ(picture["bodies"], packedNumbers({1 * 8 + 0, 2000, 0, 0}));
  EXPECT_EQ(picture["shapes"], packedNumbers({0, 1 + 14, 20000, 60000, 0,  //
                                              0, 1 + 1, 0, 1000, 0}));
  EXPECT_EQ(picture["layers"], nlohmann::json::parse(R"([["bars", 2]])"));
  EXPECT_EQ(picture["styles"], nlohmann::json::parse(R"([["#000000", 500, false, [], false]])"));
}

// As long as in an SVG: on a long line the dashes would come to lie elsewhere otherwise.
TEST(PackedPicture, HasDashesOfWholeThousandths) {
  Scene scene;
  for (const double width : {0.5, 0.55, 0.6125}) {
    Shape line = lineAt({0.0, 0.0}, {9.0, 0.0}, 1);
    line.style.width = width;
    line.style.isDashed = true;
    scene.shapes.push_back(line);
  }
  std::ostringstream svg;
  quorvan::tool::writeSvg(scene, {}, svg);
  for (const char* const dashes : {"1.6 1.2", "1.65 1.238", "1.838 1.378"}) {
    EXPECT_NE(svg.str().find(std::string("stroke-dasharray:") + dashes + ';'), std::string::npos);
  }
  const nlohmann::json styles = packed(scene)["styles"];
  EXPECT_EQ(styles.at(0).at(3), nlohmann::json({1600, 1200}));
  EXPECT_EQ(styles.at(1).at(3), nlohmann::json({1650, 1238}));
  EXPECT_EQ(styles.at(2).at(3), nlohmann::json({1838, 1378}));
}

TEST(PackedPicture, TellsArcsCirclesAndWaysBack) {
  Scene scene;
  scene.height = 50.0;
  Shape shape = lineAt({10.0, 10.0}, {2.0, 0.0}, quorvan::tool::kNoElement);
  shape.path.arcTo({12.0, 11.0}, std::numbers::pi / 2.0);
  shape.path.arcTo({13.0, 12.0}, 2.0 * std::numbers::pi);
  shape.path.close();
  scene.shapes = {shape};
  // A line, an arc against the clock to the right and upwards, a full circle, the way back.
  EXPECT_EQ(packed(scene)["bodies"],
            packedNumbers({8, 4000, 0, 8 + 1, 0, 1999, 2000, 1999, 8 + 3, 0, 1999, 8 + 5, 0}));
}

TEST(PackedPicture, BoundsWhatIsFarOutAndLetsNoTextOutOfItsPlace) {
  Scene scene;
  Shape far = lineAt({1e300, 0.0}, {1.0, -1e300}, 1);
  far.style.width = 1e300;
  Shape text{};
  text.kind = Shape::Kind::kText;
  text.lettering = {"</script><b>&", {1.0, 2.0}, -3.0};
  Shape strange = text;
  strange.lettering.text = "\x80\xFF";
  scene.shapes = {far, text, strange};
  const nlohmann::json picture = packed(scene);
  EXPECT_EQ(picture["texts"][0], "</script><b>&");
  EXPECT_EQ(picture["count"], 3);
}

}  // namespace
