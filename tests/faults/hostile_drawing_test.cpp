// A real drawing, damaged in every way that one byte or one cut can damage it, read as a reader
// reads it.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include <tests/faults/stage.h>
#include <tests/support/read_everything.h>
#include <tests/support/saved_file.h>
#include <tests/support/test_data.h>
#include <tests/support/transfer_text.h>

namespace quorvan::test {
namespace {

constexpr int kElements = 4;  // of a class, more than the drawing has

std::string drawing() {
  return fileBytes(quorvan::test::dataPath("export/golden/small_drawing.xml"));
}

// Whether the file holds a drawing, to the record at its end; reads all of it.
bool isRead(const std::string& bytes) {
  Stage stage;
  std::filesystem::remove("damaged.xml");  // truncating it would wait for the disk
  writeBytes("damaged.xml", bytes);
  CKtFiler filer;
  EXPECT_EQ(filer.newFiler(L"damaged.xml"), 1);
  CKtDrawingControl record;
  const bool hasRecord = record.fileIn(&filer) == 1;
  EXPECT_TRUE(readsEverything(filer, kElements));
  EXPECT_EQ(Stage::messages(), 0);
  filer = CKtFiler();  // saves nothing
  return hasRecord;
}

// Every byte of it in the long form, else as many as there is time for, none left out at the ends.
std::size_t step(std::size_t at, std::size_t size) {
  constexpr std::size_t kEnds = 200;
  constexpr std::size_t kStep = 13;
  return wantsLongTests() || at < kEnds || at + kEnds > size ? 1 : kStep;
}

TEST(HostileDrawing, CutShortAtAnyByteIsLikeNoFile) {
  const std::string whole = drawing();
  ASSERT_TRUE(isRead(whole));
  const std::size_t end = whole.rfind('>');
  for (std::size_t size = 0; size <= end; size += step(size, end + 1)) {
    EXPECT_FALSE(isRead(whole.substr(0, size))) << size;
  }
  EXPECT_TRUE(isRead(whole.substr(0, end + 1)));
}

TEST(HostileDrawing, WithAnyByteChangedIsReadOrRefused) {
  const std::string whole = drawing();
  int read = 0;
  int refused = 0;
  for (std::size_t at = 0; at < whole.size(); at += step(at, whole.size())) {
    for (const int bits : {0x01, 0x20, 0xFF}) {
      SCOPED_TRACE(std::to_string(at) + " changed by " + std::to_string(bits));
      std::string changed = whole;
      changed[at] = static_cast<char>(changed[at] ^ bits);
      ++(isRead(changed) ? read : refused);
    }
  }
  EXPECT_GT(read, 100);
  EXPECT_GT(refused, 100);
}

}  // namespace
}  // namespace quorvan::test
