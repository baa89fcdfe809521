// What the rules find, from both sides of each border.
#include <tools/check/checker.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <sstream>

#include <tests/tools/drawn_elements.h>
#include <tests/tools/loaded_file.h>

namespace quorvan::tool {

namespace {

using test::barOf;
using test::BarParts;
using test::SeriesParts;
using Codes = std::vector<int>;

// The numbers of what is found in the file, in its order.
Codes codesIn(const std::string& bytes, const StandardSizes& sizes = europeanSizes()) {
  const test::LoadedFile loaded(bytes);
  std::ostringstream out;
  std::ostringstream err;
  Console console{out, err};
  Codes codes;
  for (const Finding& finding : checkFile(loaded.file(), sizes, console)) {
    codes.push_back(finding.kind->number);
  }
  return codes;
}

// The same for elements that a control record closes.
Codes codesOf(const std::string& elements) {
  return codesIn(test::documentOf(elements + test::controlOf("D")));
}

// Elements with the indexes that these texts are, every other thing in order.
std::string linesWithIndexes(const std::vector<std::string>& indexes) {
  std::string all;
  for (const std::string& index : indexes) {
    all +=
        "<CKtZantoLine version=\"1\"" +
        (index == "none" ? std::string() : " index=\"" + index + '"') +
        R"(><Point1 X="0" Y="0" Z="0"/><Point2 X="1" Y="0" Z="0"/><Color long="1"/></CKtZantoLine>)";
  }
  return all;
}

TEST(ToolCheckIndexes, RunFromOneWithoutAGap) {
  const std::pair<std::vector<std::string>, Codes> cases[] = {{{"1"}, {}},
                                                              {{"1", "2", "3"}, {}},
                                                              {{"0"}, {403}},
                                                              {{"2"}, {403}},
                                                              {{"-1"}, {403}},
                                                              {{"1", "3"}, {403}},
                                                              {{"1", "3", "4"}, {403}},
                                                              {{"2", "1"}, {403, 403}},
                                                              {{"1", "1"}, {402}},
                                                              {{"1", "1", "2"}, {402}},
                                                              {{"1", "2", "1"}, {402}},
                                                              {{"none"}, {401}},
                                                              {{"", "2"}, {401}},
                                                              {{"one"}, {401}},
                                                              {{"1.0"}, {401}},
                                                              {{"1x"}, {401}},
                                                              {{"none", "2"}, {}},
                                                              {{"1", "none", "3"}, {}},
                                                              {{"99999999999"}, {401}}};
  for (const auto& [indexes, expected] : cases) {
    Codes codes = expected;
    if (codes.empty() && std::ranges::find(indexes, "none") != indexes.end()) {
      codes = {401};  // and those behind it go on from where it should have been
    }
    EXPECT_EQ(codesOf(linesWithIndexes(indexes)), codes) << testing::PrintToString(indexes);
  }
}

TEST(ToolCheckIndexes, RunForEachClassByItself) {
  EXPECT_EQ(codesOf(test::lineOf({0, 0, 0}, {1, 0, 0}) + test::circleOf({0, 0, 0}, 1)), Codes{});
}

TEST(ToolCheckVersions, AreOne) {
  const auto circle = [](const std::string& version) {
    return "<CKtZantoCircle" + version + R"( index="1"><Center X="0" Y="0" Z="0"/>)" +
           R"(<Radius double="1"/><Color long="1"/></CKtZantoCircle>)";
  };
  EXPECT_EQ(codesOf(circle(" version=\"1\"")), Codes{});
  for (const char* const version : {"", " version=\"\"", " version=\"0\"", " version=\"2\"",
                                    " version=\"1.0\"", " version=\"01\"", " version=\"-1\""}) {
    EXPECT_EQ(codesOf(circle(version)), Codes{105}) << version;
  }
}

std::string circleWith(const std::string& radius) {
  return R"(<CKtZantoCircle version="1" index="1"><Center X="0" Y="0" Z="0"/>)" + radius +
         R"(<Color long="1"/></CKtZantoCircle>)";
}

TEST(ToolCheckItems, AreThereOnceOfTheirTypeAndNumbers) {
  const std::pair<const char*, Codes> cases[] = {
      {R"(<Radius double="1"/>)", {}},
      {R"(<Radius double="-1.5"/>)", {}},
      {R"(<Radius double="1.50000000000001"/>)", {}},
      {"", {201}},
      {"<Radius/>", {201}},
      {R"(<radius double="1"/>)", {201, 205}},
      {R"(<Radius long="1"/>)", {202}},
      {R"(<Radius double=""/>)", {203}},
      {R"(<Radius double="1,5"/>)", {203}},
      {R"(<Radius double="x"/>)", {203}},
      {R"(<Radius double="12x"/>)", {203}},
      {R"(<Radius double="1"/><Radius double="1"/>)", {206}},
      {R"(<Radius double="1"/><Radius double="1"/><Radius double="1"/>)", {206, 206}},
      {R"(<Radius double="1"/><Width double="1"/>)", {205}}};
  for (const auto& [radius, expected] : cases) {
    EXPECT_EQ(codesOf(circleWith(radius)), expected) << radius;
  }
}

TEST(ToolCheckItems, AreFlagsInEitherCase) {
  const auto codesFor = [](const std::string& value) {
    std::string bar = barOf({.points = {{0, 0, 0}, {9, 0, 0}}});
    const std::string from = "<Hidden string=\"False\"/>";
    return codesOf(bar.replace(bar.find(from), from.size(), "<Hidden string=\"" + value + "\"/>"));
  };
  const Codes plain = codesFor("False");
  for (const char* const value : {"True", "true", "TRUE", "False", "false", "FALSE"}) {
    EXPECT_EQ(codesFor(value), plain) << value;
  }
  for (const char* const value : {"", "1", "0", "yes", " True", "True ", "Tru"}) {
    Codes expected = plain;
    expected.insert(expected.end(), 204);
    EXPECT_TRUE(std::ranges::is_permutation(codesFor(value), expected)) << value;
  }
}

TEST(ToolCheckTexts, HoldNoLostOrControlCharacters) {
  const std::pair<const char*, Codes> cases[] = {{"plain", {}},
                                                 {"\u00E9\u20AC", {}},
                                                 {"&#9;&#10;", {}},
                                                 {"~", {}},
                                                 {"&#127;", {703}},
                                                 {"&#128;", {703}},
                                                 {"&#159;", {703}},
                                                 {"&#160;", {}},
                                                 {"&#65532;", {}},
                                                 {"&#65533;", {702}},
                                                 {"&#133; &#65533;", {702, 703}},
                                                 {"&#133; &#133;", {703}}};
  for (const auto& [contents, expected] : cases) {
    const std::string text =
        R"(<CKtZantoText version="1" index="1"><Contents string=")" + std::string(contents) +
        R"("/><Location X="0" Y="0" Z="0"/><Angle double="0"/><JustificationX long="0"/>)"
        R"(<JustificationY long="0"/><Color long="1"/><Height double="1"/></CKtZantoText>)";
    EXPECT_EQ(codesOf(text), expected) << contents;
  }
}

