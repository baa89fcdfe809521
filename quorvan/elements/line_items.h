// The items of CKtZantoLine. Not installed.
#pragma once

#include <quorvan/elements/items/scalar_rows.h>
#include <quorvan/elements/line.h>

struct CKtZantoLineItems {
  static constexpr auto kTable = [] {
    using namespace quorvan::items;  // NOLINT(google-build-using-namespace)
    return table("CKtZantoLine", OwnFiler::kNone, Plain{"Point1", &CKtZantoLine::m_startPoint},
                 Plain{"Point2", &CKtZantoLine::m_endPoint},
                 Buffered{"Color", &CKtZantoLine::m_color});
  }();
};
