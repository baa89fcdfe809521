// A reader that leaves in every way there is, most of them without a word: leaving_reader LIBRARY.
// What it has open is the same afterwards, byte for byte, and nothing lies beside it.

#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <thread>

#include <quorvan/reading/read.h>

namespace {

constexpr const char* kFolder = "leaving-reader";
constexpr const char* kFile = "leaving-reader/drawing.xml";

void expect(bool holds, const std::string& what) {
  if (!holds) {
    throw std::runtime_error(what);
  }
}

std::string content() {
  std::ifstream file(kFile, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// The functions that the reader calls.
class Library {
 public:
  explicit Library(const char* path) : m_handle(dlopen(path, RTLD_NOW | RTLD_LOCAL)) {
    expect(m_handle != nullptr, "the library is loaded");
  }

  template <class Function>
  [[nodiscard]] Function* function(const char* name) const {
    void* const symbol = dlsym(m_handle, name);
    expect(symbol != nullptr, name);
    Function* found = nullptr;
    std::memcpy(&found, &symbol, sizeof found);
    return found;
  }

  // Opens the file, and goes to its first element where it can be read; it may be left open.
  QuorvanFile* readSome() const {
    QuorvanFile* file = nullptr;
    QuorvanElement* element = nullptr;
    if (function<decltype(quorvanOpenFileUtf8)>("quorvanOpenFileUtf8")(kFile, &file) ==
        QUORVAN_DONE) {
      function<decltype(quorvanNextElement)>("quorvanNextElement")(file, nullptr, &element);
    }
    return file;
  }

  void unload() const { dlclose(m_handle); }

 private:
  void* m_handle;
};

// A way to leave; it is taken in a process of its own.
struct Way {
  const char* name;
  void (*leave)(const Library& library);
};

void closing(const Library& library) {
  library.function<decltype(quorvanCloseFile)>("quorvanCloseFile")(library.readSome());
}

constexpr std::array kWays = {
    Way{"closing the file", closing},
    Way{"leaving it open and returning", [](const Library& library) { library.readSome(); }},
    Way{"exit",
        [](const Library& library) {
          library.readSome();
          std::exit(0);
        }},
    Way{"exit at once",
        [](const Library& library) {
          library.readSome();
          _exit(0);
        }},
    Way{"abort",
        [](const Library& library) {
          library.readSome();
          std::abort();
        }},
    Way{"being killed",
        [](const Library& library) {
          library.readSome();
          std::raise(SIGKILL);
        }},
    Way{"the end of its thread",
        [](const Library& library) { std::thread([&library] { library.readSome(); }).join(); }},
    Way{"unloading the library",
        [](const Library& library) {
          library.readSome();
          library.unload();
        }},
    Way{"an exception of its own that nobody catches",
        [](const Library& library) {
          library.readSome();
          throw std::logic_error("the reader's own");
        }},
};

// A form that the library would save otherwise, and one that it cannot read.
constexpr std::array kContents = {
    "<?xml version='1.0'?>\n<Document >\n <CKtZantoLine index='1'  version='1'>\n"
    "<Point1 X='1' Y='2' Z='3'/></CKtZantoLine>\n</Document>\n",
    "<Document><CKtZantoLine>"};

void expectTheSameAfter(const Way& way, const char* path, const std::string& before) {
  std::filesystem::remove_all(kFolder);
  std::filesystem::create_directory(kFolder);
  std::ofstream(kFile, std::ios::binary) << before;
  const auto time = std::filesystem::last_write_time(kFile);
  const pid_t child = fork();
  if (child == 0) {
    std::cerr.setstate(std::ios::badbit);
    way.leave(Library(path));
    std::exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  expect(content() == before, std::string("the same after ") + way.name);
  expect(std::filesystem::last_write_time(kFile) == time, std::string("not written: ") + way.name);
  const auto files = std::distance(std::filesystem::directory_iterator(kFolder), {});
  expect(files == 1, std::string("nothing beside it after ") + way.name);
}

}  // namespace

int main(int count, char** arguments) {
  try {
    expect(count == 2, "usage: leaving_reader LIBRARY");
    for (const Way& way : kWays) {
      for (const char* const before : kContents) {
        expectTheSameAfter(way, arguments[1], before);
      }
    }
    std::filesystem::remove_all(kFolder);
  } catch (const std::exception& error) {
    std::cerr << "not so: " << error.what() << '\n';
    return 1;
  }
  return 0;
}