// A bar that is filed with the items of its class alone.
std::string whole(const BarParts& parts) {
  std::string text = barOf(parts);
  const auto drop = [&text](const std::string& name) {
    const std::size_t begin = text.find('<' + name + ' ');
    if (begin != std::string::npos) {
      text.erase(begin, text.find("/>", begin) + 2 - begin);
    }
  };
  const bool isLink = parts.className.starts_with("Frame") || parts.className == "Stirrup";
  if (isLink || parts.className == "PointBar") {
    drop("HookLength2");
    drop("HookAngle2");
  }
  if (parts.className == "PointBar") {
    drop("HookLength1");
    drop("HookAngle1");
  }
  return text;
}

BarParts barOfLength(double length, int index = 1) {
  const double y = 100.0 * (index - 1);
  return {.points = {{0, y, 0}, {length, y, 0}}, .index = index};
}

TEST(ToolCheckDiameters, AreThoseThatAreMade) {
  for (const double diameter : {4.0, 5.5, 6.0, 8.0, 9.5, 10.0, 12.0, 14.0, 16.0, 20.0, 25.0, 28.0,
                                32.0, 40.0, 50.0, 12.0000005, 11.9999995}) {
    BarParts parts = barOfLength(1000);
    parts.diameter = diameter;
    EXPECT_EQ(codesOf(whole(parts)), Codes{}) << diameter;
  }
  for (const double diameter :
       {0.0, -12.0, 3.9, 13.0, 15.0, 18.0, 22.0, 30.0, 36.0, 50.1, 1e9, 12.000002, 11.999998}) {
    BarParts parts = barOfLength(1000);
    parts.diameter = diameter;
    EXPECT_EQ(codesOf(whole(parts)), Codes{505}) << diameter;
  }
}

