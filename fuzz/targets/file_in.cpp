// Any bytes as a file, read by every element class; saving it afterwards.
#include <string>

#include <fuzz/memory_files.h>
#include <fuzz/target.h>
#include <quorvan/quorvan.h>

using quorvan::fuzz::require;

namespace {

// One object reads them all, as a reader in a hurry does. Each class element is read once, so that
// the reading ends; a result of 0 says only that something was missing.
template <class Element>
void readAll(const CKtFiler& opened, int most) {
  CKtFiler filer(opened);
  Element element;
  try {
    for (int i = 0; i < most; ++i)
      element.fileIn(&filer);
    const Element copy(element);
    element = copy;
  } catch (const _com_error& error) {
    require(error.Error() == E_POINTER, "reading raises for a missing node alone");
  }
}

template <class... Element>
void readClasses(const CKtFiler& filer) {
  constexpr int kMost = 8;
  (readAll<Element>(filer, kMost), ...);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  quorvan::fuzz::MemoryFiles files;
  files.put("file.xml", std::string(data, data + size));
  CKtFiler filer;
  filer.newFiler(L"file.xml");
  readClasses<CKtZantoLine, CKtZantoCircle, CKtZantoText, CKtFilledPolygon, CKtZantoMesh,
              CKtZantoFormwork, CKtZantoStraightBar, CKtZantoLBar, CKtZantoUBar, CKtZantoPin,
              CKtZantoPointBar, CKtZantoPolygonBar, CKtZantoFrameRect, CKtZantoFrameCirc,
              CKtZantoStirrup, CKtZantoRepartition, CKtDrawingControl>(filer);
  return 0;
}
