// How many initialisations of COM are open on a thread where the document service is embedded.
// Internal: for tests that pin when a filer initialises and uninitialises.
#pragma once

namespace quorvan::platform {

/// The calls of initializeCom() on this thread less those of uninitializeCom().
int comBalance() noexcept;

/// All calls of initializeCom() on this thread.
unsigned int comInitializations() noexcept;

}  // namespace quorvan::platform
