// The last error of each thread, for those who set it. Not installed.
#pragma once

#include <cstdint>
#include <string_view>

#include <quorvan/errors/error.h>
#include <quorvan/platform/com_error.h>

namespace quorvan {

/// What more than its number there is to say about a failure.
struct ErrorDetail {
  std::string_view text;     // stands behind the result's own text; cut where it is long
  std::uint64_t line = 0;    // 0 for none
  std::uint64_t column = 0;  // 0 for none
};

/// Keeps the failure for this thread and returns it.
int fail(QuorvanResult result, const ErrorDetail& detail = {}) noexcept;

/// The same for an error of the document service, whose number is the detail.
int fail(QuorvanResult result, HRESULT error) noexcept;

/// What the error that is being handled stands for where nothing more is known: memory, or the
/// document service. To be called within a handler.
int failWithCurrentError() noexcept;

}  // namespace quorvan
