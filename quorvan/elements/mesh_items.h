// The items of CKtZantoMesh. Not installed.
#pragma once

#include <quorvan/elements/items/list_rows.h>
#include <quorvan/elements/items/scalar_rows.h>
#include <quorvan/elements/mesh.h>

struct CKtZantoMeshItems {
  static constexpr auto kTable = [] {
    using namespace quorvan::items;  // NOLINT(google-build-using-namespace)
    return table("CKtZantoMesh", OwnFiler::kNone, Plain{"Type", &CKtZantoMesh::m_type},
                 Plain{"Reference", &CKtZantoMesh::m_reference},
                 Plain{"Angle", &CKtZantoMesh::m_angle},
                 Plain{"ExtensionX", &CKtZantoMesh::m_extensionX},
                 Plain{"ExtensionY", &CKtZantoMesh::m_extensionY},
                 LastPoints<CKtZantoMesh>{&CKtZantoMesh::m_points});
  }();
};
