// What a host pays: bars, lines and hidden bars through the flat functions and back. Built for each
// system and document service, run in a folder of its own; prints one line a figure, which
// quorvan-bench reads: NAME ELEMENTS SECONDS SERVICE, the last the part of the time that was spent
// inside Windows' document service, -1 where there is none. With the argument --calls it tells
// beside each what was called there, how often an element and for how many microseconds each time.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <functional>
#include <stdexcept>
#include <string_view>

#include <bench/scratch_file.h>
#include <quorvan/export/export.h>
#include <quorvan/quorvan.h>

#ifdef QUORVAN_BENCH_SERVICE
#include <bench/service_calls.h>
#endif

namespace {

constexpr const wchar_t* kDrawing = L"drawing.xml";

bool theCallsAreTold = false;

#ifdef QUORVAN_BENCH_SERVICE
void tellCalls(const bench::ServiceCalls& calls, double seconds, int elements) {
  for (const auto& [name, cost] : calls.costs(seconds)) {
    std::fprintf(stderr, "  %-28s %8.2f %8.3f\n", name.c_str(),
                 static_cast<double>(cost.calls) / elements, cost.seconds / cost.calls * 1e6);
  }
}
#endif

// Timed by itself first, then, where there is a service, once more with its calls led through a
// clock of their own, which would cost time in the first.
void measure(const char* name, int elements, const std::function<void()>& prepare,
             const std::function<void()>& work) {
  using Clock = std::chrono::steady_clock;
  prepare();
  const Clock::time_point start = Clock::now();
  work();
  const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
  double service = -1;
#ifdef QUORVAN_BENCH_SERVICE
  prepare();
  bench::ServiceCalls calls;
  const Clock::time_point again = Clock::now();
  work();
  service = calls.share();
  if (theCallsAreTold) {
    tellCalls(calls, std::chrono::duration<double>(Clock::now() - again).count(), elements);
  }
#endif
  std::printf("%s %d %.9f %.4f\n", name, elements, seconds, service);
  std::fflush(stdout);
}

void require(bool isTrue, const char* what) {
  if (!isTrue) {
    throw std::runtime_error(what);
  }
}

void exportBar(int number, bool isHidden) {
  const double x = number * 0.125;
  exportBarStraight(x, 100.5, 0, x, 6100.25, 0, 150, 150, true, false, 90, 135, L"B500B", L"Ha",
                    number % 500, 12, isHidden);
}

void startNew() {
  std::remove("drawing.xml");
  startFiling(kDrawing);
}

void end() {
  endFiling(L"25.1", 0, L"bench", 0);
}

void writeBars(int bars) {
  for (int i = 0; i < bars; ++i) {
    exportBar(i, false);
  }
  end();
}

void writeLines(int lines) {
  for (int i = 0; i < lines; ++i) {
    exportLine(i, 0, 0, 0, i, 0, 7);
  }
  end();
}

// Every second bar repeats an earlier one.
void exportHiddenBars(int bars) {
  for (int i = 0; i < bars; ++i) {
    exportBar(i % 2 == 0 ? i : (i / 4) * 2, true);
  }
}

template <class Element>
void readAll(int elements) {
  CKtFiler filer;
  require(filer.newFiler(kDrawing) == 1, "the drawing is not opened");
  Element element;
  int found = 0;
  while (element.fileIn(&filer) != 0) {
    ++found;
  }
  require(found == elements, "not every element is read");
  filer.newFiler(L"");  // nothing to save
}

void nothing() {}

void measureAll() {
  constexpr int kBars = 2000;
  constexpr int kLines = 5000;
  measure("bars-written", kBars, startNew, [] { writeBars(kBars); });
  measure("bars-read", kBars, nothing, [] { readAll<CKtZantoStraightBar>(kBars); });
  measure("lines-written", kLines, startNew, [] { writeLines(kLines); });
  measure("lines-read", kLines, nothing, [] { readAll<CKtZantoLine>(kLines); });
  for (const int bars : {500, 2000, 8000}) {
    measure("hidden-bars", bars, startNew, [bars] { exportHiddenBars(bars); });
    end();
    readAll<CKtZantoStraightBar>((bars + 1) / 2);
  }
  std::remove("drawing.xml");
  constexpr int kFiles = 2000;
  measure("scratch-files", kFiles, nothing, [] {
    for (int i = 0; i < kFiles; ++i) {
      bench::passScratchFile();
    }
  });
}

}  // namespace

int main(int argc, char** argv) {
  try {
    theCallsAreTold = argc > 1 && std::string_view(argv[1]) == "--calls";
    measureAll();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "quorvan-bench-host: %s\n", error.what());
    return 1;
  }
  return 0;
}
