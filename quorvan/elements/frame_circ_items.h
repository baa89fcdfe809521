// The items of CKtZantoFrameCirc. Not installed.
#pragma once

#include <quorvan/elements/bar_attribute_items.h>
#include <quorvan/elements/frame_circ.h>
#include <quorvan/elements/items/scalar_rows.h>

struct CKtZantoFrameCircItems {
  static constexpr auto kTable = [] {
    using namespace quorvan::items;  // NOLINT(google-build-using-namespace)
    return table("CKtZantoFrameCirc", OwnFiler::kWhileReading,
                 Plain{"Center", &CKtZantoFrameCirc::m_center},
                 Plain{"StartPoint", &CKtZantoFrameCirc::m_startPoint},
                 Plain{"FrameRadius", &CKtZantoFrameCirc::m_frameRadius},
                 Plain{"RecoverLength", &CKtZantoFrameCirc::m_recoverLength},
                 Plain{"HookLength1", &CKtZantoFrameCirc::m_hookLength1},
                 Plain{"HookAngle1", &CKtZantoFrameCirc::m_hookAngle1},
                 Attributes{&CKtZantoFrameCirc::m_attributes});
  }();
};
