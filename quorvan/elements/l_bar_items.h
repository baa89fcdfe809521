// The items of CKtZantoLBar. Not installed.
#pragma once

#include <quorvan/elements/bar_attribute_items.h>
#include <quorvan/elements/items/scalar_rows.h>
#include <quorvan/elements/l_bar.h>

struct CKtZantoLBarItems {
  static constexpr auto kTable = [] {
    using namespace quorvan::items;  // NOLINT(google-build-using-namespace)
    return table("CKtZantoLBar", OwnFiler::kWhileReading, Plain{"Point1", &CKtZantoLBar::m_point1},
                 Plain{"Point2", &CKtZantoLBar::m_point2}, Plain{"Point3", &CKtZantoLBar::m_point3},
                 Plain{"HookLength1", &CKtZantoLBar::m_hookLength1},
                 Plain{"HookAngle1", &CKtZantoLBar::m_hookAngle1},
                 Plain{"HookLength2", &CKtZantoLBar::m_hookLength2},
                 Plain{"HookAngle2", &CKtZantoLBar::m_hookAngle2},
                 Attributes{&CKtZantoLBar::m_attributes});
  }();
};
