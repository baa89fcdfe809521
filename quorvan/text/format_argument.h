// One argument of CString::Format: a value together with its type.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

class CString;

namespace quorvan::platform {

/// A value handed to CString::Format. It remembers its type, so that a conversion can never read
/// an argument for what it is not. Texts are referred to and must outlive the call.
class FormatArgument {
 public:
  enum class Kind : std::uint8_t { Signed, Unsigned, Floating, NarrowText, WideText, Pointer };

  template <class T, std::enable_if_t<std::is_integral_v<T>, int> = 0>
  explicit FormatArgument(T value) noexcept
      : m_kind(std::is_signed_v<T> ? Kind::Signed : Kind::Unsigned), m_bytes(sizeof(T)) {
    m_value.integer = static_cast<std::uint64_t>(value);
  }
  template <class T, std::enable_if_t<std::is_floating_point_v<T>, int> = 0>
  explicit FormatArgument(T value) noexcept : m_kind(Kind::Floating), m_bytes(sizeof(double)) {
    m_value.floating = static_cast<double>(value);
  }
  template <class T, std::enable_if_t<std::is_enum_v<T>, int> = 0>
  explicit FormatArgument(T value) noexcept
      : FormatArgument(static_cast<std::underlying_type_t<T>>(value)) {}
  explicit FormatArgument(const char* text) noexcept
      : m_kind(Kind::NarrowText), m_bytes(sizeof(void*)) {
    m_value.narrow = text;
  }
  explicit FormatArgument(const wchar_t* text) noexcept
      : m_kind(Kind::WideText), m_bytes(sizeof(void*)) {
    m_value.wide = text;
  }
  explicit FormatArgument(const void* pointer) noexcept
      : m_kind(Kind::Pointer), m_bytes(sizeof(void*)) {
    m_value.pointer = pointer;
  }
  explicit FormatArgument(std::nullptr_t) noexcept
      : FormatArgument(static_cast<const void*>(nullptr)) {}
  explicit FormatArgument(const CString& text) noexcept;

  [[nodiscard]] Kind kind() const noexcept { return m_kind; }
  /// Size of the value's type.
  [[nodiscard]] unsigned bytes() const noexcept { return m_bytes; }

  /// The bits of an integer, extended to 64 by the sign of its type.
  [[nodiscard]] std::uint64_t integer() const noexcept { return m_value.integer; }
  [[nodiscard]] double floating() const noexcept { return m_value.floating; }
  [[nodiscard]] const char* narrow() const noexcept { return m_value.narrow; }
  [[nodiscard]] const wchar_t* wide() const noexcept { return m_value.wide; }
  [[nodiscard]] const void* pointer() const noexcept { return m_value.pointer; }

 private:
  union Value {
    std::uint64_t integer;
    double floating;
    const char* narrow;
    const wchar_t* wide;
    const void* pointer;
  };

  Value m_value{};
  Kind m_kind;
  unsigned m_bytes;
};

}  // namespace quorvan::platform
