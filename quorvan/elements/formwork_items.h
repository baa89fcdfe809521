// The items of CKtZantoFormwork. Not installed.
#pragma once

#include <quorvan/elements/formwork.h>
#include <quorvan/elements/items/list_rows.h>

struct CKtZantoFormworkItems {
  static constexpr auto kTable = [] {
    using namespace quorvan::items;  // NOLINT(google-build-using-namespace)
    return table("CKtZantoFormwork", OwnFiler::kNone,
                 Segments<CKtZantoFormwork>{&CKtZantoFormwork::m_count, &CKtZantoFormwork::m_points,
                                            &CKtZantoFormwork::m_bulges});
  }();
};
