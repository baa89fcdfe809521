// CString: the wide text of the public signatures, in the manner of MFC's class of that name.
//
// A plain value. Up to 23 characters live inside the object; longer texts share one counted
// buffer between copies until one of them changes, so that passing by value costs no allocation
// either way. Copies may be used by different threads; one object belongs to one thread at a time.
//
// The units are those of wchar_t: UTF-16 on Windows, UTF-32 elsewhere; lengths and positions count
// them. Narrow text is UTF-8 on every system; what is not valid UTF-8 becomes U+FFFD.
//
// No member depends on the locale. A member that raises (std::bad_alloc, std::length_error,
// std::out_of_range, std::invalid_argument) leaves the text as it was.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>
#if defined(__cpp_impl_three_way_comparison)
#include <compare>
#endif

#include <quorvan/api.h>
#include <quorvan/text/format_argument.h>

/// Wide text with value semantics. May contain terminators when made with an explicit length; all
/// comparisons and searches then take the whole text.
class QUORVAN_API CString {
 public:
  /// The empty text.
  CString() noexcept : m_data(m_inline), m_length(0) { m_inline[0] = L'\0'; }
  CString(const CString& other) : m_length(other.m_length) {
    if (other.isInline()) {
      m_data = m_inline;
      copyUnits(m_inline, other.m_inline, static_cast<std::size_t>(m_length) + 1);
    } else {
      share(other);
    }
  }
  /// Takes over the text; `other` is empty afterwards.
  CString(CString&& other) noexcept { takeOver(other); }
  /// The text up to the terminator. Null gives the empty text.
  CString(const wchar_t* text) : CString() {  // NOLINT(google-explicit-constructor)
    if (text == nullptr) {
      return;
    }
    // One pass over a short text costs less than measuring and copying it.
    for (std::size_t i = 0; i <= kInlineLength; ++i) {
      m_inline[i] = text[i];
      if (text[i] == L'\0') {
        m_length = static_cast<int>(i);
        return;
      }
    }
    m_inline[0] = L'\0';
    assign(text);
  }
  /// The same from UTF-8.
  CString(const char* utf8);                       // NOLINT(google-explicit-constructor)
  CString(std::nullptr_t) noexcept : CString() {}  // NOLINT(google-explicit-constructor)
  /// `length` characters from `text`, terminators included. Null or a length below 1 gives the
  /// empty text.
  CString(const wchar_t* text, int length)
      : CString(text == nullptr || length < 1
                    ? std::wstring_view()
                    : std::wstring_view(text, static_cast<std::size_t>(length))) {}
  /// The same from `length` bytes of UTF-8.
  CString(const char* utf8, int length);
  /// `character`, `count` times; below 1 none.
  explicit CString(wchar_t character, int count = 1);
  explicit CString(std::wstring_view text) : m_data(m_inline), m_length(0) {
    if (text.size() <= kInlineLength) {
      copyUnits(m_inline, text.data(), text.size());
      m_length = static_cast<int>(text.size());
      m_inline[text.size()] = L'\0';
    } else {
      m_inline[0] = L'\0';
      assign(text);
    }
  }
  ~CString() {
    if (!isInline()) {
      release();
    }
  }

  /// The text given; none for a null pointer. Narrow text is UTF-8.
  CString& operator=(const CString& other) {
    if (this != &other) {
      if (other.isInline()) {
        assign(other.view());
      } else {
        CString copy(other);
        swap(copy);
      }
    }
    return *this;
  }
  CString& operator=(CString&& other) noexcept {
    if (this != &other) {
      if (!isInline()) {
        release();
      }
      takeOver(other);
    }
    return *this;
  }
  CString& operator=(const wchar_t* text) {
    assign(text == nullptr ? std::wstring_view() : std::wstring_view(text));
    return *this;
  }
  CString& operator=(const char* utf8) { return *this = CString(utf8); }
  CString& operator=(std::nullptr_t) noexcept {
    Empty();
    return *this;
  }
  CString& operator=(wchar_t character) {
    assign(std::wstring_view(&character, 1));
    return *this;
  }

  // --- reading -----------------------------------------------------------------------------

  /// The text with its terminator; never null; valid until the next change.
  // NOLINTNEXTLINE(google-explicit-constructor)
  operator const wchar_t*() const noexcept { return m_data; }
  [[nodiscard]] const wchar_t* GetString() const noexcept { return m_data; }
  /// The text with its length; valid until the next change.
  [[nodiscard]] std::wstring_view view() const noexcept {
    return {m_data, static_cast<std::size_t>(m_length)};
  }
  /// The number of units without the terminator, and whether it is 0.
  [[nodiscard]] int GetLength() const noexcept { return m_length; }
  [[nodiscard]] bool IsEmpty() const noexcept { return m_length == 0; }
  /// The unit at `index`; the terminator at the length. Raises std::out_of_range elsewhere.
  [[nodiscard]] wchar_t GetAt(int index) const {
    checkIndex(index, m_length);
    return m_data[index];
  }
  /// As GetAt.
  template <class Index, std::enable_if_t<std::is_integral_v<Index>, int> = 0>
  [[nodiscard]] wchar_t operator[](Index index) const {
    checkIndex(static_cast<long long>(index), m_length);
    return m_data[static_cast<std::size_t>(index)];
  }

