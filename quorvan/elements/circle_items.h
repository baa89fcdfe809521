// The items of CKtZantoCircle. Not installed.
#pragma once

#include <quorvan/elements/circle.h>
#include <quorvan/elements/items/scalar_rows.h>

struct CKtZantoCircleItems {
  static constexpr auto kTable = [] {
    using namespace quorvan::items;  // NOLINT(google-build-using-namespace)
    return table("CKtZantoCircle", OwnFiler::kNone, Plain{"Center", &CKtZantoCircle::m_center},
                 Plain{"Radius", &CKtZantoCircle::m_radius},
                 Buffered{"Color", &CKtZantoCircle::m_color});
  }();
};
