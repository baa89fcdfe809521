#include <gtest/gtest.h>

#include <limits>

#include <tools/draw/dxf/layer_table.h>

namespace {

using quorvan::tool::DxfLayer;
using quorvan::tool::Layer;
using quorvan::tool::LayerKey;
using quorvan::tool::LayerTable;

LayerKey layerKeyOf(Layer kind, double diameter = 0.0, bool isHidden = false) {
  LayerKey key;
  key.kind = kind;
  key.diameter = diameter;
  key.isHidden = isHidden;
  return key;
}

std::string nameOnLayers(const LayerKey& key) {
  return LayerTable(25, true).nameOf(key);
}

DxfLayer layerFor(const LayerKey& key, double scale = 25, bool hasDashes = true) {
  LayerTable table(scale, hasDashes);
  const std::string name = table.nameOf(key);
  return table.layers().at(name);
}

TEST(ToolDxfLayers, AreNamedByKindAndDiameter) {
  EXPECT_EQ(nameOnLayers(layerKeyOf(Layer::kFormwork)), "FORMWORK");
  EXPECT_EQ(nameOnLayers(layerKeyOf(Layer::kBars, 16)), "BARS_16");
  EXPECT_EQ(nameOnLayers(layerKeyOf(Layer::kEndOn, 12.7)), "END-ON_12_7");
  EXPECT_EQ(nameOnLayers(layerKeyOf(Layer::kLinks, 8, true)), "LINKS_8_HIDDEN");
  LayerKey series = layerKeyOf(Layer::kRepartitions, 8);
  series.repeated = Layer::kLinks;
  EXPECT_EQ(nameOnLayers(series), "REPARTITIONS_LINKS_8");
}

// R12 takes 31 of the letters A to Z, digits, and three signs.
TEST(ToolDxfLayers, HaveNamesThatEveryVersionTakes) {
  for (const double diameter :
       {0.0, -1.0, 99.99, 12345.6, 99999.0, 1e300, std::numeric_limits<double>::infinity(),
        std::numeric_limits<double>::quiet_NaN()}) {
    LayerKey key = layerKeyOf(Layer::kRepartitions, diameter, true);
    key.repeated = Layer::kLinks;
    const std::string name = nameOnLayers(key);
    EXPECT_LE(name.size(), 31U) << name;
    EXPECT_EQ(name.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-"), std::string::npos)
        << name;
  }
}

TEST(ToolDxfLayers, AreThereOnceAsked) {
  LayerTable table(25, true);
  EXPECT_TRUE(table.layers().empty());
  const std::string& first = table.nameOf(layerKeyOf(Layer::kBars, 16));
  EXPECT_EQ(&first, &table.nameOf(layerKeyOf(Layer::kBars, 16)));
  EXPECT_EQ(table.layers().size(), 1U);
}

TEST(ToolDxfLayers, DashHiddenBarsWhereTheyAreWantedSo) {
  EXPECT_TRUE(layerFor(layerKeyOf(Layer::kBars, 16, true)).isDashed);
  EXPECT_FALSE(layerFor(layerKeyOf(Layer::kBars, 16, true), 25, false).isDashed);
  EXPECT_FALSE(layerFor(layerKeyOf(Layer::kBars, 16)).isDashed);
}

TEST(ToolDxfLayers, HaveAWeightThatThereIs) {
  EXPECT_EQ(layerFor(layerKeyOf(Layer::kFormwork)).weight, 25);
  EXPECT_EQ(layerFor(layerKeyOf(Layer::kTexts)).weight, 18);
  EXPECT_EQ(layerFor(layerKeyOf(Layer::kBars, 8)).weight, 40);
  EXPECT_EQ(layerFor(layerKeyOf(Layer::kBars, 16)).weight, 60);
  // 32 mm at 1:10 are more than the heaviest.
  EXPECT_EQ(layerFor(layerKeyOf(Layer::kBars, 32), 10).weight, 211);
  LayerKey outlined = layerKeyOf(Layer::kBars, 16);
  outlined.isOutline = true;
  EXPECT_EQ(layerFor(outlined).weight, 18);
}

TEST(ToolDxfLayers, HaveColoursThatAreSeenOnBlackAndOnWhite) {
  EXPECT_EQ(layerFor(layerKeyOf(Layer::kBars, 16)).color, 1);
  EXPECT_EQ(layerFor(layerKeyOf(Layer::kLinks, 8)).color, 150);
  EXPECT_EQ(layerFor(layerKeyOf(Layer::kFormwork)).color, 7);
  LayerKey series = layerKeyOf(Layer::kRepartitions, 8);
  EXPECT_EQ(layerFor(series).color, 94);
  series.repeated = Layer::kLinks;
  EXPECT_EQ(layerFor(series).color, 150);
}

}  // namespace
