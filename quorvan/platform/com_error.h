// COM result codes and the error that carries one.
#pragma once

#ifdef _WIN32
#include <comdef.h>
#else
#include <cstdint>

#include <quorvan/api.h>

/// Result code of a COM call: negative for a failure.
using HRESULT = std::int32_t;

inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT S_FALSE = 1;
inline constexpr HRESULT E_NOTIMPL = static_cast<HRESULT>(0x80004001U);
inline constexpr HRESULT E_NOINTERFACE = static_cast<HRESULT>(0x80004002U);
inline constexpr HRESULT E_POINTER = static_cast<HRESULT>(0x80004003U);
inline constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005U);
inline constexpr HRESULT E_ACCESSDENIED = static_cast<HRESULT>(0x80070005U);
inline constexpr HRESULT E_OUTOFMEMORY = static_cast<HRESULT>(0x8007000EU);
inline constexpr HRESULT E_INVALIDARG = static_cast<HRESULT>(0x80070057U);

/// A failed COM call. Raised by the filer where a call of the document service fails; only
/// CKtFiler::newFiler catches it.
// NOLINTNEXTLINE(clang-diagnostic-reserved-identifier)
class QUORVAN_API _com_error {
 public:
  /// An error with the HRESULT of a failed call.
  explicit _com_error(HRESULT result) noexcept : m_result(result) {}
  virtual ~_com_error();

  _com_error(const _com_error&) = default;
  _com_error& operator=(const _com_error&) = default;

  /// The HRESULT of the failed call.
  [[nodiscard]] HRESULT Error() const noexcept { return m_result; }

 private:
  HRESULT m_result;
};
#endif

namespace quorvan::platform {

/// Raises _com_error with `result`. For the library's own use: it is not exported.
[[noreturn]] void raiseComError(HRESULT result);

}  // namespace quorvan::platform
