#include <gtest/gtest.h>

#include <random>
#include <string>

#include <tools/files/position.h>

namespace {

using quorvan::tool::Position;
using quorvan::tool::PositionIndex;

std::string told(Position position) {
  return std::to_string(position.line) + ':' + std::to_string(position.column);
}

TEST(ToolPosition, CountsCharactersAndEveryKindOfLineEnd) {
  const std::string text = "a\nb\r\nc\rd\u00E9\u20ACe";
  const auto at = [&text](std::size_t place, bool isSingleByte) {
    Position position{1, 1};
    movePosition(position, text, 0, place, isSingleByte);
    return told(position);
  };
  EXPECT_EQ(at(0, false), "1:1");
  EXPECT_EQ(at(2, false), "2:1");
  EXPECT_EQ(at(5, false), "3:1");
  EXPECT_EQ(at(7, false), "4:1");
  EXPECT_EQ(at(text.size() - 1, false), "4:4");
  EXPECT_EQ(at(text.size() - 1, true), "4:7");
}

TEST(ToolPosition, IsTheSameInWhateverOrderItIsAskedFor) {
  std::mt19937 random(3);
  std::string text;
  while (text.size() < 20000) {
    static const char* const kPieces[] = {"\r\n", "\n", "\r", "\u00E9", "a line of text", "\u20AC"};
    text += kPieces[random() % std::size(kPieces)];
  }
  for (const bool isSingleByte : {false, true}) {
    PositionIndex index(text, isSingleByte);
    for (int round = 0; round < 300; ++round) {
      const std::size_t place = random() % text.size();
      Position counted{1, 1};
      movePosition(counted, text, 0, place, isSingleByte);
      ASSERT_EQ(told(index.at(place)), told(counted)) << place;
    }
  }
}

}  // namespace
