// The COM string and the interface pointer as owned values.
#pragma once

#include <memory>
#include <new>
#include <string_view>
#include <utility>

#include <oleauto.h>

namespace quorvan::service {

/// Owns a BSTR; the null one is the empty text.
class Bstr {
 public:
  Bstr() noexcept = default;
  /// Raises std::bad_alloc.
  explicit Bstr(std::wstring_view text)
      : m_text(::SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {
    if (m_text == nullptr) {
      throw std::bad_alloc();
    }
  }
  /// Takes over a BSTR.
  static Bstr adopt(BSTR text) noexcept {
    Bstr result;
    result.m_text = text;
    return result;
  }
  Bstr(const Bstr& other)
      : m_text(other.m_text == nullptr ? nullptr : Bstr(other.view()).detach()) {}
  Bstr(Bstr&& other) noexcept : m_text(other.detach()) {}
  Bstr& operator=(Bstr other) noexcept {
    std::swap(m_text, other.m_text);
    return *this;
  }
  ~Bstr() { ::SysFreeString(m_text); }

  [[nodiscard]] BSTR get() const noexcept { return m_text; }
  [[nodiscard]] BSTR detach() noexcept { return std::exchange(m_text, nullptr); }
  [[nodiscard]] std::wstring_view view() const noexcept {
    return {m_text, static_cast<std::size_t>(::SysStringLen(m_text))};
  }

 private:
  BSTR m_text = nullptr;
};

struct InterfaceRelease {
  void operator()(IUnknown* pointer) const noexcept { pointer->Release(); }
};

/// Owns one reference to a COM interface.
template <class Interface>
using Owned = std::unique_ptr<Interface, InterfaceRelease>;

}  // namespace quorvan::service
