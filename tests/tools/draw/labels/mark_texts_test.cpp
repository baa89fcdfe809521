// Texts that are the mark of a bar.
#include <tools/draw/labels/mark_texts.h>

#include <gtest/gtest.h>

#include <tests/tools/drawn_elements.h>
#include <tests/tools/loaded_file.h>

namespace quorvan::tool {

namespace {

struct MarkCase {
  const char* text;
  std::int64_t mark;
  bool isBare;
  double diameter;  // 0 for none
};

TEST(ToolMarkTexts, AreReadAsDetailersWriteThem) {
  const MarkCase cases[] = {{"(3)", 3, false, 0},
                            {" ( 3 ) ", 3, false, 0},
                            {"(12) 5 HA16 e=20", 12, false, 0},
                            {"3", 3, true, 0},
                            {" 42 ", 42, true, 0},
                            {"rep. 3", 3, false, 0},
                            {"Rep.3", 3, false, 0},
                            {"REP 3", 3, false, 0},
                            {"rep\u00E8re 17", 17, false, 0},
                            {"r\u00E9p. 3", 3, false, 0},
                            {"n\u00B0 3", 3, false, 0},
                            {"N\u00B03", 3, false, 0},
                            {"n\u00BA 3", 3, false, 0},
                            {"No. 3", 3, false, 0},
                            {"pos. 3", 3, false, 0},
                            {"Position 3", 3, false, 0},
                            {"mark 3", 3, false, 0},
                            {"Mk 3", 3, false, 0},
                            {"5 cadres HA8 e=15 (rep. 3)", 3, false, 0},
                            {"cadres: n\u00B0 3, 12 HA", 3, false, 0},
                            {"3 HA 12", 3, false, 12},
                            {"3 HA 12 e=20", 3, false, 12},
                            {"3 HA12 L=3.20", 3, false, 12},
                            {"3 \u00F8 12", 3, false, 12},
                            {"3 \u00D812", 3, false, 12},
                            {"3 \u230012", 3, false, 12},
                            {"3 dia 12", 3, false, 12},
                            {"3 H12-200", 3, false, 12},
                            {"3 T16", 3, false, 16},
                            {"3 HA 12.5", 3, false, 12.5},
                            {"3 R8", 3, false, 8},
                            {"3 Dx8", 3, false, 8},
                            {"999999", 999999, true, 0},
                            {"0", 0, true, 0}};
  for (const MarkCase& one : cases) {
    const auto found = markIn(one.text);
    ASSERT_TRUE(found.has_value()) << one.text;
    EXPECT_EQ(found->mark, one.mark) << one.text;
    EXPECT_EQ(found->isBareNumber, one.isBare) << one.text;
    EXPECT_EQ(found->diameter.value_or(0), one.diameter) << one.text;
  }
}

// The number before the bar is how many there are, wherever the mark says that it is one.
TEST(ToolMarkTexts, AreNotCountsWhereAMarkIsWrittenAsOne) {
  const MarkCase cases[] = {{"3 HA12 (1)", 1, false, 0},
                            {"3 HA12 ( 1 )", 1, false, 0},
                            {"3 HA12(1) e=20", 1, false, 0},
                            {"12 HA20 e=15 (1)", 1, false, 0},
                            {"2x3 HA12 (1)", 1, false, 0},
                            {"3 HA12 rep. 1", 1, false, 0},
                            {"3 HA12 rep 1", 1, false, 0},
                            {"3HA12 rep.1", 1, false, 0},
                            {"3 HA12 REP\u00C8RE 1", 1, false, 0},
                            {"3 HA12 n\u00B0 1", 1, false, 0},
                            {"3 HA12 pos. 1", 1, false, 0},
                            {"3 dia 12 mark 1", 1, false, 0},
                            {"3 H12-01-200", 1, false, 12},
                            {"3H12-01-200", 1, false, 12},
                            {"3 H12-01", 1, false, 12},
                            {"3 R8-01-3 x 200, 150", 1, false, 8},
                            {"3 H9.5-01", 1, false, 9.5},
                            {"H12-01", 1, false, 12},
                            {"3 H12-123-200", 123, false, 12}};
  for (const MarkCase& one : cases) {
    const auto found = markIn(one.text);
    ASSERT_TRUE(found.has_value()) << one.text;
    EXPECT_EQ(found->mark, one.mark) << one.text;
    EXPECT_FALSE(found->isBareNumber) << one.text;
    EXPECT_EQ(found->diameter.value_or(0), one.diameter) << one.text;
  }
}

TEST(ToolMarkTexts, AreNoOthers) {
  for (const char* const text : {"",          " ",
                                 "()",        "(",
                                 "(3",        "(a)",
                                 "3.5",       "3,5",
                                 "-3",        "3 x 200",
                                 "3x200",     "3 m",
                                 "1:25",      "B12",
                                 "C30/37",    "norm. 3",
                                 "norm 3",    "3 HB 12",
                                 "3 HA",      "3 HA x",
                                 "1000000",   "e=20",
                                 "rep.",      "rep. a",
                                 "mark",      "preparation 3",
                                 "compos. 3", "12/05/2024",
                                 "3-3",       "A-A",
                                 "+3.20",     "section 3",
                                 "notes 3",   "\u00F812"}) {
    EXPECT_FALSE(markIn(text).has_value()) << text;
  }
}

// The texts of a drawing at 1:1, asked for a bar from (0, 0) to (1000, 0).
class DrawnMarks {
 public:
  explicit DrawnMarks(const std::string& elements) : m_loaded(test::documentOf(elements)) {}

