// File calls that fail when a test wants them to.
#pragma once

#include <functional>
#include <string_view>

#include <quorvan/xml/embedded/files/file_calls.h>

namespace quorvan::test {

/// What saving raises where another process has the file.
inline constexpr HRESULT kSharingViolation = static_cast<HRESULT>(0x80070020U);

/// While it lives, every file call of the process is counted, and what is planned happens to it.
/// One at a time. Calls have the names and errors of POSIX on every system: what a Windows function
/// does goes by the name of the call that does the same there, a look at a file's attributes by
/// "lstat", at its type and
/// size by "fstat".
class FileFaults {
 public:
  FileFaults();
  FileFaults(const FileFaults&) = delete;
  FileFaults& operator=(const FileFaults&) = delete;
  ~FileFaults();

  /// Makes the call of that number, from 1 on, fail with `error`; every later one too if `lasts`.
  void failAt(int call, int error, bool lasts) noexcept;
  /// Ends the process at the call of that number, before the call is made: with exit code 0, on
  /// Windows 9.
  void dieAt(int call) noexcept;
  /// Makes each read and write move no more than so many bytes, none at all for 0.
  void moveAtMost(std::size_t bytes) noexcept;
  /// Makes every other read and write be interrupted by a signal, where the system does that.
  void interrupt() noexcept;
  /// Makes calls of one name fail: "write", "fsync", ...
  void failAll(std::string_view name, int error) noexcept;
  /// Does something just before each call of one name, as another process might.
  void before(std::string_view name, std::function<void()> action);

  /// Calls made so far.
  [[nodiscard]] int calls() const noexcept;
};

}  // namespace quorvan::test
