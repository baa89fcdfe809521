#include <quorvan/export/filing/scratch_search.h>

#include <new>

#include <quorvan/export/filing/filing_state.h>
#include <quorvan/filer/item_access.h>
#include <quorvan/platform/file_deletion.h>
#include <quorvan/xml/dom.h>

namespace quorvan {

namespace {

constexpr const wchar_t* kScratchPath = L"TempFiler.xml";

// Deletes the scratch file when the search begins and when it is over. It must outlive the pattern
// filer, whose destructor saves it when an error comes before closeFiler.
class ScratchFile {
 public:
  ScratchFile() : m_isFree(platform::deleteFile(kScratchPath)) {}
  ~ScratchFile() {
    if (!m_isGone) {
      platform::deleteFile(kScratchPath);
    }
  }
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;

  // One that cannot be deleted is opened, and what it holds is looked for.
  void open(CKtPatternFiler& pattern) const {
    if (m_isFree) {
      ItemAccess::openPassing(pattern, kScratchPath);
    } else {
      pattern.newFiler(kScratchPath);
    }
  }
  void close(CKtPatternFiler& pattern) { m_isGone = pattern.closeFiler() == 1 && m_isFree; }

 private:
  bool m_isFree;          // there is no file of that name
  bool m_isGone = false;  // it was deleted when it was saved
};

}  // namespace

int indexInFile(const WritePattern& writePattern) {
  ScratchFile scratch;
  CKtPatternFiler pattern;
  scratch.open(pattern);
  writePattern(pattern);
  const int found = theFiler.seek(&pattern);
  scratch.close(pattern);
  return found;
}

void clearLeftOverSearch() noexcept {
  try {
    dom::clearLeftOver(kScratchPath);
  } catch (const std::bad_alloc&) {  // NOLINT(bugprone-empty-catch): it stays for the next filing
  }
}

}  // namespace quorvan