TEST(ToolCheckDiameters, AreHeldAgainstTheSizesThatAreGiven) {
  BarParts parts = barOfLength(1000);
  parts.diameter = 13;
  const std::string file = test::documentOf(whole(parts) + test::controlOf("D"));
  EXPECT_EQ(codesIn(file, {{10, 13}}), Codes{});
  EXPECT_EQ(codesIn(file, {{10, 12}}), Codes{505});
  EXPECT_EQ(codesIn(file, {}), Codes{}) << "without sizes there is nothing to say";
}

TEST(ToolCheckReferences, AreOfBarsOfOneLengthWithinAThousandth) {
  const auto codesFor = [](double other) {
    return codesOf(whole(barOfLength(1000)) + whole(barOfLength(other, 2)));
  };
  EXPECT_EQ(codesFor(1000), Codes{});
  EXPECT_EQ(codesFor(1001), Codes{});
  EXPECT_EQ(codesFor(999), Codes{});
  EXPECT_EQ(codesFor(1001.1), Codes{502});
  EXPECT_EQ(codesFor(998.9), Codes{502});
}

TEST(ToolCheckReferences, AreOfOneShapeSteelAndDiameter) {
  const std::string first = whole(barOfLength(1000));
  const auto codesWith = [&](auto change) {
    BarParts other = barOfLength(1000, 2);
    change(other);
    return codesOf(first + whole(other));
  };
  EXPECT_EQ(codesWith([](BarParts&) {}), Codes{});
  EXPECT_EQ(codesWith([](BarParts& bar) {
              bar.mark = 2;
              bar.diameter = 12;
            }),
            Codes{});
  EXPECT_EQ(codesWith([](BarParts& bar) { bar.diameter = 12; }), Codes{502});
  EXPECT_EQ(codesWith([](BarParts& bar) { bar.grade = "B500A"; }), Codes{502});
  EXPECT_EQ(codesWith([](BarParts& bar) { bar.adherence = "Dx"; }), Codes{502});
  EXPECT_EQ(codesWith([](BarParts& bar) { bar.isHidden = true; }), Codes{});
  EXPECT_EQ(codesWith([](BarParts& bar) {
              bar.className = "Pin";
              bar.index = 1;
            }),
            Codes{502});
  EXPECT_EQ(codesWith([](BarParts& bar) {
              bar.className = "PointBar";
              bar.points = {{0, 0, 0}};
              bar.index = 1;
            }),
            Codes{})
      << "seen end-on it may be the same";
  EXPECT_EQ(codesWith([](BarParts& bar) {
              bar.className = "PointBar";
              bar.points = {{0, 0, 0}};
              bar.index = 1;
              bar.diameter = 12;
            }),
            Codes{502});
}

// A bar of three points, and another of the same mark.
Codes codesOfTwo(const std::vector<Coordinates>& one, const std::vector<Coordinates>& other,
                 const std::string& className = "LBar") {
  BarParts first = {.className = className, .points = one};
  BarParts second = {.className = className, .points = other, .index = 2};
  return codesOf(whole(first) + whole(second));
}

TEST(ToolCheckReferences, AreOfOneShapeWhereTheLengthsAreEqual) {
  const std::vector<Coordinates> bar = {{600, 0, 0}, {0, 0, 0}, {0, 1200, 0}};
  EXPECT_EQ(codesOfTwo(bar, {{5900, 0, 0}, {5000, 0, 0}, {5000, 900, 0}}), Codes{502});
  EXPECT_EQ(codesOfTwo(bar, {{5601.7, 0, 0}, {5000, 0, 0}, {5000, 1198.3, 0}}), Codes{})
      << "a thousandth of the way";
  EXPECT_EQ(codesOfTwo(bar, {{5601.9, 0, 0}, {5000, 0, 0}, {5000, 1198.1, 0}}), Codes{502});
  EXPECT_EQ(codesOfTwo(bar, {{5000, 1200, 0}, {5000, 0, 0}, {5600, 0, 0}}), Codes{})
      << "from the other end";
  EXPECT_EQ(codesOfTwo(bar, {{4400, 0, 0}, {5000, 0, 0}, {5000, 1200, 0}}), Codes{})
      << "seen from the other side";
}

