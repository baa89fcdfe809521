// The items of CKtZantoStraightBar. Not installed.
#pragma once

#include <quorvan/elements/bar_attribute_items.h>
#include <quorvan/elements/items/scalar_rows.h>
#include <quorvan/elements/straight_bar.h>

struct CKtZantoStraightBarItems {
  static constexpr auto kTable = [] {
    using namespace quorvan::items;  // NOLINT(google-build-using-namespace)
    return table("CKtZantoStraightBar", OwnFiler::kWhileReading,
                 Plain{"Point1", &CKtZantoStraightBar::m_point1},
                 Plain{"Point2", &CKtZantoStraightBar::m_point2},
                 Plain{"HookLength1", &CKtZantoStraightBar::m_hookLength1},
                 Plain{"HookLength2", &CKtZantoStraightBar::m_hookLength2},
                 BufferedFlag{"Hook1Up", &CKtZantoStraightBar::m_hook1Up},
                 BufferedFlag{"Hook2Up", &CKtZantoStraightBar::m_hook2Up},
                 Plain{"HookAngle1", &CKtZantoStraightBar::m_hookAngle1},
                 Plain{"HookAngle2", &CKtZantoStraightBar::m_hookAngle2},
                 Attributes{&CKtZantoStraightBar::m_attributes});
  }();
};
