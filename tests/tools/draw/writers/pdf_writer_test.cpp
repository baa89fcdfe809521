// PDFs as files: their pages, what they keep to themselves, who paints them, and where they cannot
// be written.
#ifdef QUORVAN_HAS_CAIRO

#include <tools/draw/writers/pdf_writer.h>

#include <gtest/gtest.h>

#include <regex>

#include <tests/support/saved_file.h>
#include <tests/tools/draw/writers/written_scenes.h>
#include <tools/console/console.h>

namespace quorvan::tool {

namespace {

using test::fileBytes;
using test::sceneOfSize;

// The boxes of the pages of a PDF, in points.
std::vector<std::pair<double, double>> pagesOf(const std::string& pdf) {
  static const std::regex kBox("/MediaBox\\s*\\[\\s*0\\s+0\\s+([0-9.]+)\\s+([0-9.]+)\\s*\\]");
  std::vector<std::pair<double, double>> pages;
  for (std::sregex_iterator at(pdf.begin(), pdf.end(), kBox); at != std::sregex_iterator(); ++at) {
    pages.emplace_back(std::stod((*at)[1]), std::stod((*at)[2]));
  }
  return pages;
}

// A letter that no font has is a box with its number, which cairo paints.
Scene sceneWithText(bool hasFont) {
  Scene scene = sceneOfSize(100, 100);
  scene.shapes = {test::textAt({5, 8}, 6.0, hasFont ? "A" : "A\U000F1234")};
  return scene;
}

// A point is the 72nd part of an inch.
TEST(ToolPdf, HasPagesOfTheSizeOfTheirSheets) {
  writePdf(sceneOfSize(420, 297), "one.pdf");
  const auto one = pagesOf(fileBytes("one.pdf"));
  ASSERT_EQ(one.size(), 1U);
  EXPECT_NEAR(one[0].first, 1190.55, 0.01);
  EXPECT_NEAR(one[0].second, 841.89, 0.01);
  const std::vector<Scene> pages = {sceneOfSize(297, 210), sceneOfSize(210, 297),
                                    sceneOfSize(254, 25.4)};
  writePdf(pages, "three.pdf");
  const auto three = pagesOf(fileBytes("three.pdf"));
  ASSERT_EQ(three.size(), 3U);
  for (std::size_t i = 0; i < three.size(); ++i) {
    EXPECT_NEAR(three[i].first, pages[i].width * 72 / 25.4, 0.01) << i;
    EXPECT_NEAR(three[i].second, pages[i].height * 72 / 25.4, 0.01) << i;
  }
}

TEST(ToolPdf, SaysNothingOfTheDayOnWhichItWasMade) {
  writePdf(sceneOfSize(100, 100), "dated.pdf");
  const std::string pdf = fileBytes("dated.pdf");
  const std::size_t date = pdf.find("/CreationDate");
  ASSERT_NE(date, std::string::npos);
  EXPECT_NE(pdf.find("20000101000000", date), std::string::npos);
  EXPECT_EQ(pdf.find("/ModDate"), std::string::npos);
}

TEST(ToolPdf, IsTheSameEachTimeWhoeverPaintsIt) {
  for (const bool hasFont : {true, false}) {
    writePdf(sceneWithText(hasFont), "first.pdf");
    writePdf(sceneWithText(hasFont), "second.pdf");
    EXPECT_EQ(fileBytes("first.pdf"), fileBytes("second.pdf")) << hasFont;
  }
}

// The device is one that is always full.
TEST(ToolPdf, SaysWhyItCannotBeWrittenWhoeverPaintsIt) {
  const std::pair<const char*, const char*> cases[] = {
      {"/dev/full", "/dev/full: cannot be written: No space left on device"},
      {"nowhere/x.pdf", "nowhere/x.pdf: cannot be written: No such file or directory"}};
  for (const auto& [path, message] : cases) {
    for (const bool hasFont : {true, false}) {
      try {
        writePdf(sceneWithText(hasFont), path);
        FAIL() << path << hasFont;
      } catch (const Failure& failure) {
        EXPECT_EQ(std::string(failure.what()), message) << hasFont;
      }
    }
  }
}

#ifdef QUORVAN_HAS_QPDF

TEST(ToolPdf, IsLeftToCairoWhereALetterHasNoFont) {
  writePdf(sceneWithText(true), "letters.pdf");
  EXPECT_EQ(fileBytes("letters.pdf").find("cairo"), std::string::npos);
  writePdf(sceneWithText(false), "boxes.pdf");
  EXPECT_NE(fileBytes("boxes.pdf").find("cairo"), std::string::npos);
}

#endif

}  // namespace

}  // namespace quorvan::tool

#endif
