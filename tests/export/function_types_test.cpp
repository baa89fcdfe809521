// What hosts in other languages declare by hand: the order and the types of the arguments.

#include <gtest/gtest.h>

#include <type_traits>

#include <quorvan/export/export.h>

namespace quorvan::test {
namespace {

using Wide = const wchar_t*;
using Doubles = const double*;

template <class Function, class... Arguments>
constexpr bool kTakes = std::is_same_v<Function, void(Arguments...)>;

TEST(FunctionTypes, OfTheLifecycle) {
  EXPECT_TRUE((kTakes<decltype(startFiling), Wide>));
  EXPECT_TRUE((kTakes<decltype(stopFiling)>));
  EXPECT_TRUE((kTakes<decltype(restartFiling)>));
  EXPECT_TRUE((kTakes<decltype(endFiling), Wide, long, Wide, int>));
  EXPECT_TRUE((kTakes<decltype(exportDrawingControl), Wide, long, long, Wide>));
  EXPECT_TRUE((std::is_same_v<decltype(getModulePromptsProjectName), Wide()>));
}

TEST(FunctionTypes, OfTheGraphicElements) {
  using D = double;
  using Color = unsigned long;
  EXPECT_TRUE((kTakes<decltype(exportLine), D, D, D, D, D, D, Color>));
  EXPECT_TRUE((kTakes<decltype(exportCircle), D, D, D, D, Color>));
  EXPECT_TRUE((kTakes<decltype(exportText), Wide, D, D, D, D, Color, int, int, D>));
  EXPECT_TRUE((kTakes<decltype(exportMesh), Wide, Wide, D, D, D, int, Doubles, Doubles, Doubles>));
  EXPECT_TRUE((kTakes<decltype(exportFilledPolygon), int, Doubles, Doubles, Doubles, Color>));
  EXPECT_TRUE((
      kTakes<decltype(exportFormwork), int, Doubles, Doubles, Doubles, Doubles, Doubles, Doubles>));
}

TEST(FunctionTypes, OfTheBars) {
  using D = double;
  EXPECT_TRUE((kTakes<decltype(exportBarStraight), D, D, D, D, D, D, D, D, bool, bool, D, D, Wide,
                      Wide, long, D, bool>));
  EXPECT_TRUE((kTakes<decltype(exportBarPolygon), int, D*, D*, D*, D, D, bool, D, D, Wide, Wide,
                      long, D, bool>));
  EXPECT_TRUE((kTakes<decltype(exportLBar), D, D, D, D, D, D, D, D, D, D, D, D, D, Wide, Wide, long,
                      D, bool>));
  EXPECT_TRUE((std::is_same_v<decltype(exportUBar), decltype(exportLBar)>));
  EXPECT_TRUE(
      (kTakes<decltype(exportPin), D, D, D, D, D, D, D, D, D, D, Wide, Wide, long, D, bool>));
  EXPECT_TRUE((kTakes<decltype(exportPointBar), D, D, D, Wide, Wide, long, D, bool>));
}

TEST(FunctionTypes, OfTheLinks) {
  using D = double;
  EXPECT_TRUE((kTakes<decltype(exportStirrup), D, D, D, D, D, D, D, D, Wide, Wide, long, D, bool>));
  EXPECT_TRUE((kTakes<decltype(exportFrameRect), D, D, D, D, D, D, D, D, D, D, D, Wide, Wide, long,
                      D, bool>));
  EXPECT_TRUE((std::is_same_v<decltype(exportFrameCirc), decltype(exportPin)>));
  EXPECT_TRUE((kTakes<decltype(pushRepartitionFrameRect), D, D, D, D, D, D, Wide, D, D, Wide, Wide,
                      long, D, bool, long, int, int>));
}

}  // namespace
}  // namespace quorvan::test
