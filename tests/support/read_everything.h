// Every element class, read from one file.
#pragma once

#include <quorvan/elements/element_classes.h>
#include <quorvan/quorvan.h>

namespace quorvan::test {

/// Reads up to `most` elements of the class with one object, as a reader in a hurry does, whatever
/// the results: one of 0 says only that something was missing.
template <class Element>
void readElements(CKtFiler& filer, int most) {
  Element element;
  for (int i = 0; i < most; ++i) {
    element.fileIn(&filer);
  }
  const Element copy(element);
  element = copy;
}

/// Calls `read`, a template over the element class, for each class.
template <class Read>
void forEveryElementClass(const Read& read) {
#define QUORVAN_READ(name, type) read.template operator()<type>();
  QUORVAN_ELEMENT_CLASSES(QUORVAN_READ)
#undef QUORVAN_READ
}

/// Reads up to `most` elements of every class. True when nothing but E_POINTER was raised, as it is
/// for a missing node.
inline bool readsEverything(CKtFiler& filer, int most) {
  bool isStated = true;
  forEveryElementClass([&]<class Element>() {
    try {
      readElements<Element>(filer, most);
    } catch (const _com_error& error) {
      isStated = isStated && error.Error() == E_POINTER;
    }
  });
  return isStated;
}

}  // namespace quorvan::test
