// The items that every bar and link ends with. Not installed.
#pragma once

#include <tuple>

#include <quorvan/elements/bar_attributes.h>
#include <quorvan/elements/items/scalar_rows.h>

namespace quorvan::items {

// The names of the bar attributes, for whoever looks for a bar by them.
inline constexpr dom::Name kSteelGradeName = "SteelGrade";
inline constexpr dom::Name kAdherenceName = "Adherence";
inline constexpr dom::Name kDiameterName = "Diameter";
inline constexpr dom::Name kReferenceName = "Reference";
inline constexpr dom::Name kHiddenName = "Hidden";

/// The five items that every bar and link ends with.
inline constexpr std::tuple kBarAttributeRows{Plain{kSteelGradeName, &BarAttributes::steelGrade},
                                              Adherence{kAdherenceName, &BarAttributes::adherence},
                                              Plain{kDiameterName, &BarAttributes::diameter},
                                              Plain{kReferenceName, &BarAttributes::reference},
                                              OptionalFlag{kHiddenName, &BarAttributes::hidden}};

/// What they are, for whoever lists them.
inline constexpr auto kBarAttributeSchemas = std::apply(
    [](const auto&... row) { return std::array{row.schema()[0]...}; }, kBarAttributeRows);

/// The bar attributes as one value member of an element.
template <class Element>
struct Attributes {
  BarAttributes Element::*field;

  static constexpr std::size_t kItems = kBarAttributeSchemas.size();
  constexpr auto schema() const { return kBarAttributeSchemas; }

  void write(Writing& out, const Element& element) const {
    writeRows(kBarAttributeRows, out, element.*field);
  }
  void read(Reading& in, Element& element) const {
    readRows(kBarAttributeRows, in, element.*field);
  }
};

template <class Element>
Attributes(BarAttributes Element::*) -> Attributes<Element>;

}  // namespace quorvan::items