TEST(ToolCheckReferences, TurnWithinADegree) {
  const auto bentBy = [](double degrees) {
    const double angle = degrees * std::numbers::pi / 180.0;
    return std::vector<Coordinates>{
        {600, 0, 0}, {0, 0, 0}, {-1200 * std::cos(angle), 1200 * std::sin(angle), 0}};
  };
  EXPECT_EQ(codesOfTwo(bentBy(90), bentBy(89.1)), Codes{});
  EXPECT_EQ(codesOfTwo(bentBy(90), bentBy(88.9)), Codes{502});
  EXPECT_EQ(codesOfTwo(bentBy(0.5), bentBy(0), "PolygonBar"), Codes{}) << "a slight corner is none";
}

TEST(ToolCheckReferences, TurnToOneSideOrTheOther) {
  const std::vector<Coordinates> cup = {{0, 400, 0}, {0, 0, 0}, {800, 0, 0}, {800, 400, 0}};
  const std::vector<Coordinates> step = {
      {0, 2400, 0}, {0, 2000, 0}, {800, 2000, 0}, {800, 1600, 0}};
  EXPECT_EQ(codesOfTwo(cup, cup, "PolygonBar"), Codes{508});
  EXPECT_EQ(codesOfTwo(cup, step, "PolygonBar"), Codes{502});
}

TEST(ToolCheckReferences, OfRingsAreOfOneRadius) {
  const auto ringOf = [](double radius, double overlap, int index) {
    return whole({.className = "FrameCirc",
                  .points = {{0, 500.0 * index, 0}, {radius, 500.0 * index, 0}},
                  .radius = radius,
                  .overlap = overlap,
                  .index = index});
  };
  const double around = 2.0 * std::numbers::pi;
  EXPECT_EQ(codesOf(ringOf(200, 100, 1) + ringOf(200, 100, 2)), Codes{});
  EXPECT_EQ(codesOf(ringOf(200, 100, 1) + ringOf(190, 100 + 10 * around, 2)), Codes{502});
}

// Sixteen kinds of bar under one mark say enough.
TEST(ToolCheckReferences, AreToldSoOftenAndNoMore) {
  std::string bars;
  for (int i = 1; i <= 30; ++i) {
    bars += whole(barOfLength(1000.0 * i, i));
  }
  EXPECT_EQ(codesOf(bars), Codes(15, 502));
}

TEST(ToolCheckHiddenBars, AreFiledOnce) {
  BarParts hidden = barOfLength(1000);
  hidden.isHidden = true;
  const auto codesWith = [&](auto change) {
    BarParts other = hidden;
    other.index = 2;
    change(other);
    return codesOf(whole(hidden) + whole(other));
  };
  EXPECT_EQ(codesWith([](BarParts&) {}), Codes{501});
  EXPECT_EQ(codesWith([](BarParts& bar) { bar.isHidden = false; }), Codes{});
  EXPECT_EQ(codesWith([](BarParts& bar) { bar.points[0].z = 1e-6; }), Codes{});
  EXPECT_EQ(codesWith([](BarParts& bar) { bar.isUp1 = false; }), Codes{});
  EXPECT_EQ(codesOf(whole(hidden) + whole(barOfLength(1000, 2)) + whole(barOfLength(1000, 3))),
            Codes{});
}

TEST(ToolCheckEqualBars, LieOnEachOther) {
  const BarParts first = {
      .points = {{0, 0, 0}, {1000, 50, 0}}, .hookLength1 = 100, .hookAngle1 = 90};
  const auto codesWith = [&](auto change) {
    BarParts other = first;
    other.index = 2;
    change(other);
    return codesOf(whole(first) + whole(other));
  };
  const auto turn = [](BarParts& bar) {
    std::ranges::reverse(bar.points);
    std::swap(bar.hookLength1, bar.hookLength2);
    std::swap(bar.hookAngle1, bar.hookAngle2);
  };
  EXPECT_EQ(codesWith([](BarParts&) {}), Codes{508});
  EXPECT_EQ(codesWith(turn), Codes{508}) << "from the other end";
  EXPECT_EQ(codesWith([](BarParts& bar) { std::ranges::reverse(bar.points); }), Codes{})
      << "its hook is at the other end";
  EXPECT_EQ(codesWith([](BarParts& bar) { bar.points[0].x = 0.0004; }), Codes{508});
  EXPECT_EQ(codesWith([](BarParts& bar) { bar.points[0].x = 0.0006; }), Codes{});
  EXPECT_EQ(codesWith([](BarParts& bar) { bar.points[0].z = bar.points[1].z = 40; }), Codes{});
  EXPECT_EQ(codesWith([](BarParts& bar) { bar.mark = 2; }), Codes{});
  EXPECT_EQ(codesWith([](BarParts& bar) { bar.isHidden = true; }), Codes{});
}

