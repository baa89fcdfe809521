// The items of CKtZantoText. Not installed.
#pragma once

#include <quorvan/elements/items/scalar_rows.h>
#include <quorvan/elements/text.h>

struct CKtZantoTextItems {
  static constexpr auto kTable = [] {
    using namespace quorvan::items;  // NOLINT(google-build-using-namespace)
    return table(
        "CKtZantoText", OwnFiler::kNone, Plain{"Contents", &CKtZantoText::m_contents},
        Plain{"Location", &CKtZantoText::m_location}, Plain{"Angle", &CKtZantoText::m_angle},
        Buffered{"JustificationX", &CKtZantoText::m_justificationX},
        Buffered{"JustificationY", &CKtZantoText::m_justificationY},
        Buffered{"Color", &CKtZantoText::m_color}, Plain{"Height", &CKtZantoText::m_height});
  }();
};
