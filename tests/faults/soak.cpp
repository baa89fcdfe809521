// soak [SESSIONS [SEED]]: random host sessions with start, exports, stop, restart, pushes, end and
// reading back, among which files, memory or nothing fail at random. Ends with 1 when a drawing was
// lost or memory grew.
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>

#include <tests/differential/random.h>
#include <tests/support/working_folder.h>
#include <tests/xml/embedded/allocation_faults.h>
#include <tests/xml/embedded/file_faults.h>
#include <quorvan/elements/line.h>
#include <quorvan/export/export.h>
#include <quorvan/filer/filer.h>
#include <quorvan/platform/com_error.h>
#include <quorvan/platform/message_box.h>

namespace quorvan::test {
namespace {

constexpr const wchar_t* kPath = L"drawing.xml";

int messages = 0;

int countMessage(const wchar_t* /*text*/, unsigned int /*type*/, unsigned int /*helpContext*/) {
  ++messages;
  return 1;
}

void require(bool condition, const std::string& what) {
  if (!condition) {
    throw std::logic_error(what);
  }
}

// Whether the call came through; only the stated errors may come out of it.
bool comesThrough(const std::function<void()>& call) {
  try {
    call();
    return true;
  } catch (const _com_error&) {
  } catch (const std::bad_alloc&) {
  } catch (const std::out_of_range&) {}
  return false;
}

class Session {
 public:
  explicit Session(Random& random) : m_random(random) {}

  void run() {
    if (m_random.oneIn(4)) {
      std::filesystem::remove("drawing.xml");
    }
    const int before = linesInFile();
    start();
    for (int calls = m_random.below(40); calls > 0; --calls) {
      exportSomething();
    }
    end();
    require(!std::filesystem::exists("TempFiler.xml"), "the scratch file is gone");
    // A line that ran out of memory half-way may be in the file too.
    const int lines = linesInFile() - before;
    require(
        lines >= m_lines && lines <= m_lines + m_failedLines,
        "lines exported: " + std::to_string(m_lines) + ", in the file: " + std::to_string(lines));
  }

 private:
  // With something failing in it now and then.
  bool attempt(const std::function<void()>& call) {
    const int chance = m_random.below(20);
    if (chance == 0) {
      const AllocationFault fault(1 + m_random.below(60), m_random.oneIn(2));
      return comesThrough(call);
    }
    if (chance == 1) {
      constexpr std::array<int, 4> kErrors = {EIO, ENOSPC, EACCES, EMFILE};
      FileFaults faults;
      faults.failAt(1 + m_random.below(20), m_random.of(kErrors), m_random.oneIn(2));
      return comesThrough(call);
    }
    return comesThrough(call);
  }

  // A file that may not be read counts as none, and would be replaced: so only memory fails here.
  void start() {
    messages = 0;
    {
      const AllocationFault fault(m_random.oneIn(4) ? 1 + m_random.below(60) : 1 << 29, false);
      startFiling(kPath);
    }
    if (messages != 0) {
      messages = 0;
      startFiling(kPath);
    }
    require(messages == 0, "the file opens");
  }

  void exportSomething() {
    const double x = m_random.below(4);
    switch (m_random.below(12)) {
      case 0:
        stopFiling();
        m_isStopped = true;
        return;
      case 1:
      case 2:
        restartFiling();
        m_isStopped = false;
        return;
      case 3:
        attempt([&] { exportText(L"t\u20ac<", x, 0, 0, 0, 7, 0, 0, 2.5); });
        return;
      case 4:
        pushSeries(x);
        return;
      case 5:
      case 6:
      case 7:
        attempt([&] {
          exportBarStraight(x, 0, 0, 100, 0, 0, 10, 10, true, false, 90, 90, L"B500", L"Ha",
                            m_random.below(3), 12, m_random.oneIn(2));
        });
        return;
      default:
        exportALine(x);
    }
  }

  void exportALine(double x) {
    const bool isDone = attempt([&] { exportLine(x, 0, 0, 1, 1, 1, 7); });
    if (m_isStopped) {
      return;
    }
    m_lines += isDone ? 1 : 0;
    m_failedLines += isDone ? 0 : 1;
  }

  void pushSeries(double x) {
    const int frames = 1 + m_random.below(4);
    for (int k = 0; k < frames; ++k) {
      attempt([&] {
        pushRepartitionFrameRect(k * 200.0, x, 0, k * 200.0, 500, 0, L"CKtZantoStraightBar", 10, 90,
                                 L"B500", L"Ha", 1, 12, false, 5, m_random.below(2), k);
      });
    }
  }

  void end() {
    const auto call = [] { endFiling(L"2025", 1, L"Plan", 42); };
    if (attempt(call) || comesThrough(call)) {
      return;
    }
    stopFiling();
    require(comesThrough(call), "a stopped filing ends");
    // What a series of one frame left behind does not reach the next filing.
    messages = 0;
  }

  static int linesInFile() {
    if (!std::filesystem::exists("drawing.xml")) {
      return 0;
    }
    messages = 0;
    CKtFiler filer;
    require(filer.newFiler(kPath) == 1 && messages == 0, "the file can be read");
    int lines = 0;
    while (filer.beginClass(L"CKtZantoLine") == 1) {
      ++lines;
    }
    filer.closeFiler();
    return lines;
  }

  Random& m_random;
  bool m_isStopped = false;
  int m_lines = 0;
  int m_failedLines = 0;
};

long residentKilobytes() {
  std::ifstream status("/proc/self/status");
  std::string word;
  while (status >> word) {
    if (word == "VmRSS:") {
      long kilobytes = 0;
      status >> kilobytes;
      return kilobytes;
    }
  }
  return 0;
}

int soak(int count, std::uint64_t seed) {
  setMessageBoxHook(&countMessage);
  constexpr int kWarmUp = 200;
  long resident = 0;
  for (int session = 0; session < count; ++session) {
    Random random(seed + static_cast<std::uint64_t>(session));
    try {
      Session(random).run();
    } catch (const std::logic_error& error) {
      std::cerr << "session " << seed + static_cast<std::uint64_t>(session) << ": " << error.what()
                << '\n';
      return 1;
    }
    if (session == kWarmUp) {
      resident = residentKilobytes();
    }
  }
  const long growth = residentKilobytes() - resident;
  std::cout << count << " sessions; memory " << resident << " kB after " << kWarmUp << " of them, "
            << growth << " kB more at the end\n";
#if defined(__SANITIZE_ADDRESS__)
  return 0;  // the sanitizer keeps freed memory for a while
#else
  constexpr long kMostGrowth = 16 * 1024;
  return resident != 0 && growth > kMostGrowth ? 1 : 0;
#endif
}

}  // namespace
}  // namespace quorvan::test

int main(int argc, char** argv) {
  const int count = argc > 1 ? std::atoi(argv[1]) : 1000;
  const std::uint64_t seed = argc > 2 ? std::strtoull(argv[2], nullptr, 10) : 1;
  const quorvan::test::WorkingFolder folder("soak");
  return quorvan::test::soak(count, seed);
}
