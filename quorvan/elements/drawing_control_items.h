// The items of CKtDrawingControl. Not installed.
#pragma once

#include <quorvan/elements/drawing_control.h>
#include <quorvan/elements/items/scalar_rows.h>

struct CKtDrawingControlItems {
  static constexpr auto kTable = [] {
    using namespace quorvan::items;  // NOLINT(google-build-using-namespace)
    return table("CKtDrawingControl", OwnFiler::kNone,
                 Plain{"ZantoVersion", &CKtDrawingControl::m_zantoVersion},
                 Plain{"ServicePack", &CKtDrawingControl::m_servicePack},
                 Plain{"CheckSum", &CKtDrawingControl::m_checkSum},
                 Plain{"DrawingName", &CKtDrawingControl::m_drawingName});
  }();
};
