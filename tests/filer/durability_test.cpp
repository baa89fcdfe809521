// Whether saving waits until the file is on the disk.

#include <tests/filer/filer_test.h>

#include <quorvan/xml/embedded/files/file_calls.h>

namespace quorvan::test {
namespace {

int syncs = 0;
int renames = 0;

// Counts what goes to the disk, and what is put in the place of something.
class Durability : public FilerTest {
 protected:
  Durability() {
    syncs = 0;
    renames = 0;
#ifdef _WIN32
    m_calls.moveFile = [](const wchar_t* from, const wchar_t* to, DWORD flags) {
      ++renames;
      return embedded::systemFileCalls().moveFile(from, to, flags);
    };
    m_calls.flushFileBuffers = [](HANDLE file) {
      ++syncs;
      return embedded::systemFileCalls().flushFileBuffers(file);
    };
#else
    m_calls.rename = [](const char* from, const char* to) {
      ++renames;
      return embedded::systemFileCalls().rename(from, to);
    };
    m_calls.fsync = [](int file) {
      ++syncs;
      return embedded::systemFileCalls().fsync(file);
    };
#endif
    embedded::setFileCalls(m_calls);
  }
  ~Durability() override { embedded::setFileCalls(embedded::systemFileCalls()); }

 private:
  embedded::FileCalls m_calls = embedded::systemFileCalls();
};

TEST_F(Durability, ADrawingIsOnTheDiskWhenItsFilerIsClosed) {
  CKtFiler filer;
  filer.newFiler(kPath);
  EXPECT_EQ(filer.closeFiler(), 1);
#ifdef _WIN32
  EXPECT_EQ(syncs, 1);  // the file; its folder with the replacement
#else
  EXPECT_EQ(syncs, 2);  // the file and its folder
#endif
}

// It is deleted a moment later.
TEST_F(Durability, APatternIsNotWaitedFor) {
  CKtPatternFiler pattern;
  pattern.newFiler(kPatternPath);
  EXPECT_EQ(pattern.closeFiler(), 1);
  EXPECT_EQ(syncs, 0);
  EXPECT_TRUE(fileExists(kPatternPath));
}

TEST_F(Durability, APatternIsWrittenInItsPlaceWhereThereIsNothingToLose) {
  for (const int expected : {0, 1}) {
    CKtPatternFiler pattern;
    pattern.newFiler(kPatternPath);
    EXPECT_EQ(pattern.closeFiler(), 1);
    EXPECT_EQ(renames, expected);
    EXPECT_TRUE(fileExists(kPatternPath));
  }
}

}  // namespace
}  // namespace quorvan::test