TEST(ToolCheckEqualBars, AreFoundOfEveryClassAndEachAfterTheFirst) {
  const auto endOn = [](int index) {
    return whole({.className = "PointBar", .points = {{5, 5, 0}}, .index = index});
  };
  EXPECT_EQ(codesOf(endOn(1) + endOn(2) + endOn(3)), (Codes{508, 508}));
  const BarParts ring = {
      .className = "FrameCirc", .points = {{0, 0, 0}, {200, 0, 0}}, .radius = 200, .overlap = 50};
  BarParts other = ring;
  other.index = 2;
  EXPECT_EQ(codesOf(whole(ring) + whole(other)), Codes{508});
}

SeriesParts listsOf(std::size_t top, std::size_t bottom, std::size_t positions) {
  SeriesParts parts;
  parts.top.assign(top, 10);
  parts.bottom.assign(bottom, -10);
  parts.positions.assign(positions, 200);
  return parts;
}

TEST(ToolCheckSeries, HaveListsThatFitTogether) {
  for (std::size_t top = 0; top < 5; ++top) {
    for (std::size_t bottom = 0; bottom < 5; ++bottom) {
      for (std::size_t positions = 0; positions < 6; ++positions) {
        const bool fits = bottom == top && (positions == top || positions + 1 == top);
        EXPECT_EQ(
            codesOf(whole(barOfLength(1000)) + test::seriesOf(listsOf(top, bottom, positions))),
            fits ? Codes{} : Codes{504})
            << top << ' ' << bottom << ' ' << positions;
      }
    }
  }
}

TEST(ToolCheckSeries, RepeatABarThatIsThere) {
  const auto codesWith = [](auto change) {
    SeriesParts parts = listsOf(3, 3, 2);
    change(parts);
    return codesOf(whole(barOfLength(1000, 1)) + test::seriesOf(parts));
  };
  EXPECT_EQ(codesWith([](SeriesParts&) {}), Codes{});
  EXPECT_EQ(codesWith([](SeriesParts& series) { series.index = 2; }), Codes{503});
  EXPECT_EQ(codesWith([](SeriesParts& series) { series.index = -1; }), Codes{503});
  EXPECT_EQ(codesWith([](SeriesParts& series) { series.className = "Pin"; }), Codes{503});
  EXPECT_EQ(codesWith([](SeriesParts& series) { series.className = ""; }), Codes{503});
}

TEST(ToolCheckSeries, HaveAStep) {
  const auto codesWith = [](std::vector<double> positions) {
    SeriesParts parts = listsOf(positions.size() + 1, positions.size() + 1, 0);
    parts.positions = std::move(positions);
    return codesOf(whole(barOfLength(1000)) + test::seriesOf(parts));
  };
  EXPECT_EQ(codesWith({200}), Codes{});
  EXPECT_EQ(codesWith({0}), Codes{509});
  EXPECT_EQ(codesWith({0, 0, 0}), Codes{509});
  EXPECT_EQ(codesWith({0, 0, 150}), Codes{}) << "bars that touch";
  EXPECT_EQ(codesWith({}), Codes{}) << "a bar alone has no step";
}

TEST(ToolCheckSeries, OfBarsWithoutALineGiveAStepWithEveryBar) {
  SeriesParts parts = listsOf(2, 2, 2);
  const auto codes = [&] { return codesOf(whole(barOfLength(1000)) + test::seriesOf(parts)); };
  parts.positions = {200, 0};
  EXPECT_EQ(codes(), Codes{});
  parts.positions = {0, 0};
  EXPECT_EQ(codes(), Codes{509});
}

TEST(ToolCheckSeries, LieWhereTheDrawingIs) {
  const auto codesWith = [](auto change) {
    SeriesParts parts = listsOf(3, 3, 2);
    change(parts);
    return codesOf(whole(barOfLength(1000)) + test::seriesOf(parts));
  };
  EXPECT_EQ(codesWith([](SeriesParts& series) { series.end.x = 0.999e9; }), Codes{});
  EXPECT_EQ(codesWith([](SeriesParts& series) { series.end.x = 1.001e9; }), Codes{509});
  EXPECT_EQ(codesWith([](SeriesParts& series) { series.start.y = -1.001e9; }), Codes{509});
  EXPECT_EQ(codesWith([](SeriesParts& series) { series.bottom[1] = 1.001e9; }), Codes{509});
  EXPECT_EQ(codesWith([](SeriesParts& series) { series.end.x = series.start.x = 1e12; }),
            Codes{509})
      << "told once";
}

