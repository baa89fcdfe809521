// The items of CKtZantoPolygonBar. Not installed.
#pragma once

#include <quorvan/elements/bar_attribute_items.h>
#include <quorvan/elements/items/list_rows.h>
#include <quorvan/elements/items/scalar_rows.h>
#include <quorvan/elements/polygon_bar.h>

struct CKtZantoPolygonBarItems {
  static constexpr auto kTable = [] {
    using namespace quorvan::items;  // NOLINT(google-build-using-namespace)
    return table("CKtZantoPolygonBar", OwnFiler::kWhileReading,
                 NumberedPoints{"NoPoints", &CKtZantoPolygonBar::m_points},
                 Plain{"HookLength1", &CKtZantoPolygonBar::m_hookLength1},
                 Plain{"HookLength2", &CKtZantoPolygonBar::m_hookLength2},
                 NumericFlag{"Side", &CKtZantoPolygonBar::m_side},
                 Plain{"HookAngle1", &CKtZantoPolygonBar::m_hookAngle1},
                 Plain{"HookAngle2", &CKtZantoPolygonBar::m_hookAngle2},
                 Attributes{&CKtZantoPolygonBar::m_attributes});
  }();
};
