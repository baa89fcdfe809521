// Sequences of calls to the flat functions with any arguments: nothing but the stated errors comes
// out, and what was exported is in the file.
#include <array>
#include <stdexcept>
#include <string>

#include <fuzz/input.h>
#include <fuzz/memory_files.h>
#include <fuzz/target.h>
#include <quorvan/export/export.h>
#include <quorvan/export/filing/filing_state.h>
#include <quorvan/export/series/held_frames.h>
#include <quorvan/filer/filer.h>
#include <quorvan/platform/com_error.h>

using quorvan::fuzz::Input;
using quorvan::fuzz::require;

namespace {

constexpr int kMostPoints = 6;

struct Arguments {
  explicit Arguments(Input& input)
      : text(input.text()),
        other(input.text()),
        flag(input.below(2) == 0),
        count(input.below(kMostPoints + 2) - 1),
        number(input.number()) {
    for (double& value : at) {
      value = input.real();
    }
  }

  [[nodiscard]] bool isHidden() const { return !flag; }

  std::wstring text;
  std::wstring other;
  bool flag;
  int count;
  std::int32_t number;
  std::array<double, 2 * kMostPoints> at{};
};

void exportGraphic(int kind, Arguments& a) {
  const auto& n = a.at;
  switch (kind) {
    case 0:
      return exportCircle(n[0], n[1], n[2], n[3], static_cast<unsigned long>(a.number));
    case 1:
      return exportText(a.text.c_str(), n[0], n[1], n[2], n[3],
                        static_cast<unsigned long>(a.number), a.count, a.number, n[4]);
    case 2:
      return exportMesh(a.text.c_str(), a.other.c_str(), n[0], n[1], n[2], a.count, n.data(),
                        n.data() + 1, n.data() + 2);
    case 3:
      return exportFilledPolygon(a.count, n.data(), n.data() + 1, n.data() + 2,
                                 static_cast<unsigned long>(a.number));
    default:
      return exportFormwork(a.count, n.data(), n.data() + 1, n.data() + 2, n.data(), n.data(),
                            n.data());
  }
}

void exportBar(int kind, Arguments& a) {
  auto& n = a.at;
  const wchar_t* const grade = a.text.c_str();
  const wchar_t* const bond = a.other.c_str();
  switch (kind) {
    case 0:
      return exportBarStraight(n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7], a.flag, a.flag, n[8],
                               n[9], grade, bond, a.number, n[10], a.isHidden());
    case 1:
      return exportBarPolygon(a.count, n.data(), n.data(), n.data() + 1, n[0], n[1], a.flag, n[2],
                              n[3], grade, bond, a.number, n[4], a.isHidden());
    case 2:
      return exportLBar(n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7], n[8], n[9], n[10], n[11],
                        n[0], grade, bond, a.number, n[1], a.isHidden());
    case 3:
      return exportPin(n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7], n[8], n[9], grade, bond,
                       a.number, n[10], a.isHidden());
    case 4:
      return exportPointBar(n[0], n[1], n[2], grade, bond, a.number, n[3], a.isHidden());
    case 5:
      return exportStirrup(n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7], grade, bond, a.number,
                           n[8], a.isHidden());
    case 6:
      return exportUBar(n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7], n[8], n[9], n[10], n[11],
                        n[0], grade, bond, a.number, n[1], a.isHidden());
    case 7:
      return exportFrameRect(n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7], n[8], n[9], n[10],
                             grade, bond, a.number, n[11], a.isHidden());
    default:
      return exportFrameCirc(n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7], n[8], n[9], grade,
                             bond, a.number, n[10], a.isHidden());
  }
}

void push(Input& input, Arguments& a) {
  const wchar_t* const kClasses[] = {L"CKtZantoStraightBar", L"CKtZantoStirrup", L"CKtZantoMesh",
                                     a.text.c_str()};
  const auto& n = a.at;
  pushRepartitionFrameRect(n[0], n[1], n[2], n[3], n[4], n[5], input.pick(kClasses), n[6], n[7],
                           L"B500", L"Ha", a.number, n[8], a.isHidden(), a.count, input.below(2),
                           0);
}

// Whether the call came through.
template <class Call>
bool comesThrough(Call&& call) {
  try {
    call();
    return true;
  } catch (const _com_error&) {
  } catch (const std::out_of_range&) {}
  return false;
}

// Lines exported while writing was on, to be found again.
struct Expected {
  int lines = 0;
  bool isStopped = false;
};

void step(Input& input, Expected& expected) {
  Arguments arguments(input);
  const int kind = input.below(24);
  if (kind == 0) {
    stopFiling();
    expected.isStopped = true;
  } else if (kind < 3) {
    restartFiling();
    expected.isStopped = false;
  } else if (kind < 8) {
    exportLine(arguments.at[0], arguments.at[1], arguments.at[2], 0, 0, 0, 7);
    expected.lines += expected.isStopped ? 0 : 1;
  } else if (kind < 12) {
    push(input, arguments);
  } else if (kind < 16) {
    comesThrough([&] { exportGraphic(input.below(5), arguments); });
  } else {
    comesThrough([&] { exportBar(input.below(9), arguments); });
  }
}

void end() {
  endFiling(L"2025", 1, L"Plan", 42);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  quorvan::fuzz::MemoryFiles files;
  files.losesWhatIsSavedAs("TempFiler.xml");
  Input input(data, size);
  Expected expected;
  startFiling(L"drawing.xml");
  while (!input.isOver()) {
    step(input, expected);
  }
  if (!comesThrough(end)) {
    stopFiling();
    require(comesThrough(end), "a stopped filing can be ended");
  }
  // The next filing begins without what this one left behind.
  quorvan::groupedFrames.clear();
  quorvan::theFiler = CKtFiler();

  CKtFiler reader;
  require(reader.newFiler(L"drawing.xml") == 1, "the drawing opens");
  int lines = 0;
  while (reader.beginClass(L"CKtZantoLine") == 1) {
    ++lines;
  }
  require(lines == expected.lines, "every line that was exported is in the file");
  return 0;
}
