// The seventeen element classes as the tests know them.
#pragma once

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <tests/elements/element_model.h>
#include <quorvan/quorvan.h>

namespace quorvan::test {

template <>
struct ElementModel<CKtZantoLine> {
  static constexpr const char* kClassName = "CKtZantoLine";
  static std::vector<Field<CKtZantoLine>> fields();
};

template <>
struct ElementModel<CKtZantoCircle> {
  static constexpr const char* kClassName = "CKtZantoCircle";
  static std::vector<Field<CKtZantoCircle>> fields();
};

template <>
struct ElementModel<CKtZantoText> {
  static constexpr const char* kClassName = "CKtZantoText";
  static std::vector<Field<CKtZantoText>> fields();
};

template <>
struct ElementModel<CKtFilledPolygon> {
  static constexpr const char* kClassName = "CKtFilledPolygon";
  static std::vector<Field<CKtFilledPolygon>> fields();
};

template <>
struct ElementModel<CKtZantoMesh> {
  static constexpr const char* kClassName = "CKtZantoMesh";
  static std::vector<Field<CKtZantoMesh>> fields();
};

template <>
struct ElementModel<CKtZantoFormwork> {
  static constexpr const char* kClassName = "CKtZantoFormwork";
  static std::vector<Field<CKtZantoFormwork>> fields();
};

template <>
struct ElementModel<CKtZantoStraightBar> {
  static constexpr const char* kClassName = "CKtZantoStraightBar";
  static std::vector<Field<CKtZantoStraightBar>> fields();
};

template <>
struct ElementModel<CKtZantoLBar> {
  static constexpr const char* kClassName = "CKtZantoLBar";
  static std::vector<Field<CKtZantoLBar>> fields();
};

template <>
struct ElementModel<CKtZantoUBar> {
  static constexpr const char* kClassName = "CKtZantoUBar";
  static std::vector<Field<CKtZantoUBar>> fields();
};

template <>
struct ElementModel<CKtZantoPin> {
  static constexpr const char* kClassName = "CKtZantoPin";
  static std::vector<Field<CKtZantoPin>> fields();
};

template <>
struct ElementModel<CKtZantoPointBar> {
  static constexpr const char* kClassName = "CKtZantoPointBar";
  static std::vector<Field<CKtZantoPointBar>> fields();
};

template <>
struct ElementModel<CKtZantoPolygonBar> {
  static constexpr const char* kClassName = "CKtZantoPolygonBar";
  static std::vector<Field<CKtZantoPolygonBar>> fields();
};

template <>
struct ElementModel<CKtZantoFrameRect> {
  static constexpr const char* kClassName = "CKtZantoFrameRect";
  static std::vector<Field<CKtZantoFrameRect>> fields();
};

template <>
struct ElementModel<CKtZantoFrameCirc> {
  static constexpr const char* kClassName = "CKtZantoFrameCirc";
  static std::vector<Field<CKtZantoFrameCirc>> fields();
};

template <>
struct ElementModel<CKtZantoStirrup> {
  static constexpr const char* kClassName = "CKtZantoStirrup";
  static std::vector<Field<CKtZantoStirrup>> fields();
};

template <>
struct ElementModel<CKtZantoRepartition> {
  static constexpr const char* kClassName = "CKtZantoRepartition";
  static std::vector<Field<CKtZantoRepartition>> fields();
};

template <>
struct ElementModel<CKtDrawingControl> {
  static constexpr const char* kClassName = "CKtDrawingControl";
  static std::vector<Field<CKtDrawingControl>> fields();
};

using BarClasses =
    testing::Types<CKtZantoStraightBar, CKtZantoLBar, CKtZantoUBar, CKtZantoPin, CKtZantoPointBar,
                   CKtZantoPolygonBar, CKtZantoFrameRect, CKtZantoFrameCirc, CKtZantoStirrup>;

using ElementClasses =
    testing::Types<CKtZantoLine, CKtZantoCircle, CKtZantoText, CKtFilledPolygon, CKtZantoMesh,
                   CKtZantoFormwork, CKtZantoStraightBar, CKtZantoLBar, CKtZantoUBar, CKtZantoPin,
                   CKtZantoPointBar, CKtZantoPolygonBar, CKtZantoFrameRect, CKtZantoFrameCirc,
                   CKtZantoStirrup, CKtZantoRepartition, CKtDrawingControl>;

/// Names the runs of a test after the classes.
struct ClassNames {
  template <class Element>
  static std::string GetName(int) {
    return ElementModel<Element>::kClassName;
  }
};

}  // namespace quorvan::test
