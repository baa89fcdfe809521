// Initialisation of COM for the calling thread, which every filer brackets its life with.
#pragma once

namespace quorvan::platform {

/// CoInitialize(NULL) for the calling thread; the result is ignored. Nothing to do where the
/// document service is embedded.
void initializeCom() noexcept;

/// CoUninitialize() for the calling thread.
void uninitializeCom() noexcept;

}  // namespace quorvan::platform
