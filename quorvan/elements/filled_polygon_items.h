// The items of CKtFilledPolygon. Not installed.
#pragma once

#include <quorvan/elements/filled_polygon.h>
#include <quorvan/elements/items/list_rows.h>
#include <quorvan/elements/items/scalar_rows.h>

struct CKtFilledPolygonItems {
  static constexpr auto kTable = [] {
    using namespace quorvan::items;  // NOLINT(google-build-using-namespace)
    return table(
        "CKtFilledPolygon", OwnFiler::kNone,
        CountedPoints<CKtFilledPolygon>{&CKtFilledPolygon::m_count, &CKtFilledPolygon::m_points},
        Buffered{"Color", &CKtFilledPolygon::m_color});
  }();
};
