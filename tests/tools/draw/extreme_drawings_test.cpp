// Numbers that no drawing has, in every place where a number stands: the picture costs no more than
// others do.
#ifndef _WIN32

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdint>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include <tests/tools/sample.h>
#include <tests/tools/tool_run.h>

namespace {

using quorvan::test::runTool;

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kIsSanitized = true;
#else
constexpr bool kIsSanitized = false;
#endif

const char* const kExtremes[] = {"0",   "-0",  "1e5",    "1e7",  "1e18",   "1e300",  "1e400",
                                 "nan", "inf", "4e-324", "-1e7", "-1e300", "179e306"};

const char* const kOutputs[] = {"extreme.svg", "extreme.html",
#ifdef QUORVAN_HAS_CAIRO
                                "extreme.png", "extreme.pdf"
#endif
};

const char* const kListOutputs[] = {"extreme-list.html",
#ifdef QUORVAN_HAS_CAIRO
                                    "extreme-list.pdf"
#endif
};

bool isNumber(const std::string& text) {
  return !text.empty() && text.find_first_not_of("+-.0123456789") == std::string::npos;
}

// The sample, with any of the extremes in every tenth place or so.
std::string drawingWithExtremes(std::uint32_t seed) {
  constexpr std::uint32_t kOneIn = 10;
  std::mt19937 random(seed);
  std::string drawing = quorvan::test::sampleBytes();
  for (std::size_t at = drawing.find("=\"", drawing.find("<CKt")); at != std::string::npos;
       at = drawing.find("=\"", at + 2)) {
    const std::size_t close = drawing.find('"', at + 2);
    if (isNumber(drawing.substr(at + 2, close - at - 2)) && random() % kOneIn == 0) {
      drawing.replace(at + 2, close - at - 2, kExtremes[random() % std::size(kExtremes)]);
    }
  }
  return drawing;
}

// Each element of the sample once for each number in it, with the extreme in its place.
std::string drawingWith(const std::string& extreme) {
  const std::string sample = quorvan::test::sampleBytes();
  std::string elements;
  for (std::size_t begin = sample.find("<CKt"); begin != std::string::npos;) {
    const std::string name = sample.substr(begin + 1, sample.find(' ', begin) - begin - 1);
    const std::size_t end = sample.find("</" + name + '>', begin) + name.size() + 3;
    const std::string element = sample.substr(begin, end - begin);
    for (std::size_t at = element.find("=\"", element.find("><")); at != std::string::npos;
         at = element.find("=\"", at + 2)) {
      const std::size_t close = element.find('"', at + 2);
      if (isNumber(element.substr(at + 2, close - at - 2))) {
        elements += element.substr(0, at + 2) + extreme + element.substr(close);
      }
    }
    begin = sample.find("<CKt", end);
  }
  return "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><Document>" + elements + "</Document>";
}

struct PictureCost {
  int status = -1;
  double seconds = 0.0;
  double megabytes = 0.0;
};

PictureCost costOf(const std::vector<std::string>& arguments) {
  const pid_t child = ::fork();
  if (child == 0) {
    ::_exit(runTool(arguments).status);
  }
  int status = 0;
  rusage used = {};
  ::wait4(child, &status, 0, &used);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1,
          seconds(used.ru_utime) + seconds(used.ru_stime),
          static_cast<double>(used.ru_maxrss) / 1024.0};
}

// Of the program as it ships; a build that is not optimised takes longer.
#ifdef NDEBUG
constexpr double kMostSeconds = 2.0;
#else
constexpr double kMostSeconds = 20.0;
#endif
constexpr double kMostMegabytes = 256.0;

void expectUsual(const std::vector<std::string>& arguments) {
  const PictureCost cost = costOf(arguments);
  EXPECT_EQ(cost.status, 0) << arguments[3];
  EXPECT_LT(cost.seconds, kMostSeconds) << arguments[3];
  EXPECT_TRUE(kIsSanitized || cost.megabytes < kMostMegabytes) << arguments[3] << cost.megabytes;
}

class ToolExtremeDrawings : public testing::TestWithParam<const char*> {};

TEST_P(ToolExtremeDrawings, CostNoMoreThanOthers) {
  quorvan::test::writeFile("extreme.xml", drawingWith(GetParam()));
  expectUsual({"draw", "extreme.xml", "-o", kOutputs[0], "--sheet", "A4", "--scale", "20"});
  if (!kIsSanitized) {
    for (const char* const output : kOutputs) {
      expectUsual({"draw", "extreme.xml", "-o", output});
    }
  }
}

TEST_P(ToolExtremeDrawings, CanBeListed) {
  quorvan::test::writeFile("extreme.xml", drawingWith(GetParam()));
  for (const char* const output : kListOutputs) {
    expectUsual({"bars", "extreme.xml", "-o", output});
  }
}

INSTANTIATE_TEST_SUITE_P(Values, ToolExtremeDrawings, testing::ValuesIn(kExtremes),
                         [](const auto& test) { return std::to_string(test.index); });

class ToolExtremeNumbers : public testing::TestWithParam<std::uint32_t> {};

TEST_P(ToolExtremeNumbers, CostNoMoreThanOthersTogether) {
  quorvan::test::writeFile("extreme.xml", drawingWithExtremes(GetParam()));
  for (const char* const output : kListOutputs) {
    expectUsual({"bars", "extreme.xml", "-o", output});
  }
  for (const char* const output : kOutputs) {
    expectUsual({"draw", "extreme.xml", "-o", output, "--scale", "25"});
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, ToolExtremeNumbers, testing::Range(1U, kIsSanitized ? 3U : 6U));

// A line that goes far beyond the sheet is there as far as the sheet goes.
TEST(ToolExtremeDrawing, ShowsWhatOfALineIsOnTheSheet) {
  quorvan::test::writeFile(
      "far.xml",
      R"(<Document><CKtZantoLine><Point1 X="0" Y="0" Z="0"/><Point2 X="1e18" Y="0" Z="0"/>)"
      R"(<Color long="1"/></CKtZantoLine></Document>)");
  const auto run = runTool({"draw", "far.xml", "-o", "-", "--scale", "1", "--sheet", "A4"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find("data-layer=\"lines\""), std::string::npos);
  EXPECT_LT(run.out.size(), 20000U);
}

TEST(ToolExtremeDrawing, SaysWhatItLeavesOut) {
  quorvan::test::writeFile(
      "far.xml", R"(<Document><CKtZantoCircle><Center X="0" Y="0" Z="0"/><Radius double="1e400"/>)"
                 R"(<Color long="1"/></CKtZantoCircle></Document>)");
  const auto run = runTool({"draw", "far.xml", "-o", "far.svg"});
  EXPECT_NE(run.err.find("1 element is left out"), std::string::npos) << run.err;
  EXPECT_NE(run.err.find("nothing is drawn"), std::string::npos) << run.err;
}

}  // namespace

#endif
