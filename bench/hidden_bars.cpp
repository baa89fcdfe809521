#include <bench/hidden_bars.h>

#include <quorvan/export/export.h>
#include <quorvan/quorvan.h>
#include <quorvan/text/numbers.h>

#include <filesystem>
#include <stdexcept>
#include <unordered_set>

#include <bench/measure.h>

namespace bench {

namespace {

// Bar i; every second one repeats the bar before the middle of those so far.
std::size_t valueOf(std::size_t i) {
  return i % 2 == 0 ? i : (i / 4) * 2;
}

CKtZantoStraightBar makeBar(std::size_t i) {
  const auto x = static_cast<double>(valueOf(i)) * 0.125;
  CKtZantoStraightBar bar;
  bar.setPoint1(CKtPnt3D(x, 100.5, 0));
  bar.setPoint2(CKtPnt3D(x, 6100.25, 0));
  bar.setHookLength1(150);
  bar.setHookLength2(150);
  bar.setHook1Up(true);
  bar.setHookAngle1(90);
  bar.setHookAngle2(135);
  bar.setSteelGrade(L"B500B");
  bar.setAdherence(L"Ha");
  bar.setDiameter(12);
  bar.setReference(static_cast<long>(valueOf(i) % 500));
  bar.setHidden(true);
  return bar;
}

void writeOthers(CKtFiler& filer, std::size_t others) {
  CKtZantoLine line;
  for (std::size_t i = 0; i < others; ++i) {
    line.SetEndPoint(CKtPnt3D(static_cast<double>(i), 0, 0));
    line.fileOut(&filer);
  }
}

double measureSearches(std::size_t bars, std::size_t others, const std::string& folder) {
  CKtFiler filer;
  filer.newFiler((folder + "/hidden-bars.xml").c_str());
  writeOthers(filer, others);
  double total = 0;
  std::size_t written = 0;
  for (std::size_t i = 0; i < bars; ++i) {
    CKtZantoStraightBar bar = makeBar(i);
    CKtPatternFiler pattern;
    pattern.newFiler((folder + "/pattern.xml").c_str());
    bar.fileOut(&pattern);
    int found = 0;
    total += seconds([&] { found = filer.seek(&pattern); });
    pattern.newFiler(L"");  // nothing to save
    if (found == -1) {
      bar.fileOut(&filer);
      ++written;
    }
  }
  filer.newFiler(L"");
  if (written != (bars + 1) / 2) {
    throw std::runtime_error("the search found the wrong bars");
  }
  return total;
}

double measureExports(std::size_t bars, std::size_t others, const std::string& folder) {
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder);
  std::filesystem::remove("hidden-export.xml");
  startFiling(L"hidden-export.xml");
  for (std::size_t i = 0; i < others; ++i) {
    exportLine(0, 0, 0, static_cast<double>(i), 0, 0, 7);
  }
  const double total = seconds([&] {
    for (std::size_t i = 0; i < bars; ++i) {
      const auto x = static_cast<double>(valueOf(i)) * 0.125;
      exportBarStraight(x, 100.5, 0, x, 6100.25, 0, 150, 150, true, false, 90, 135, L"B500B", L"Ha",
                        static_cast<long>(valueOf(i) % 500), 12, true);
    }
  });
  endFiling(L"25.1", 0, L"hidden bars", 0);
  std::filesystem::remove("hidden-export.xml");
  std::filesystem::current_path(before);
  return total;
}

// The bar's values as the file would hold them, one text.
std::string keyOf(std::size_t i) {
  const double values[] = {
      static_cast<double>(valueOf(i)) * 0.125, 100.5, 0, 6100.25, 150, 90, 135, 12};
  std::string key = "B500B Ha True False True";
  char text[quorvan::kFixed7Capacity];
  for (const double value : values) {
    key.push_back(' ');
    key.append(text, quorvan::formatFixed7(text, value));
  }
  return key;
}

}  // namespace

HiddenBarTimes measureHiddenBars(std::size_t bars, std::size_t others, const std::string& folder) {
  return {measureSearches(bars, others, folder), measureExports(bars, others, folder)};
}

double measureHashSet(std::size_t bars) {
  std::unordered_set<std::string> known;
  return seconds([&] {
    for (std::size_t i = 0; i < bars; ++i) {
      known.insert(keyOf(i));
    }
  });
}

}  // namespace bench
