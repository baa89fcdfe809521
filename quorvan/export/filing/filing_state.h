// The state that all flat functions share. Not installed.
//
// The objects live from the loading of the library to its unloading. A file that is still open
// then is saved by the destructor of theFiler.
#pragma once

#include <quorvan/filer/filer.h>

namespace quorvan {

/// The filer that every export writes into; opened by startFiling, closed by endFiling.
extern CKtFiler theFiler;

/// Whether a drawing is open: startFiling has opened one and endFiling has not saved it yet.
extern bool filingOpen;

/// While true every export returns at once without doing anything.
extern bool filingStopped;

}  // namespace quorvan
