// The items of CKtZantoFrameRect. Not installed.
#pragma once

#include <quorvan/elements/bar_attribute_items.h>
#include <quorvan/elements/frame_rect.h>
#include <quorvan/elements/items/scalar_rows.h>

struct CKtZantoFrameRectItems {
  static constexpr auto kTable = [] {
    using namespace quorvan::items;  // NOLINT(google-build-using-namespace)
    return table("CKtZantoFrameRect", OwnFiler::kNone,
                 Plain{"Point1", &CKtZantoFrameRect::m_point1},
                 Plain{"Point2", &CKtZantoFrameRect::m_point2},
                 Plain{"Point3", &CKtZantoFrameRect::m_point3},
                 Plain{"HookLength1", &CKtZantoFrameRect::m_hookLength1},
                 Plain{"HookAngle1", &CKtZantoFrameRect::m_hookAngle1},
                 Attributes{&CKtZantoFrameRect::m_attributes});
  }();
};
