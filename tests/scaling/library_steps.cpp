// Opens, reads, searches and saves drawings of every shape at two sizes, for measure.sh to count.
// Arguments: the shapes to take, by a part of their names; all of them without.
#include <cstring>
#include <functional>
#include <string>

#include <tests/scaling/drawing_shapes.h>
#include <tests/scaling/measured_step.h>
#include <tests/support/read_everything.h>
#include <tests/support/transfer_text.h>
#include <quorvan/export/export.h>

namespace quorvan::test {
namespace {

constexpr const char* kFile = "shape.xml";
constexpr const wchar_t* kPath = L"shape.xml";

// Every element of every class, each until there is none of it left.
void readAll(CKtFiler& filer) {
  forEveryElementClass([&]<class Element>() {
    Element element;
    try {
      // What is still unread of the class counts one more, read or not.
      while (element.fileIn(&filer) != 0 || filer.getLastUsedIndex() > 1) {}
    } catch (const _com_error&) {  // NOLINT(bugprone-empty-catch): a node is missing
    }
  });
}

// Searches for hidden bars that the drawing does not hold; some drawings stop the first.
void searchForBars(std::size_t count) {
  try {
    for (std::size_t i = 0; i < count; ++i) {
      const double x = -1 - static_cast<double>(i);
      exportBarStraight(x, 0, 0, 1, 0, 0, 1, 1, true, true, 9, 9, L"B500B", L"Ha", 7, 12, true);
    }
  } catch (const _com_error&) {  // NOLINT(bugprone-empty-catch): an item of its own kind
  }
}

void takeSteps(const DrawingShape& shape, std::size_t size) {
  writeBytes(kFile, shape.make(size));
  const auto step = [&](const char* name, const std::function<void()>& action) {
    takeMeasuredStep(shape.name, name, size, action);
  };
  CKtFiler filer;
  step("open", [&] { filer.newFiler(kPath); });
  step("read", [&] { readAll(filer); });
  step("save", [&] { filer.closeFiler(); });
  writeBytes(kFile, shape.make(size));
  startFiling(kPath);
  step("search", [] { searchForBars(10); });
  startFiling(L"");  // lets go of it
}

}  // namespace
}  // namespace quorvan::test

int main(int count, char** arguments) {
  for (const quorvan::test::DrawingShape& shape : quorvan::test::drawingShapes()) {
    bool isWanted = count == 1;
    for (int i = 1; i < count; ++i) {
      isWanted = isWanted || std::strstr(shape.name, arguments[i]) != nullptr;
    }
    if (isWanted) {
      quorvan::test::takeSteps(shape, shape.size);
      quorvan::test::takeSteps(shape, 4 * shape.size);
    }
  }
  return 0;
}
