// The items of CKtZantoPointBar. Not installed.
#pragma once

#include <quorvan/elements/bar_attribute_items.h>
#include <quorvan/elements/items/scalar_rows.h>
#include <quorvan/elements/point_bar.h>

struct CKtZantoPointBarItems {
  static constexpr auto kTable = [] {
    using namespace quorvan::items;  // NOLINT(google-build-using-namespace)
    return table("CKtZantoPointBar", OwnFiler::kWhileReading,
                 Plain{"Point1", &CKtZantoPointBar::m_point1},
                 Attributes{&CKtZantoPointBar::m_attributes});
  }();
};
