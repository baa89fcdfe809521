#include <quorvan/errors/last_error.h>

#include <algorithm>
#include <array>
#include <exception>
#include <limits>
#include <new>
#include <span>

#include <quorvan/text/utf8.h>

namespace quorvan {

namespace {

constexpr std::size_t kCapacity = 320;

// Kept in place: telling that memory has run out must not need any.
struct LastError {
  QuorvanResult result = QUORVAN_DONE;
  int line = 0;
  int column = 0;
  std::array<char, kCapacity> text{};
  std::array<wchar_t, kCapacity> wideText{};
};

thread_local constinit LastError lastError;

constexpr std::string_view textOf(QuorvanResult result) noexcept {
  switch (result) {
#define QUORVAN_RESULT(name, number, text) \
  case name:                               \
    return text;
    QUORVAN_RESULTS(QUORVAN_RESULT)
#undef QUORVAN_RESULT
  }
  return {};
}

int bounded(std::uint64_t number) noexcept {
  constexpr std::uint64_t kMost = std::numeric_limits<int>::max();
  return static_cast<int>(std::min(number, kMost));
}

// As much of the text as has room, whole characters only.
std::size_t append(std::span<char> to, std::size_t length, std::string_view text) noexcept {
  std::size_t count = std::min(text.size(), to.size() - 1 - length);
  if (count < text.size()) {
    while (count > 0 && (static_cast<unsigned char>(text[count]) & 0xC0U) == 0x80U) {
      --count;
    }
  }
  std::copy_n(text.begin(), count, to.begin() + static_cast<std::ptrdiff_t>(length));
  to[length + count] = '\0';
  return length + count;
}

// Without memory of its own.
void widen(std::string_view text, std::span<wchar_t> to) noexcept {
  constexpr char32_t kFirstBeyond = 0x10000;
  std::size_t length = 0;
  for (const char* at = text.data(); at != text.data() + text.size() && length + 2 < to.size();) {
    const char32_t character = decodeUtf8(at, text.data() + text.size());
    if (sizeof(wchar_t) == 2 && character >= kFirstBeyond) {
      to[length++] = static_cast<wchar_t>(0xD800U + ((character - kFirstBeyond) >> 10U));
      to[length++] = static_cast<wchar_t>(0xDC00U + ((character - kFirstBeyond) & 0x3FFU));
    } else {
      to[length++] = static_cast<wchar_t>(character);
    }
  }
  to[length] = L'\0';
}

}  // namespace

int fail(QuorvanResult result, const ErrorDetail& detail) noexcept {
  lastError.result = result;
  lastError.line = bounded(detail.line);
  lastError.column = bounded(detail.column);
  std::size_t length = append(lastError.text, 0, textOf(result));
  if (!detail.text.empty()) {
    length = append(lastError.text, length, ": ");
    append(lastError.text, length, detail.text);
  }
  lastError.wideText[0] = L'\0';
  return result;
}

int fail(QuorvanResult result, HRESULT error) noexcept {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::array<char, 10> number{'0', 'x'};
  for (std::size_t i = 0; i < 8; ++i) {
    number[2 + i] = kDigits[(static_cast<std::uint32_t>(error) >> (28 - 4 * i)) & 0xFU];
  }
  return fail(result, ErrorDetail{.text = {number.data(), number.size()}});
}

int failWithCurrentError() noexcept {
  try {
    throw;
  } catch (const std::bad_alloc&) {
    return fail(QUORVAN_OUT_OF_MEMORY);
  } catch (const _com_error& error) {
    return error.Error() == E_OUTOFMEMORY ? fail(QUORVAN_OUT_OF_MEMORY)
                                          : fail(QUORVAN_FAILED, error.Error());
  } catch (const std::exception& error) {
    return fail(QUORVAN_FAILED, ErrorDetail{.text = error.what()});
  } catch (...) {
    return fail(QUORVAN_FAILED);
  }
}

}  // namespace quorvan

int quorvanLastError() {
  return quorvan::lastError.result;
}

const char* quorvanLastErrorText() {
  return quorvan::lastError.text.data();
}

const wchar_t* quorvanLastErrorWideText() {
  quorvan::LastError& error = quorvan::lastError;
  if (error.wideText[0] == L'\0') {
    quorvan::widen(error.text.data(), error.wideText);
  }
  return error.wideText.data();
}

int quorvanLastErrorLine() {
  return quorvan::lastError.line;
}

int quorvanLastErrorColumn() {
  return quorvan::lastError.column;
}