TEST(ToolCheckSeries, OfADrawingWithoutSizeLieAnywhere) {
  SeriesParts parts = listsOf(3, 3, 2);
  parts.end.x = 1e12;
  EXPECT_EQ(codesOf(whole(barOfLength(0)) + test::seriesOf(parts)), Codes{});
}

TEST(ToolCheckSeries, OfOneMarkLieInOneView) {
  const auto codesWith = [](auto change) {
    SeriesParts one = test::uprightBars(0, -500, 500, 4, 200);
    one.positions = {100, 200, 300};
    SeriesParts other = one;
    other.view = 3;
    change(other);
    std::string series = test::seriesOf(other);
    series.replace(series.find("index=\"1\""), 9, "index=\"2\"");
    return codesOf(whole(barOfLength(1000)) + test::seriesOf(one) + series);
  };
  EXPECT_EQ(codesWith([](SeriesParts&) {}), Codes{507});
  EXPECT_EQ(codesWith([](SeriesParts& series) {
              series.positions = {300, 200, 100};
            }),
            Codes{507})
      << "seen from the other side";
  EXPECT_EQ(codesWith([](SeriesParts& series) { series.view = 2; }), Codes{});
  EXPECT_EQ(codesWith([](SeriesParts& series) { series.positions = {200, 100, 300}; }), Codes{});
  EXPECT_EQ(codesWith([](SeriesParts& series) {
              series.top.push_back(500);
              series.bottom.push_back(-500);
              series.positions.push_back(200);
            }),
            Codes{});
}

TEST(ToolCheckControl, ClosesTheFile) {
  const std::string line = test::lineOf({0, 0, 0}, {1, 0, 0});
  const std::string control = test::controlOf("D");
  std::string second = control;
  second.replace(second.find("index=\"1\""), 9, "index=\"2\"");
  const auto codes = [](const std::string& elements) {
    return codesIn(test::documentOf(elements));
  };
  EXPECT_EQ(codes(line + control), Codes{});
  EXPECT_EQ(codes(control), Codes{});
  EXPECT_EQ(codes(line), Codes{601});
  EXPECT_EQ(codes(""), Codes{601});
  EXPECT_EQ(codes(control + line), Codes{602});
  EXPECT_EQ(codes(control + line + second), Codes{602});
  EXPECT_EQ(codes(control + second), Codes{602});
}

TEST(ToolCheckDocument, IsOfOneRootWithItsName) {
  const std::string control = test::controlOf("D");
  EXPECT_EQ(codesIn("<Document>" + control + "</Document>"), Codes{});
  EXPECT_EQ(codesIn("<document>" + control + "</document>"), Codes{103});
  EXPECT_EQ(codesIn("<!-- x --><Document>" + control + "</Document>"), Codes{102});
  EXPECT_EQ(codesIn("<Document>" + control + "</Document><!-- x -->"), Codes{});
  EXPECT_EQ(codesIn("<Document><!-- x -->" + control + "</Document>"), Codes{});
}

std::string polygonOf(int points, const std::string& size) {
  std::string text = R"(<CKtFilledPolygon version="1" index="1"><Vector size=")" + size + "\">";
  for (int i = 1; i <= points; ++i) {
    text += "<Point" + std::to_string(i) + R"( X="0" Y="0" Z="0"/>)";
  }
  return text + R"(</Vector><Color long="1"/></CKtFilledPolygon>)";
}

TEST(ToolCheckCounts, AreThoseOfTheEntries) {
  EXPECT_EQ(codesOf(polygonOf(0, "0")), Codes{});
  EXPECT_EQ(codesOf(polygonOf(3, "3")), Codes{});
  EXPECT_EQ(codesOf(polygonOf(3, "2")), Codes{301});
  EXPECT_EQ(codesOf(polygonOf(3, "4")), Codes{301});
  EXPECT_EQ(codesOf(polygonOf(3, "0")), Codes{301});
  EXPECT_EQ(codesOf(polygonOf(3, "-1")), Codes{301});
}

TEST(ToolCheckCounts, HaveSixteenBits) {
  EXPECT_EQ(codesOf(polygonOf(32767, "32767")), Codes{});
  EXPECT_EQ(codesOf(polygonOf(32768, "-32768")), Codes{302});
}

}  // namespace

}  // namespace quorvan::tool
