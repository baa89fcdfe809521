// The items of CKtZantoUBar. Not installed.
#pragma once

#include <quorvan/elements/bar_attribute_items.h>
#include <quorvan/elements/items/scalar_rows.h>
#include <quorvan/elements/u_bar.h>

struct CKtZantoUBarItems {
  static constexpr auto kTable = [] {
    using namespace quorvan::items;  // NOLINT(google-build-using-namespace)
    return table("CKtZantoUBar", OwnFiler::kWhileReading, Plain{"Point1", &CKtZantoUBar::m_point1},
                 Plain{"Point2", &CKtZantoUBar::m_point2}, Plain{"Point3", &CKtZantoUBar::m_point3},
                 Plain{"HookLength1", &CKtZantoUBar::m_hookLength1},
                 Plain{"HookAngle1", &CKtZantoUBar::m_hookAngle1},
                 Plain{"HookLength2", &CKtZantoUBar::m_hookLength2},
                 Plain{"HookAngle2", &CKtZantoUBar::m_hookAngle2},
                 Attributes{&CKtZantoUBar::m_attributes});
  }();
};
