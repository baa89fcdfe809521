// The element classes as the tests know them.
#pragma once

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <tests/elements/element_model.h>
#include <quorvan/elements/element_classes.h>
#include <quorvan/quorvan.h>

namespace quorvan::test {

template <class Element>
using Fields = std::vector<Field<Element>>;

#define QUORVAN_MODEL(name, type)                    \
  template <>                                        \
  struct ElementModel<type> {                        \
    static constexpr const char* kClassName = #type; \
    static Fields<type> fields();                    \
  };
QUORVAN_ELEMENT_CLASSES(QUORVAN_MODEL)
#undef QUORVAN_MODEL

using BarClasses =
    testing::Types<CKtZantoStraightBar, CKtZantoLBar, CKtZantoUBar, CKtZantoPin, CKtZantoPointBar,
                   CKtZantoPolygonBar, CKtZantoFrameRect, CKtZantoFrameCirc, CKtZantoStirrup>;

template <class First, class... Others>
using TypesBehind = testing::Types<Others...>;

#define QUORVAN_NEXT(name, type) , type
using ElementClasses = TypesBehind<void QUORVAN_ELEMENT_CLASSES(QUORVAN_NEXT)>;
#undef QUORVAN_NEXT

/// Names the runs of a test after the classes.
struct ClassNames {
  template <class Element>
  static std::string GetName(int) {
    return ElementModel<Element>::kClassName;
  }
};

}  // namespace quorvan::test
