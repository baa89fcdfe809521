// Sheets by name, and where a drawing lies on them.
#include <tools/draw/scene/sheet.h>

#include <gtest/gtest.h>

#include <cmath>

namespace quorvan::tool {

namespace {

constexpr double kClose = 1e-9;

SheetContents contentsOf(double left, double low, double right, double high,
                         double lettering = 0.0) {
  SheetContents contents;
  contents.box = {{left, low}, {right, high}};
  if (lettering > 0.0) {
    contents.hints.textHeights = {lettering};
  }
  return contents;
}

TEST(ToolSheetNames, AreThoseOfUsualSheetsLyingAndUpright) {
  const std::pair<const char*, SheetSize> cases[] = {
      {"A0", {1189, 841}},     {"A1", {841, 594}},          {"A2", {594, 420}},
      {"A3", {420, 297}},      {"A4", {297, 210}},          {"A5", {210, 148}},
      {"A0u", {841, 1189}},    {"A4u", {210, 297}},         {"A5u", {148, 210}},
      {"630x297", {630, 297}}, {"0.5x20000", {0.5, 20000}}, {"297.5x210.25", {297.5, 210.25}}};
  for (const auto& [name, size] : cases) {
    const auto found = sheetNamed(name);
    ASSERT_TRUE(found.has_value()) << name;
    EXPECT_EQ(found->width, size.width) << name;
    EXPECT_EQ(found->height, size.height) << name;
  }
}

TEST(ToolSheetNames, AreNoOthers) {
  for (const char* const name :
       {"",        "A",     "A6",    "a4",    "A4 ", "A4U",   "A44",  "uA4",
        "x",       "630x",  "x297",  "0x5",   "5x0", "-5x5",  "5x-5", "20001x5",
        "5x20001", "nanx5", "infx5", "5x5x5", "5X5", "5 x 5", "+5x5", "0x1p4"}) {
    EXPECT_FALSE(sheetNamed(name).has_value()) << name;
  }
}

TEST(ToolSheetLayout, PutsTheMiddleOfTheDrawingInTheMiddleOfItsRoom) {
  DrawOptions options;
  options.sheet = SheetSize{420, 297};
  options.scale = 10.0;
  const Sheet sheet(contentsOf(1000, 2000, 3000, 2600), options);
  EXPECT_EQ(sheet.scale(), 10.0);
  const PlanePoint middle = sheet.place({2000, 2300, 0});
  EXPECT_NEAR(middle.x, 210.0, kClose);
  EXPECT_NEAR(middle.y, (297.0 + 20.0) / 2.0, kClose)
      << "above the strip of 12 and its margin of 8";
  EXPECT_NEAR(sheet.place({3000, 2300, 0}).x - middle.x, 100.0, kClose);
  EXPECT_NEAR(sheet.place({2000, 2600, 0}).y - middle.y, 30.0, kClose);
  options.title = Title::kNone;
  const Sheet bare(contentsOf(1000, 2000, 3000, 2600), options);
  EXPECT_NEAR(bare.place({2000, 2300, 0}).y, 148.5, kClose);
}

TEST(ToolSheetLayout, IsASheetAroundTheDrawingWhereOnlyTheScaleIsGiven) {
  DrawOptions options;
  options.scale = 20.0;
  const Sheet sheet(contentsOf(0, 0, 2000, 1000), options);
  EXPECT_NEAR(sheet.width(), 100 + 2 * kMargin, kClose);
  EXPECT_NEAR(sheet.height(), 50 + 2 * kMargin + kTitleHeight + kMargin, kClose);
  EXPECT_NEAR(sheet.place({0, 0, 0}).x, kMargin, kClose);
  EXPECT_NEAR(sheet.place({0, 1000, 0}).y, sheet.height() - kMargin, kClose);
  SheetContents around = contentsOf(0, 0, 2000, 1000);
  around.around = 5.0;
  EXPECT_NEAR(Sheet(around, options).width(), 100 + 10 + 2 * kMargin, kClose);
  EXPECT_NEAR(Sheet(around, options).place({0, 0, 0}).x, kMargin + 5.0, kClose);
}

TEST(ToolSheetLayout, TakesTheScaleOfTheLetteringWhereItFitsOnTheGivenSheet) {
  DrawOptions options;
  options.sheet = SheetSize{420, 297};
  EXPECT_EQ(Sheet(contentsOf(0, 0, 10000, 5000, 62.5), options).scale(), 25.0);
  EXPECT_EQ(Sheet(contentsOf(0, 0, 11000, 5000, 62.5), options).scale(), 50.0);
  EXPECT_EQ(Sheet(contentsOf(0, 0, 1000, 500), options).scale(), 2.5) << "no lettering: what fits";
}

TEST(ToolSheetLayout, TakesTheLargestUsualScaleToTheLastMillimetre) {
  DrawOptions options;
  options.sheet = SheetSize{420, 297};
  const double width = 420 - 2 * kMargin;
  const double height = 297 - 3 * kMargin - kTitleHeight;
  EXPECT_EQ(Sheet(contentsOf(0, 0, 10 * width, 10), options).scale(), 10.0);
  EXPECT_EQ(Sheet(contentsOf(0, 0, 10 * width + 1, 10), options).scale(), 20.0);
  EXPECT_EQ(Sheet(contentsOf(0, 0, 10, 10 * height), options).scale(), 10.0);
  EXPECT_EQ(Sheet(contentsOf(0, 0, 10, 10 * height + 1), options).scale(), 20.0);
  options.title = Title::kNone;
  EXPECT_EQ(Sheet(contentsOf(0, 0, 10, 10 * height + 1), options).scale(), 10.0);
  EXPECT_EQ(Sheet(contentsOf(0, 0, 10, 10 * (height + 20) + 1), options).scale(), 20.0);
}

TEST(ToolSheetLayout, TakesTheSmallestSheetAtTheScaleOfTheLettering) {
  const auto sizeOf = [](double width, double height) {
    const Sheet sheet(contentsOf(0, 0, width, height, 2.5), DrawOptions{});
    EXPECT_EQ(sheet.scale(), 1.0);
    return std::pair(sheet.width(), sheet.height());
  };
  using Size = std::pair<double, double>;
  EXPECT_EQ(sizeOf(281, 174), Size(297, 210)) << "to the last millimetre";
  EXPECT_EQ(sizeOf(282, 174), Size(420, 297));
  EXPECT_EQ(sizeOf(194, 261), Size(210, 297)) << "upright before the next size";
  EXPECT_EQ(sizeOf(195, 261), Size(420, 297)) << "too high for A4, too wide for A4 upright";
  EXPECT_EQ(sizeOf(195, 262), Size(297, 420));
  EXPECT_EQ(sizeOf(1173, 805), Size(1189, 841));
  EXPECT_EQ(sizeOf(800, 1150), Size(841, 1189));
  EXPECT_EQ(sizeOf(1174, 806), Size(1174 + 16, 806 + 36)) << "no usual sheet is large enough";
}

TEST(ToolSheetLayout, HasRoomInsideThePaperAndAboveTheStrip) {
  DrawOptions options;
  options.sheet = SheetSize{420, 297};
  const Sheet sheet(contentsOf(0, 0, 100, 100), options);
  EXPECT_TRUE(sheet.hasTitle());
  EXPECT_GT(sheet.room().least.x, 0.0);
  EXPECT_GT(sheet.room().least.y, kMargin + kTitleHeight);
  EXPECT_LT(sheet.room().most.x, 420.0);
  EXPECT_LT(sheet.room().most.y, 297.0);
  options.title = Title::kNone;
  const Sheet bare(contentsOf(0, 0, 100, 100), options);
  EXPECT_FALSE(bare.hasTitle());
  EXPECT_LT(bare.room().least.y, kMargin);
}

TEST(ToolSheetLayout, SeesEachPlaneFromItsSide) {
  const std::pair<Plane, PlanePoint> cases[] = {
      {Plane::kXY, {1, 2}}, {Plane::kXZ, {1, 3}}, {Plane::kYZ, {2, 3}}};
  for (const auto& [plane, seen] : cases) {
    DrawOptions options;
    options.plane = plane;
    const Sheet natural = Sheet::natural(options);
    EXPECT_EQ(natural.place({1, 2, 3}), seen);
    EXPECT_EQ(natural.direction({1, 2, 3}), seen);
  }
}

TEST(ToolSheetLayout, TakesTheUnitOfTheDrawing) {
  for (const LengthUnit& unit : kLengthUnits) {
    DrawOptions options;
    options.unit = &unit;
    options.scale = 50.0;
    const double millimetres = unit.millimetres(1.0);
    const Sheet sheet(contentsOf(0, 0, 5000, 2000), options);
    EXPECT_NEAR(sheet.width(), 100 + 2 * kMargin, kClose) << "contents are in millimetres";
    EXPECT_NEAR(sheet.factor(), millimetres / 50.0, kClose) << unit.name;
    EXPECT_NEAR(sheet.unit(), millimetres, kClose);
    EXPECT_NEAR(sheet.place({5000 / millimetres, 0, 0}).x - sheet.place({0, 0, 0}).x, 100.0,
                kClose);
    EXPECT_NEAR(Sheet::natural(options).factor(), millimetres, kClose);
  }
}

TEST(ToolSheetLayout, IsASheetAlsoForNothing) {
  const Sheet sheet(SheetContents{}, DrawOptions{});
  EXPECT_EQ(sheet.width(), 420.0);
  EXPECT_EQ(sheet.height(), 297.0);
  EXPECT_GT(sheet.scale(), 0.0);
  EXPECT_TRUE(isFinite(sheet.place({0, 0, 0})));
  const Sheet point(contentsOf(5, 5, 5, 5), DrawOptions{});
  EXPECT_EQ(point.scale(), 1.0);
  EXPECT_NEAR(point.place({5, 5, 0}).x, 210.0, kClose);
}

TEST(ToolSheetBox, GrowsByWhatItIncludes) {
  SheetBox box = SheetBox::none();
  EXPECT_TRUE(box.isEmpty());
  box.include(SheetBox::none());
  EXPECT_TRUE(box.isEmpty());
  box.include(PlanePoint{3, 4});
  EXPECT_FALSE(box.isEmpty());
  EXPECT_EQ(box.width(), 0.0);
  box.include(SheetBox{{-1, 6}, {0, 7}});
  EXPECT_EQ(box.least, (PlanePoint{-1, 4}));
  EXPECT_EQ(box.most, (PlanePoint{3, 7}));
  EXPECT_EQ(box.center(), (PlanePoint{1, 5.5}));
  EXPECT_EQ(box.grown(2).least, (PlanePoint{-3, 2}));
  EXPECT_EQ(box.grown(2).most, (PlanePoint{5, 9}));
}

TEST(ToolSheetBox, MeetsWhatItTouches) {
  const SheetBox box{{0, 0}, {10, 5}};
  EXPECT_TRUE(box.meets({{10, 5}, {20, 9}}));
  EXPECT_TRUE(box.meets({{2, 1}, {3, 2}}));
  EXPECT_TRUE(box.meets({{-9, -9}, {99, 99}}));
  for (const SheetBox& beside : {SheetBox{{10.1, 0}, {20, 5}}, SheetBox{{-9, 0}, {-0.1, 5}},
                                 SheetBox{{0, 5.1}, {10, 9}}, SheetBox{{0, -9}, {10, -0.1}}}) {
    EXPECT_FALSE(box.meets(beside)) << beside.least.x << ' ' << beside.least.y;
    EXPECT_FALSE(beside.meets(box));
  }
}

}  // namespace

}  // namespace quorvan::tool
