// Files of hostile size and hostile content, opened as a host opens them: the result is the stated
// one, nothing but the file is opened, and memory and time follow the size of the file.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <set>
#include <string>

#include <tests/faults/stage.h>
#include <quorvan/filer/filer.h>
#include <quorvan/platform/embedded/file_calls.h>

namespace quorvan::test {
namespace {

using embedded::systemFileCalls;

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kMeasuresMemory = false;  // the sanitizer's own memory outweighs ours
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr bool kMeasuresMemory = false;
#else
constexpr bool kMeasuresMemory = true;
#endif
#else
constexpr bool kMeasuresMemory = true;
#endif

constexpr const char* kFile = "hostile.xml";

struct Cost {
  double seconds = 0;  // of the processor
  double megabytes = 0;
  int result = -1;  // whether the content was taken: an element "Taken" could be opened
};

double secondsOf(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

// Opens the file in a process of its own.
Cost costOfOpening() {
  const pid_t child = ::fork();
  if (child == 0) {
    // On the heap and never destroyed: destroying it would save.
    auto* const filer = new CKtFiler;
    const int opened = filer->newFiler(L"hostile.xml");
    ::_exit(opened == 1 ? filer->beginClass(L"Taken") : 2);
  }
  int status = 0;
  rusage used = {};
  EXPECT_EQ(::wait4(child, &status, 0, &used), child);
  EXPECT_TRUE(WIFEXITED(status)) << "ended by signal " << WTERMSIG(status);
  return {secondsOf(used.ru_utime) + secondsOf(used.ru_stime),
          static_cast<double>(used.ru_maxrss) / 1024, WEXITSTATUS(status)};
}

// Writes a file of `size` units, whatever a unit is.
using Make = std::function<void(std::ofstream& file, std::size_t size)>;

Cost openMade(const Make& make, std::size_t size) {
  {
    std::ofstream file(kFile, std::ios::binary | std::ios::trunc);
    make(file, size);
  }
  return costOfOpening();
}

void repeat(std::ofstream& file, const std::string& text, std::size_t times) {
  for (std::size_t i = 0; i < times; ++i)
    file << text;
}

struct Attack {
  const char* name;
  std::size_t size;
  bool isTaken;  // else it is like no file
  Make make;
};

std::vector<Attack> attacks() {
  return {
      {"depth", 1'000'000, false,
       [](std::ofstream& file, std::size_t size) {
         repeat(file, "<a>", size);
         repeat(file, "</a>", size);
       }},
      {"attributes", 1'000'000, false,
       [](std::ofstream& file, std::size_t size) {
         file << "<D><Taken/><a";
         for (std::size_t i = 0; i < size; ++i)
           file << " a" << i << "=''";
         file << "/></D>";
       }},
      {"long element name", 10'000'000, true,
       [](std::ofstream& file, std::size_t size) {
         const std::string name(size, 'n');
         file << "<D><Taken/><" << name << "/></D>";
       }},
      {"long attribute name", 10'000'000, true,
       [](std::ofstream& file, std::size_t size) {
         const std::string name(size, 'n');
         file << "<D><Taken/><a " << name << "='1'/></D>";
       }},
      {"long value", wantsLongTests() ? 100'000'000U : 10'000'000U, true,
       [](std::ofstream& file, std::size_t size) {
         file << "<D><Taken/><a string=\"" << std::string(size, 'v') << "\"/></D>";
       }},
      {"long instruction", wantsLongTests() ? 100'000'000U : 10'000'000U, true,
       [](std::ofstream& file, std::size_t size) {
         file << "<D><Taken/><?p " << std::string(size, 'v') << "?></D>";
       }},
      {"many names", 300'000, true,
       [](std::ofstream& file, std::size_t size) {
         file << "<D><Taken/>";
         for (std::size_t i = 0; i < size; ++i)
           file << "<n" << i << "/>";
         file << "</D>";
       }},
      {"many references", 1'000'000, true,
       [](std::ofstream& file, std::size_t size) {
         file << "<D><Taken/><a string=\"";
         repeat(file, "&#38;", size);
         file << "\"/></D>";
       }},
      {"many comments", 500'000, true,
       [](std::ofstream& file, std::size_t size) {
         file << "<D><Taken/>";
         repeat(file, "<!---->", size);
         file << "</D>";
       }},
      {"unclosed start tags", 1'000'000, false,
       [](std::ofstream& file, std::size_t size) { repeat(file, "<a ", size); }},
      {"unclosed comment", 5'000'000, false,
       [](std::ofstream& file, std::size_t size) { file << "<D><!--" << std::string(size, '-'); }},
      {"many entities", 100'000, false,
       [](std::ofstream& file, std::size_t size) {
         file << "<!DOCTYPE D [<!ENTITY e '" << std::string(size, 'x') << "'>]><D><Taken/>";
         repeat(file, "&e;", size);
         file << "</D>";
       }},
  };
}

TEST(HostileInput, CostsNoMoreMemoryThanItsSizeAllows) {
  const Cost empty = openMade([](std::ofstream&, std::size_t) {}, 0);
  for (const Attack& attack : attacks()) {
    const Cost cost = openMade(attack.make, attack.size);
    const double input = static_cast<double>(std::filesystem::file_size(kFile)) / 1024 / 1024;
    EXPECT_EQ(cost.result, attack.isTaken ? 1 : 0) << attack.name;
    if (kMeasuresMemory) {
      EXPECT_LT(cost.megabytes - empty.megabytes, 50 * input + 16) << attack.name << ' ' << input;
    }
  }
}

TEST(HostileInput, TakesTimeInProportionToItsSize) {
  for (const Attack& attack : attacks()) {
    // The best of a few: another program's load makes a run longer, never shorter.
    constexpr int kRuns = 3;
    double small = 1e9;
    double large = 1e9;
    for (int i = 0; i < kRuns; ++i) {
      small = std::min(small, openMade(attack.make, attack.size / 8).seconds);
      large = std::min(large, openMade(attack.make, attack.size).seconds);
      if (large < 8 * 3 * std::max(small, 0.01))
        break;
    }
    EXPECT_LT(large, 8 * 3 * std::max(small, 0.01)) << attack.name << ' ' << small;
  }
}

// --- what is opened --------------------------------------------------------------------------

std::set<std::string>& openedFiles() {
  static std::set<std::string> files;
  return files;
}

// Every file that the library opens, it opens through this table; it has no other call into the
// system that takes a name or an address.
TEST(HostileInput, NothingIsOpenedBesideTheFile) {
  std::ofstream("secret.txt") << "secret";
  std::ofstream("secret.dtd") << "<!ENTITY e 'secret'>";
  const std::string here = std::filesystem::current_path().string();
  for (const std::string& where :
       {std::string("secret.txt"), here + "/secret.txt", "file://" + here + "/secret.txt",
        std::string("http://127.0.0.1:9/secret.txt"), std::string("ftp://127.0.0.1:9/secret.txt"),
        std::string("//127.0.0.1/share/secret.txt"), std::string("/dev/stdin")}) {
    for (const std::string& doctype :
         {"<!DOCTYPE D [<!ENTITY e SYSTEM \"" + where + "\">]><D><Taken/>&e;</D>",
          "<!DOCTYPE D [<!ENTITY e PUBLIC \"p\" \"" + where + "\">]><D><Taken/>&e;</D>",
          "<!DOCTYPE D [<!ENTITY % e SYSTEM \"" + where + "\">%e;]><D><Taken/></D>",
          "<!DOCTYPE D SYSTEM \"" + where + "\"><D><Taken/></D>",
          "<!DOCTYPE D PUBLIC \"p\" \"" + where + "\"><D><Taken/></D>",
          "<?xml-stylesheet href=\"" + where +
              "\"?><D xmlns:xi=\"http://www.w3.org/2001/XInclude\">"
              "<xi:include href=\"" +
              where + "\"/></D>",
          "<D xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
          "xsi:noNamespaceSchemaLocation=\"" +
              where + "\"/>"}) {
      std::ofstream(kFile, std::ios::binary | std::ios::trunc) << doctype;
      openedFiles().clear();
      embedded::FileCalls calls = systemFileCalls();
      calls.open = [](const char* path, int flags, mode_t mode) {
        openedFiles().insert(path);
        return systemFileCalls().open(path, flags, mode);
      };
      embedded::setFileCalls(calls);
      {
        CKtFiler filer;
        EXPECT_EQ(filer.newFiler(L"hostile.xml"), 1);
        // Only reading: what is saved goes elsewhere.
        EXPECT_EQ(openedFiles(), std::set<std::string>{kFile}) << doctype;
        filer.closeFiler();
      }
      embedded::setFileCalls(systemFileCalls());
      for (const std::string& file : openedFiles())
        EXPECT_EQ(file.find("secret"), std::string::npos) << doctype;
      std::ifstream saved(kFile, std::ios::binary);
      const std::string bytes{std::istreambuf_iterator<char>(saved), {}};
      EXPECT_EQ(bytes.find(">secret<"), std::string::npos) << doctype;
    }
  }
}

}  // namespace
}  // namespace quorvan::test
