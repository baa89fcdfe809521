// What is cleared away when the user or the system ends the program in the middle of its work.
#pragma once

#include <filesystem>

namespace quorvan::tool {

/// From now on an interruption (Ctrl-C, a request to end) removes the folders below before it ends
/// the program as it would have. Once a process, before its other threads.
void watchForInterruption();

/// Registers a folder, and takes it back.
void removeWhenInterrupted(const std::filesystem::path& folder);
void keepWhenInterrupted(const std::filesystem::path& folder);

/// Removes all registered folders, whatever is being written there meanwhile.
void removeInterruptedWork() noexcept;

}  // namespace quorvan::tool