  [[nodiscard]] bool name(std::int64_t mark, double diameter = 12.0) const {
    const Sheet sheet = Sheet::natural({});
    const BarList list = makeBarList({&m_loaded.file()}, {});
    return MarkTexts(m_loaded.file(), sheet, BarsByMark(list))
        .name(mark, diameter, {0, 0}, {1000, 0});
  }

 private:
  test::LoadedFile m_loaded;
};

std::string markText(const std::string& contents, double x, double y, double height = 10.0) {
  return test::textOf({.contents = contents, .at = {x, y, 0}, .height = height});
}

TEST(ToolMarkTexts, NameABarWithinThirtyHeights) {
  for (const auto& [x, y] : {std::pair(500.0, 299.0), std::pair(500.0, -299.0),
                             std::pair(-299.0, 0.0), std::pair(1299.0, 0.0)}) {
    EXPECT_TRUE(DrawnMarks(markText("(3)", x, y)).name(3)) << x << ' ' << y;
  }
  for (const auto& [x, y] :
       {std::pair(500.0, 301.0), std::pair(500.0, -301.0), std::pair(-301.0, 0.0),
        std::pair(1301.0, 0.0), std::pair(1250.0, 250.0)}) {
    EXPECT_FALSE(DrawnMarks(markText("(3)", x, y)).name(3)) << x << ' ' << y;
  }
  EXPECT_TRUE(DrawnMarks(markText("(3)", 500, 301, 11)).name(3)) << "larger letters reach farther";
}

TEST(ToolMarkTexts, NameTheMarkAndDiameterThatTheySay) {
  EXPECT_FALSE(DrawnMarks(markText("(3)", 500, 20)).name(4));
  EXPECT_TRUE(DrawnMarks(markText("3 HA 12", 500, 20)).name(3, 12));
  EXPECT_FALSE(DrawnMarks(markText("3 HA 12", 500, 20)).name(3, 14));
  EXPECT_TRUE(DrawnMarks(markText("3 HA 12", 500, 20)).name(3, 12.4)) << "as it is rounded";
  EXPECT_FALSE(DrawnMarks(markText("3 HA 12", 500, 20)).name(3, 12.6));
  EXPECT_TRUE(DrawnMarks(markText("3 HA 16", 500, 20) + markText("3 HA 12", 500, 40)).name(3, 12));
  EXPECT_TRUE(DrawnMarks(markText("(3)", 5e5, 20) + markText("(3)", 500, 40)).name(3));
}

// "H12-200" are bars of mark 200, or bars of 12 every 200.
TEST(ToolMarkTexts, OfALongNumberBehindADashAreMarksThatThereAre) {
  const std::string text = markText("3 H12-200", 500, 20);
  const auto barOfMark = [](long mark, double diameter) {
    return test::barOf({.points = {{0, 0, 0}, {1000, 0, 0}}, .diameter = diameter, .mark = mark});
  };
  EXPECT_TRUE(DrawnMarks(text).name(3));
  EXPECT_FALSE(DrawnMarks(text).name(200));
  EXPECT_TRUE(DrawnMarks(text + barOfMark(200, 12)).name(200));
  EXPECT_FALSE(DrawnMarks(text + barOfMark(200, 12)).name(3)) << "there are three of them";
  EXPECT_TRUE(DrawnMarks(text + barOfMark(200, 16)).name(3));
  EXPECT_TRUE(DrawnMarks(markText("H12-200", 500, 20) + barOfMark(200, 12)).name(200));
  EXPECT_FALSE(DrawnMarks(markText("H12-200", 500, 20)).name(200));
}

TEST(ToolMarkTexts, OfANumberAloneNeedACircleRoundThem) {
  const std::string centred =
      test::textOf({.contents = "3", .at = {500, 50, 0}, .height = 10, .across = 1, .upwards = 1});
  EXPECT_FALSE(DrawnMarks(centred).name(3));
  EXPECT_TRUE(DrawnMarks(centred + test::circleOf({500, 50, 0}, 12)).name(3));
  EXPECT_TRUE(DrawnMarks(centred + test::circleOf({502, 49, 0}, 12)).name(3)) << "nearly";
  EXPECT_FALSE(DrawnMarks(centred + test::circleOf({520, 50, 0}, 12)).name(3)) << "beside it";
  EXPECT_FALSE(DrawnMarks(centred + test::circleOf({500, 50, 0}, 4)).name(3)) << "smaller than it";
  EXPECT_FALSE(DrawnMarks(centred + test::circleOf({500, 50, 0}, 200)).name(3)) << "a column";
  EXPECT_TRUE(DrawnMarks(markText("3", 495, 45) + test::circleOf({500, 50, 0}, 12)).name(3))
      << "at the lower left of its letters";
}

TEST(ToolMarkTexts, AreKnownByTheirMark) {
  const test::LoadedFile loaded(test::documentOf(markText("(3)", 1e6, 0) + markText("7", 0, 0)));
  const MarkTexts marks(loaded.file(), Sheet::natural({}), {});
  EXPECT_TRUE(marks.has(3));
  EXPECT_FALSE(marks.has(7)) << "a number without a circle";
  EXPECT_FALSE(marks.has(5));
}

}  // namespace

}  // namespace quorvan::tool