  // --- changing ----------------------------------------------------------------------------

  /// Makes the text empty and gives its memory back.
  void Empty() noexcept {
    if (!isInline()) {
      release();
    }
    m_data = m_inline;
    m_length = 0;
    m_inline[0] = L'\0';
  }
  /// Replaces the unit at `index`, which lies below the length, else std::out_of_range.
  void SetAt(int index, wchar_t character);
  /// Exchanges the two texts.
  void swap(CString& other) noexcept {
    CString kept(static_cast<CString&&>(other));
    other.takeOver(*this);
    takeOver(kept);
  }

  /// Appends a text; nothing for a null pointer. Narrow text is UTF-8.
  CString& operator+=(const CString& text) {
    append(text.view());
    return *this;
  }
  CString& operator+=(const wchar_t* text) {
    if (text != nullptr) {
      append(text);
    }
    return *this;
  }
  CString& operator+=(const char* utf8) { return *this += CString(utf8); }
  CString& operator+=(wchar_t character) {
    append(std::wstring_view(&character, 1));
    return *this;
  }

  /// Writable room for at least `length` characters and a terminator, beginning with the present
  /// text. The text is defined again after ReleaseBuffer; until then only that may be called.
  wchar_t* GetBuffer(int length = 0);
  /// Sets the length after writing through GetBuffer: `length`, or up to the terminator for -1.
  /// Raises std::out_of_range for a length beyond the room.
  void ReleaseBuffer(int length = -1);

  // --- comparing ---------------------------------------------------------------------------

  /// Below, equal to or above 0 in the order of the units, case-sensitive.
  [[nodiscard]] int Compare(const wchar_t* text) const noexcept;
  [[nodiscard]] int Compare(const CString& text) const noexcept {
    return compareUnits(text.view());
  }
  /// The same with A to Z taken for a to z; no other letter is folded.
  [[nodiscard]] int CompareNoCase(const wchar_t* text) const noexcept;

  friend bool operator==(const CString& a, const CString& b) noexcept {
    return a.view() == b.view();
  }
  friend bool operator==(const CString& a, const wchar_t* b) noexcept { return a.Compare(b) == 0; }
#if defined(__cpp_impl_three_way_comparison)
  friend std::strong_ordering operator<=>(const CString& a, const CString& b) noexcept {
    return a.Compare(b) <=> 0;
  }
  friend std::strong_ordering operator<=>(const CString& a, const wchar_t* b) noexcept {
    return a.Compare(b) <=> 0;
  }
#else
  // What C++20 makes of these two by itself.
  friend bool operator==(const wchar_t* a, const CString& b) noexcept { return b == a; }
  friend bool operator!=(const CString& a, const CString& b) noexcept { return !(a == b); }
  friend bool operator!=(const CString& a, const wchar_t* b) noexcept { return !(a == b); }
  friend bool operator!=(const wchar_t* a, const CString& b) noexcept { return !(b == a); }
  friend bool operator<(const CString& a, const CString& b) noexcept { return a.Compare(b) < 0; }
  friend bool operator<(const CString& a, const wchar_t* b) noexcept { return a.Compare(b) < 0; }
  friend bool operator<(const wchar_t* a, const CString& b) noexcept { return b.Compare(a) > 0; }
  friend bool operator<=(const CString& a, const CString& b) noexcept { return a.Compare(b) <= 0; }
  friend bool operator<=(const CString& a, const wchar_t* b) noexcept { return a.Compare(b) <= 0; }
  friend bool operator<=(const wchar_t* a, const CString& b) noexcept { return b.Compare(a) >= 0; }
  friend bool operator>(const CString& a, const CString& b) noexcept { return b < a; }
  friend bool operator>(const CString& a, const wchar_t* b) noexcept { return b < a; }
  friend bool operator>(const wchar_t* a, const CString& b) noexcept { return b < a; }
  friend bool operator>=(const CString& a, const CString& b) noexcept { return b <= a; }
  friend bool operator>=(const CString& a, const wchar_t* b) noexcept { return b <= a; }
  friend bool operator>=(const wchar_t* a, const CString& b) noexcept { return b <= a; }
#endif

  // --- parts, searching, replacing -----------------------------------------------------------

  /// The first, last, or `first`-th and following `count` characters, as far as there are any.
  [[nodiscard]] CString Left(int count) const;
  [[nodiscard]] CString Right(int count) const;
  [[nodiscard]] CString Mid(int first) const;
  [[nodiscard]] CString Mid(int first, int count) const;

