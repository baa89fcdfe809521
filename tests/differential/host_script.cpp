#include <tests/differential/host_script.h>

#include <array>
#include <filesystem>

#include <tests/differential/script_values.h>
#include <quorvan/elements/line.h>
#include <quorvan/elements/straight_bar.h>
#include <quorvan/export/export.h>
#include <quorvan/filer/filer.h>

namespace quorvan::test {

namespace {

// The arguments that bars have in common; of few values, so that equal bars meet.
struct Bar {
  explicit Bar(Random& random)
      : grade(randomGrade(random)),
        adherence(randomGrade(random)),
        reference(random.below(3)),
        diameter(random.below(2) * 4 + 8),
        hidden(random.oneIn(2)) {
    for (double& number : at) {
      number = random.below(3);
    }
  }

  CString grade;
  CString adherence;
  long reference;
  double diameter;
  bool hidden;
  std::array<double, 13> at{};
};

void exportOneBar(int kind, const Bar& b) {
  const auto& n = b.at;
  std::array<double, 3> xs = {n[0], n[1], n[2]};
  std::array<double, 3> ys = {n[3], n[4], n[5]};
  std::array<double, 3> zs = {n[6], n[7], n[8]};
  switch (kind) {
    case 0:
      return exportBarStraight(n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7], true, false, n[8],
                               n[9], b.grade, b.adherence, b.reference, b.diameter, b.hidden);
    case 1:
      return exportBarPolygon(3, xs.data(), ys.data(), zs.data(), n[9], n[10], true, n[11], n[12],
                              b.grade, b.adherence, b.reference, b.diameter, b.hidden);
    case 2:
      return exportLBar(n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7], n[8], n[9], n[10], n[11],
                        n[12], b.grade, b.adherence, b.reference, b.diameter, b.hidden);
    case 3:
      return exportUBar(n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7], n[8], n[9], n[10], n[11],
                        n[12], b.grade, b.adherence, b.reference, b.diameter, b.hidden);
    case 4:
      return exportPin(n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7], n[8], n[9], b.grade,
                       b.adherence, b.reference, b.diameter, b.hidden);
    case 5:
      return exportPointBar(n[0], n[1], n[2], b.grade, b.adherence, b.reference, b.diameter,
                            b.hidden);
    case 6:
      return exportStirrup(n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7], b.grade, b.adherence,
                           b.reference, b.diameter, b.hidden);
    case 7:
      return exportFrameRect(n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7], n[8], n[9], n[10],
                             b.grade, b.adherence, b.reference, b.diameter, b.hidden);
    default:
      return exportFrameCirc(n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7], n[8], n[9], b.grade,
                             b.adherence, b.reference, b.diameter, b.hidden);
  }
}

// A series of at least two frames: a single one is more than the library takes.
void pushSeries(Random& random, const Bar& bar) {
  constexpr std::array<const wchar_t*, 3> kClasses = {L"CKtZantoStraightBar", L"CKtZantoFrameRect",
                                                      L"CKtZantoStirrup"};
  const CString className = random.of(kClasses);
  const int viewPoint = random.below(2);
  const long key = random.below(1000);
  const int count = 2 + random.below(3);
  for (int k = 0; k < count; ++k) {
    pushRepartitionFrameRect(k * 200.0, bar.at[0], bar.at[1], k * 200.0, bar.at[2] + 500, 0,
                             className, bar.at[3], bar.at[4], bar.grade, bar.adherence,
                             bar.reference, bar.diameter, bar.hidden, key, viewPoint, k);
  }
}

void exportGraphic(Random& random) {
  std::array<double, 6> n{};
  for (double& number : n) {
    number = randomDouble(random);
  }
  const auto color = static_cast<unsigned long>(random.below(256));
  const CString text = randomText(random);
  const int count = random.below(5) - 1;
  switch (random.below(6)) {
    case 0:
      return exportLine(n[0], n[1], n[2], n[3], n[4], n[5], color);
    case 1:
      return exportCircle(n[0], n[1], n[2], n[3], color);
    case 2:
      return exportText(text, n[0], n[1], n[2], n[3], color, 1, 2, n[4]);
    case 3:
      return exportMesh(text, text, n[0], n[1], n[2], count, n.data(), n.data() + 1, n.data() + 2);
    case 4:
      return exportFilledPolygon(count, n.data(), n.data() + 1, n.data() + 2, color);
    default:
      return exportFormwork(count, n.data(), n.data() + 1, n.data() + 2, n.data(), n.data() + 1,
                            n.data() + 2);
  }
}

void exportSomething(Random& random) {
  const int kind = random.below(20);
  if (kind < 8) {
    exportGraphic(random);
  } else if (kind < 17) {
    const int ofBar = random.below(9);
    exportOneBar(ofBar, Bar(random));
  } else if (kind < 19) {
    pushSeries(random, Bar(random));
  } else if (random.oneIn(2)) {
    stopFiling();
  } else {
    restartFiling();
  }
}

// Reads every element of the class, as a reader does; that saves the file again.
template <class Element>
void readAll(const char* name, Transcript& transcript) {
  {
    CKtFiler filer;
    filer.newFiler(CString(L"host.xml"));
    int more = 1;
    while (more != 0) {
      Element element;
      more = transcript.attempt(name, [&] { return element.fileIn(&filer); });
    }
  }
  transcript.savedFile("host.xml");
}

}  // namespace

void runHostScript(Random& random, Transcript& transcript) {
  if (random.oneIn(2)) {
    std::filesystem::remove("host.xml");
  }
  startFiling(L"host.xml");
  for (int calls = random.below(25); calls > 0; --calls) {
    transcript.attempt("export", [&] {
      exportSomething(random);
      return 0;
    });
  }
  // One after the other: compilers differ in which argument they evaluate first.
  const long servicePack = randomLong(random);
  const CString drawingName = randomText(random);
  transcript.attempt("endFiling", [&] {
    endFiling(L"2025", servicePack, drawingName, 42);
    return 0;
  });
  transcript.savedFile("host.xml");
  transcript.savedFile("TempFiler.xml");
  readAll<CKtZantoLine>("line", transcript);
  readAll<CKtZantoStraightBar>("straight bar", transcript);
}

}  // namespace quorvan::test
