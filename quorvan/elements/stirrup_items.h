// The items of CKtZantoStirrup. Not installed.
#pragma once

#include <quorvan/elements/bar_attribute_items.h>
#include <quorvan/elements/items/scalar_rows.h>
#include <quorvan/elements/stirrup.h>

struct CKtZantoStirrupItems {
  static constexpr auto kTable = [] {
    using namespace quorvan::items;  // NOLINT(google-build-using-namespace)
    return table("CKtZantoStirrup", OwnFiler::kWhileReading,
                 Plain{"Point1", &CKtZantoStirrup::m_point1},
                 Plain{"Point2", &CKtZantoStirrup::m_point2},
                 Plain{"HookLength1", &CKtZantoStirrup::m_hookLength1},
                 Plain{"HookAngle1", &CKtZantoStirrup::m_hookAngle1},
                 Attributes{&CKtZantoStirrup::m_attributes});
  }();
};