  /// Position of the first occurrence at or after `start`, -1 without one.
  [[nodiscard]] int Find(wchar_t character, int start = 0) const noexcept;
  [[nodiscard]] int Find(const wchar_t* text, int start = 0) const noexcept;
  /// Position of the last occurrence, -1 without one.
  [[nodiscard]] int ReverseFind(wchar_t character) const noexcept;

  /// Replaces every occurrence; returns their number. An empty `from` occurs nowhere.
  int Replace(wchar_t from, wchar_t to);
  int Replace(const wchar_t* from, const wchar_t* to);

  /// Removes white space, or the character, or any character of the set, from both ends or one.
  CString& Trim();
  CString& Trim(wchar_t character);
  CString& Trim(const wchar_t* characters);
  CString& TrimLeft();
  CString& TrimLeft(wchar_t character);
  CString& TrimLeft(const wchar_t* characters);
  CString& TrimRight();
  CString& TrimRight(wchar_t character);
  CString& TrimRight(const wchar_t* characters);

  /// A to Z to a to z, and back; other letters stay.
  CString& MakeLower();
  CString& MakeUpper();

  // --- formatting ----------------------------------------------------------------------------

  /// Replaces (appends to) the text by the formatted arguments: d i u x X o c C s S f F e E g G p
  /// and %%, with the flags - + # 0 and blank, width and precision (numbers or *), and the size
  /// prefixes h hh l ll L w j z t I I32 I64. As in Microsoft's wide functions %s, %ls, %c are wide,
  /// %S, %hs, %C narrow (UTF-8). Every argument carries its own type: an integer is taken at its
  /// own width (h, hh and I32 cut it), a text as what it is, a CString as its text. The decimal
  /// separator is always the point. A null text shows as "(null)"; an unknown conversion shows
  /// itself. Raises std::invalid_argument when an argument is missing or cannot be shown that way.
  template <class... Arguments>
  void Format(const wchar_t* format, const Arguments&... arguments) {
    *this = formatted(format, {quorvan::platform::FormatArgument(arguments)...});
  }
  /// Appends what Format would make of the arguments.
  template <class... Arguments>
  void AppendFormat(const wchar_t* format, const Arguments&... arguments) {
    *this += formatted(format, {quorvan::platform::FormatArgument(arguments)...});
  }

#ifdef _WIN32
  /// A new BSTR with the text, which the caller frees. Raises std::bad_alloc.
  [[nodiscard]] wchar_t* AllocSysString() const;
#endif

 private:
  static constexpr std::size_t kInlineLength = 23;

  static void copyUnits(wchar_t* to, const wchar_t* from, std::size_t count) noexcept {
    std::char_traits<wchar_t>::copy(to, from, count);
  }
  static CString formatted(const wchar_t* format,
                           std::initializer_list<quorvan::platform::FormatArgument> arguments);
  static void checkIndex(long long index, int limit) {
    if (index < 0 || index > limit) {
      raiseOutOfRange();
    }
  }
  [[noreturn]] static void raiseOutOfRange();

  [[nodiscard]] bool isInline() const noexcept { return m_data == m_inline; }
  // Fills this object, which owns nothing, and leaves `other` empty.
  void takeOver(CString& other) noexcept {
    m_length = other.m_length;
    if (other.isInline()) {
      m_data = m_inline;
      copyUnits(m_inline, other.m_inline, static_cast<std::size_t>(m_length) + 1);
    } else {
      m_data = other.m_data;
      other.m_data = other.m_inline;
    }
    other.m_length = 0;
    other.m_inline[0] = L'\0';
  }
  void share(const CString& other) noexcept;
  void release() noexcept;
  [[nodiscard]] std::size_t capacity() const noexcept;
  [[nodiscard]] bool isWritable() const noexcept;
  void makeWritable(std::size_t length);
  void setLength(std::size_t length) noexcept;
  void assign(std::wstring_view text);
  void append(std::wstring_view text);
  [[nodiscard]] int compareUnits(std::wstring_view text) const noexcept;
  template <class Predicate>
  void trimLeftWhile(Predicate isTrimmed);
  template <class Predicate>
  void trimRightWhile(Predicate isTrimmed);

  wchar_t* m_data;
  int m_length;
  wchar_t m_inline[kInlineLength + 1];
};

inline CString operator+(CString a, const CString& b) {
  a += b;
  return a;
}
inline CString operator+(CString a, const wchar_t* b) {
  a += b;
  return a;
}
inline CString operator+(CString a, wchar_t b) {
  a += b;
  return a;
}
inline CString operator+(const wchar_t* a, const CString& b) {
  CString sum(a);
  sum += b;
  return sum;
}
inline CString operator+(wchar_t a, const CString& b) {
  CString sum(a);
  sum += b;
  return sum;
}

inline quorvan::platform::FormatArgument::FormatArgument(const CString& text) noexcept
    : FormatArgument(text.GetString()) {}
