// The words of a transfer file that belong to no element class. Not installed.
#pragma once

#include <quorvan/xml/name.h>

namespace quorvan::filer {

inline constexpr dom::Name kRootName = "Document";

// The attributes of a class element.
inline constexpr dom::Name kVersionName = "version";
inline constexpr dom::Name kIndexName = "index";

// The attribute of a list that says how many entries it has.
inline constexpr dom::Name kSizeName = "size";

// The attributes of an item: each is named after the kind of value that it holds.
inline constexpr dom::Name kDoubleKind = "double";
inline constexpr dom::Name kLongKind = "long";
inline constexpr dom::Name kStringKind = "string";

// The attributes of a point or vector.
inline constexpr dom::Name kX = "X";
inline constexpr dom::Name kY = "Y";
inline constexpr dom::Name kZ = "Z";
inline constexpr dom::Name kCoordinateNames[] = {kX, kY, kZ};

}  // namespace quorvan::filer
