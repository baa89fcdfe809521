// A host that loads the library and lets go of it, also in the middle of a filing: unload_host
// LIBRARY. What was exported is saved all the same, also after an end that an error cut short.

#include <dlfcn.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>

#include <quorvan/export/export.h>

namespace {

class Library {
 public:
  explicit Library(const char* path) : m_handle(dlopen(path, RTLD_NOW | RTLD_LOCAL)) {
    if (m_handle == nullptr) {
      throw std::runtime_error(dlerror());
    }
  }
  ~Library() { dlclose(m_handle); }
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  template <class Function>
  [[nodiscard]] Function* function(const char* name) const {
    void* const symbol = dlsym(m_handle, name);
    if (symbol == nullptr) {
      throw std::runtime_error(dlerror());
    }
    Function* found = nullptr;
    std::memcpy(&found, &symbol, sizeof found);
    return found;
  }

 private:
  void* m_handle;
};

void expect(bool holds, const char* what) {
  if (!holds) {
    throw std::runtime_error(what);
  }
}

std::string content(const char* path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void startAndExportLine(const Library& library) {
  library.function<decltype(startFiling)>("startFiling")(L"unloaded.xml");
  library.function<decltype(exportLine)>("exportLine")(0, 0, 0, 5000, 0, 0, 7);
}

// One frame of a series that needs two.
void pushFrame(const Library& library) {
  library.function<decltype(pushRepartitionFrameRect)>("pushRepartitionFrameRect")(
      0, 0, 0, 0, 500, 0, L"CKtZantoStirrup", 0, 0, L"S", L"A", 1, 8, false, 0, 1, 0);
}

bool endRaisesOutOfRange(const Library& library) {
  try {
    library.function<decltype(endFiling)>("endFiling")(L"2025", 1, L"B12", 42);
  } catch (const std::out_of_range&) {
    return true;
  }
  return false;
}

void expectSavedByUnloading(const char* path, bool ended) {
  std::remove("unloaded.xml");
  {
    const Library library(path);
    startAndExportLine(library);
    pushFrame(library);
    if (ended) {
      expect(endRaisesOutOfRange(library), "a series of one frame raises");
    }
    expect(content("unloaded.xml").empty(), "nothing is on disk before");
  }
  expect(dlopen(path, RTLD_NOW | RTLD_NOLOAD) == nullptr, "the library is unloaded");
  const std::string saved = content("unloaded.xml");
  expect(saved.find("<CKtZantoLine ") != std::string::npos, "the line is saved");
  expect(saved.find("</Document>") != std::string::npos, "the file is whole");
  expect(saved.find("CKtZantoRepartition") == std::string::npos,
         "frames held back are not written");
  std::remove("unloaded.xml");
}

// Nothing is stopped in a library just loaded: a frame that is pushed first of all is kept.
void expectLoadedWritingOn(const char* path) {
  std::remove("unloaded.xml");
  {
    const Library library(path);
    library.function<decltype(pushRepartitionFrameRect)>("pushRepartitionFrameRect")(
        1, 2, 3, 0, 0, 0, L"CKtZantoStraightBar", 0, 0, L"S", L"A", 1, 8, false, 0, 1, 0);
    startAndExportLine(library);
    library.function<decltype(endFiling)>("endFiling")(L"2025", 1, L"B12", 42);
  }
  expect(content("unloaded.xml").find("<CKtZantoRepartition ") != std::string::npos,
         "a frame pushed first of all is kept");
  std::remove("unloaded.xml");
}

}  // namespace

int main(int count, char** arguments) {
  try {
    expect(count == 2, "usage: unload_host LIBRARY");
    expectSavedByUnloading(arguments[1], false);
    expectSavedByUnloading(arguments[1], true);
    expectLoadedWritingOn(arguments[1]);
  } catch (const std::exception& error) {
    std::cerr << "not so: " << error.what() << '\n';
    return 1;
  }
  return 0;
}
