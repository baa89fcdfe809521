// Any bytes as a file, read by every element class; saving it afterwards.
#include <string>

#include <fuzz/memory_files.h>
#include <fuzz/target.h>
#include <tests/support/read_everything.h>

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr int kMost = 8;
  quorvan::fuzz::MemoryFiles files;
  files.put("file.xml", std::string(data, data + size));
  CKtFiler filer;
  filer.newFiler(L"file.xml");
  quorvan::fuzz::require(quorvan::test::readsEverything(filer, kMost),
                         "reading raises for a missing node alone");
  return 0;
}
