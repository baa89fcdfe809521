// One element on its way through a file.
#pragma once

#include <filesystem>
#include <string>

#include <tests/elements/element_models.h>
#include <tests/support/saved_file.h>
#include <tests/support/transfer_text.h>
#include <quorvan/filer/filer.h>

namespace quorvan::test {

inline constexpr const char* kFile = "element.xml";
inline constexpr const wchar_t* kFileName = L"element.xml";

/// Writes the element into a new file and gives the result of writing.
template <class Element>
int writeAlone(Element& element) {
  std::filesystem::remove(kFile);
  CKtFiler filer;
  filer.newFiler(kFileName);
  const int result = element.fileOut(&filer);
  filer.closeFiler();
  return result;
}

/// The bytes of a file with nothing but the element.
template <class Element>
std::string savedAlone(Element element) {
  writeAlone(element);
  return savedBytes(kFile);
}

/// Reads the element from a file with these class elements and gives the result of reading.
template <class Element>
int readFrom(const std::string& elements, Element& element) {
  writeBytes(kFile, transferFile(elements));
  CKtFiler filer;
  filer.newFiler(kFileName);
  return element.fileIn(&filer);
}

/// Reads the element from a class element with these items.
template <class Element>
int readItems(const std::string& items, Element& element) {
  return readFrom(classElement(ElementModel<Element>::kClassName, 1, items), element);
}

}  // namespace quorvan::test
