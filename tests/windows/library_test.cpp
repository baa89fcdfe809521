// The library as a host finds it: loaded and freed at run time, with its resources.

#include <gtest/gtest.h>
#include <objbase.h>
#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

#include <tests/support/saved_file.h>

namespace quorvan::test {
namespace {

class Library {
 public:
  Library() : m_module(::LoadLibraryA(QUORVAN_LIBRARY)) {}
  ~Library() {
    if (m_module != nullptr) {
      ::FreeLibrary(m_module);
    }
  }
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  [[nodiscard]] HMODULE module() const { return m_module; }

  template <class Function>
  Function* function(const char* name) const {
    Function* found = nullptr;
    const FARPROC symbol = ::GetProcAddress(m_module, name);
    std::memcpy(&found, &symbol, sizeof found);
    return found;
  }

 private:
  HMODULE m_module;
};

using StartFiling = void(const wchar_t*);
using ExportLine = void(double, double, double, double, double, double, unsigned long);
using EndFiling = void(const wchar_t*, long, const wchar_t*, int);

// A whole life of the library in its host; with `write` it also writes a file.
void loadAndFree(bool write) {
  const Library library;
  ASSERT_NE(library.module(), nullptr) << ::GetLastError();
  if (!write) {
    return;
  }
  library.function<StartFiling>("startFiling")(L"life.xml");
  library.function<ExportLine>("exportLine")(0, 0, 0, 1, 0, 0, 7);
  library.function<EndFiling>("endFiling")(L"2025", 1, L"B12", 42);
}

// The threads of a host: none with COM, or with one of both kinds of apartments.
void loadAndFreeOnThread(int kind) {
  std::thread([kind] {
    const bool com = kind % 3 != 0;
    if (com) {
      ::CoInitializeEx(nullptr, kind % 3 == 1 ? COINIT_APARTMENTTHREADED : COINIT_MULTITHREADED);
    }
    loadAndFree(kind % 10 == 0);
    if (com && kind % 3 == 1) {
      ::CoUninitialize();
    }
  }).join();
}

// What a process runs out of.
struct Usage {
  int handles;
  DWORD threadLocals;
  std::size_t bytes;
};

int openHandles() {
  constexpr std::uintptr_t kEnd = 0x10000;
  int open = 0;
  for (std::uintptr_t handle = 4; handle < kEnd; handle += 4) {
    DWORD flags = 0;
    if (::GetHandleInformation(reinterpret_cast<HANDLE>(handle), &flags) != 0) {
      ++open;
    }
  }
  return open;
}

Usage usage() {
  Usage now{};
  now.handles = openHandles();
  now.threadLocals = ::TlsAlloc();  // the lowest free one
  ::TlsFree(now.threadLocals);
  MEMORY_BASIC_INFORMATION region{};
  for (const char* at = nullptr; ::VirtualQuery(at, &region, sizeof region) != 0;
       at = static_cast<const char*>(region.BaseAddress) + region.RegionSize) {
    if (region.State == MEM_COMMIT && region.Type == MEM_PRIVATE) {
      now.bytes += region.RegionSize;
    }
  }
  return now;
}

TEST(Library, IsLoadedAndFreedAThousandTimesWithoutGrowth) {
  for (int i = 0; i < 100; ++i) {
    loadAndFreeOnThread(i);
  }
  const Usage before = usage();
  for (int i = 0; i < 1000; ++i) {
    loadAndFreeOnThread(i);
  }
  const Usage after = usage();
  EXPECT_EQ(::GetModuleHandleA("quorvan.dll"), nullptr);
  EXPECT_LE(after.handles, before.handles + 2);
  EXPECT_LE(after.threadLocals, before.threadLocals);
  EXPECT_LE(after.bytes, before.bytes + 1000000);
}

TEST(Library, IsFreedWithAFileOpenAndSavesIt) {
  {
    const Library library;
    ASSERT_NE(library.module(), nullptr);
    library.function<StartFiling>("startFiling")(L"open.xml");
    library.function<ExportLine>("exportLine")(0, 0, 0, 1, 0, 0, 7);
  }
  EXPECT_NE(savedBytes("open.xml").find("<CKtZantoLine"), std::string::npos);
}

// Entry 13 of block 969 of the string table.
constexpr int kPrompt = 15501;
constexpr int kBlockSize = 16;
const LPCWSTR kStringTable = MAKEINTRESOURCEW(6);
const LPCWSTR kPromptBlock = MAKEINTRESOURCEW(kPrompt / kBlockSize + 1);

BOOL CALLBACK addLanguage(HMODULE /*module*/, LPCWSTR /*type*/, LPCWSTR /*name*/, WORD language,
                          LONG_PTR languages) {
  reinterpret_cast<std::vector<int>*>(languages)->push_back(language);
  return TRUE;
}

TEST(Library, HoldsThePromptInFrenchOnly) {
  const Library library;
  ASSERT_NE(library.module(), nullptr);
  std::vector<int> languages;
  ::EnumResourceLanguagesW(library.module(), kStringTable, kPromptBlock, addLanguage,
                           reinterpret_cast<LONG_PTR>(&languages));
  EXPECT_EQ(languages, std::vector<int>{1036});

  const HRSRC found = ::FindResourceExW(library.module(), kStringTable, kPromptBlock, 1036);
  ASSERT_NE(found, nullptr);
  const auto* entry =
      static_cast<const wchar_t*>(::LockResource(::LoadResource(library.module(), found)));
  for (int i = 0; i < kPrompt % kBlockSize; ++i) {
    entry += 1 + *entry;
  }
  EXPECT_EQ(
      std::wstring(entry + 1, *entry),
      L"Un probl\u00E8me syst\u00E8me est survenu ! Il semble que vous n'ayez pas une version "
      L"r\u00E9cente de MSXML. Il est conseill\u00E9 de r\u00E9installer Meridal qui fera alors "
      L"une mise \u00E0 jour automatique.");
}

void expectVersion(const char* path, int type) {
  DWORD ignored = 0;
  const DWORD size = ::GetFileVersionInfoSizeA(path, &ignored);
  ASSERT_NE(size, 0U);
  std::vector<std::byte> info(size);
  ASSERT_NE(::GetFileVersionInfoA(path, 0, size, info.data()), 0);
  void* value = nullptr;
  UINT length = 0;
  ASSERT_NE(
      ::VerQueryValueW(info.data(), L"\\StringFileInfo\\040904B0\\ProductName", &value, &length),
      0);
  EXPECT_STREQ(static_cast<const wchar_t*>(value), L"Quorvan");
  ASSERT_NE(::VerQueryValueW(info.data(), L"\\", &value, &length), 0);
  const auto* fixed = static_cast<const VS_FIXEDFILEINFO*>(value);
  EXPECT_EQ(fixed->dwFileType, static_cast<DWORD>(type));
  EXPECT_GE(HIWORD(fixed->dwFileVersionMS), 1);
}

TEST(Library, TellsItsVersion) {
  expectVersion(QUORVAN_LIBRARY, VFT_DLL);
}

#ifdef QUORVAN_PROGRAM
TEST(Program, TellsItsVersion) {
  expectVersion(QUORVAN_PROGRAM, VFT_APP);
}
#endif

}  // namespace
}  // namespace quorvan::test
