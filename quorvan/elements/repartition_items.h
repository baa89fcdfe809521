// The items of CKtZantoRepartition. Older files lack "ViewPoint" and "Axis". Not installed.
#pragma once

#include <quorvan/elements/items/list_rows.h>
#include <quorvan/elements/items/scalar_rows.h>
#include <quorvan/elements/repartition.h>

struct CKtZantoRepartitionItems {
  using Distances = quorvan::items::CountedDoubles<CKtZantoRepartition>;

  static constexpr auto kTable = [] {
    using namespace quorvan::items;  // NOLINT(google-build-using-namespace)
    return table(
        "CKtZantoRepartition", OwnFiler::kNone, Plain{"Point1", &CKtZantoRepartition::m_point1},
        Plain{"Point2", &CKtZantoRepartition::m_point2},
        Plain{"Bulge", &CKtZantoRepartition::m_bulge},
        ReadInReverse{Optional{Converted{"ViewPoint", &CKtZantoRepartition::m_viewPoint}},
                      Optional{Plain{"Axis", &CKtZantoRepartition::m_axis}}},
        Distances{"AxisDistancesTop", "DistanceTop", &CKtZantoRepartition::m_distancesTop},
        Distances{"AxisDistancesBottom", "DistanceBottom", &CKtZantoRepartition::m_distancesBottom},
        Distances{"Positions", "Positions", &CKtZantoRepartition::m_positions},
        Plain{"DefClassName", &CKtZantoRepartition::m_defClassName},
        Converted{"Index", &CKtZantoRepartition::m_index},
        OptionalFlag{"Hidden", &CKtZantoRepartition::m_hidden});
  }();
};
