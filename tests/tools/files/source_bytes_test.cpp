// The bytes of a file and its text, there and back in every encoding.
#include <tools/files/source_text.h>

#include <gtest/gtest.h>

#include <random>
#include <string>

#include <tests/support/saved_file.h>

namespace quorvan::tool {

namespace {

// UTF-16 put together unit by unit.
std::string wideBytes(const std::u16string& text, bool isBigEndian, bool hasMark) {
  std::string bytes;
  const auto append = [&bytes, isBigEndian](char16_t unit) {
    const char high = static_cast<char>(unit >> 8U);
    const char low = static_cast<char>(unit & 0xFFU);
    bytes += isBigEndian ? std::string{high, low} : std::string{low, high};
  };
  if (hasMark) {
    append(u'\uFEFF');
  }
  for (const char16_t unit : text) {
    append(unit);
  }
  return bytes;
}

const char16_t* const kWidePieces[] = {u"<D>",        u"</D>",   u"a",      u"\r\n",
                                       u"\u00e9",     u"\u20ac", u"\ufffd", u"\U0001f600",
                                       u"\U0010fffd", u"\u07ff", u"\u0800"};
const char* const kNarrowPieces[] = {"<D>",        "</D>",   "a",      "\r\n",
                                     "\u00e9",     "\u20ac", "\ufffd", "\U0001f600",
                                     "\U0010fffd", "\u07ff", "\u0800"};

TEST(ToolSourceBytes, AreTheTextAgainInEitherOrderOfUtf16) {
  std::mt19937 random(481);
  for (int round = 0; round < 100; ++round) {
    const bool isBigEndian = round % 2 == 0;
    const bool hasMark = round % 4 < 2;
    std::u16string wide = u"<?xml version=\"1.0\"?>";
    std::string plain = "<?xml version=\"1.0\"?>";
    for (std::size_t i = random() % 40; i > 0; --i) {
      const std::size_t piece = random() % std::size(kWidePieces);
      wide += kWidePieces[piece];
      plain += kNarrowPieces[piece];
    }
    const std::string bytes = wideBytes(wide, isBigEndian, hasMark);
    const SourceEncoding encoding = encodingOf(bytes);
    EXPECT_TRUE(encoding.isUtf16);
    EXPECT_EQ(encoding.isBigEndian, isBigEndian);
    EXPECT_EQ(encoding.hasMark, hasMark);
    EXPECT_EQ(encoding.name(), "UTF-16");
    EXPECT_EQ(plainText(bytes, encoding), plain);
    EXPECT_EQ(sourceBytes(plain, encoding), bytes);
  }
}

TEST(ToolSourceBytes, AreTheTextAgainByteByByte) {
  std::mt19937 random(482);
  for (const std::string head : {"", "\xEF\xBB\xBF", "<?xml version='1.0' encoding='ISO-8859-1'?>",
                                 "<?xml version='1.0' encoding='utf-8'?>"}) {
    std::string bytes = head + "<D>";
    for (int i = 0; i < 500; ++i) {
      bytes += static_cast<char>(1 + random() % 255);
    }
    const SourceEncoding encoding = encodingOf(bytes);
    EXPECT_FALSE(encoding.isUtf16);
    EXPECT_EQ(encoding.isSingleByte, head.find("8859") != std::string::npos);
    EXPECT_EQ(plainText(bytes, encoding).size(), bytes.size() - (encoding.hasMark ? 3 : 0));
    EXPECT_EQ(sourceBytes(plainText(bytes, encoding), encoding), bytes);
  }
}

TEST(ToolSourceBytes, AreWrittenAsTheyAre) {
  std::string bytes;
  for (int unit = 0; unit < 256; ++unit) {
    bytes += static_cast<char>(unit);
  }
  bytes += "\r\n\n\r\x1a end";
  writeBytes("written.bin", bytes);
  EXPECT_EQ(test::fileBytes("written.bin"), bytes);
  EXPECT_EQ(readBytes("written.bin", "written.bin"), bytes);
  writeBytes("written.bin", "");
  EXPECT_EQ(readBytes("written.bin", "written.bin"), "");
  EXPECT_THROW(writeBytes("nowhere/written.bin", "x"), Failure);
}

}  // namespace

}  // namespace quorvan::tool
