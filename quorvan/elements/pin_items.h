// The items of CKtZantoPin. Not installed.
#pragma once

#include <quorvan/elements/bar_attribute_items.h>
#include <quorvan/elements/items/scalar_rows.h>
#include <quorvan/elements/pin.h>

struct CKtZantoPinItems {
  static constexpr auto kTable = [] {
    using namespace quorvan::items;  // NOLINT(google-build-using-namespace)
    return table(
        "CKtZantoPin", OwnFiler::kWhileReading, Plain{"Point1", &CKtZantoPin::m_point1},
        Plain{"Point2", &CKtZantoPin::m_point2}, Plain{"HookLength1", &CKtZantoPin::m_hookLength1},
        Plain{"HookLength2", &CKtZantoPin::m_hookLength2},
        Plain{"HookAngle1", &CKtZantoPin::m_hookAngle1},
        Plain{"HookAngle2", &CKtZantoPin::m_hookAngle2}, Attributes{&CKtZantoPin::m_attributes});
  }();
};
