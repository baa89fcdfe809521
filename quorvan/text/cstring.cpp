#include <quorvan/text/cstring.h>

#include <algorithm>
#include <atomic>
#include <climits>
#include <new>
#include <stdexcept>

#include <quorvan/text/utf8.h>
#include <quorvan/text/white_space.h>

namespace {

using Units = std::char_traits<wchar_t>;

// Stands before the characters of a long text.
struct Block {
  std::atomic<int> owners;
  int capacity;
};
static_assert(sizeof(Block) % alignof(wchar_t) == 0);

constexpr std::size_t kMaxLength = INT_MAX / sizeof(wchar_t) - sizeof(Block);

wchar_t* allocateText(std::size_t capacity) {
  if (capacity > kMaxLength) {
    throw std::length_error("CString: text too long");
  }
  void* memory = ::operator new(sizeof(Block) + (capacity + 1) * sizeof(wchar_t));
  Block* block = ::new (memory) Block{{1}, static_cast<int>(capacity)};
  return reinterpret_cast<wchar_t*>(block + 1);
}

Block* blockOf(wchar_t* text) noexcept {
  return reinterpret_cast<Block*>(text) - 1;
}

constexpr wchar_t toLower(wchar_t unit) noexcept {
  return unit >= L'A' && unit <= L'Z' ? static_cast<wchar_t>(unit + (L'a' - L'A')) : unit;
}

constexpr wchar_t toUpper(wchar_t unit) noexcept {
  return unit >= L'a' && unit <= L'z' ? static_cast<wchar_t>(unit - (L'a' - L'A')) : unit;
}

std::wstring_view viewOf(const wchar_t* text) noexcept {
  return text == nullptr ? std::wstring_view() : std::wstring_view(text);
}

bool isBlank(wchar_t unit) noexcept {
  return quorvan::text::isWhiteSpace(static_cast<char32_t>(unit));
}

int positionOf(std::size_t found) noexcept {
  return found == std::wstring_view::npos ? -1 : static_cast<int>(found);
}

}  // namespace

// --- memory ----------------------------------------------------------------------------------

void CString::raiseOutOfRange() {
  throw std::out_of_range("CString: index out of range");
}

void CString::share(const CString& other) noexcept {
  m_data = other.m_data;
  blockOf(m_data)->owners.fetch_add(1, std::memory_order_relaxed);
}

void CString::release() noexcept {
  Block* block = blockOf(m_data);
  // A lone owner needs no atomic step: nobody else can add one.
  if (block->owners.load(std::memory_order_acquire) == 1 ||
      block->owners.fetch_sub(1, std::memory_order_acq_rel) == 1) {
    block->~Block();
    ::operator delete(block);
  }
}

std::size_t CString::capacity() const noexcept {
  return isInline() ? kInlineLength : static_cast<std::size_t>(blockOf(m_data)->capacity);
}

bool CString::isWritable() const noexcept {
  return isInline() || blockOf(m_data)->owners.load(std::memory_order_acquire) == 1;
}

void CString::setLength(std::size_t length) noexcept {
  m_length = static_cast<int>(length);
  m_data[length] = L'\0';
}

// Makes this the only owner of room for `length` characters, keeping the text.
void CString::makeWritable(std::size_t length) {
  const auto kept = static_cast<std::size_t>(m_length);
  length = std::max(length, kept);
  if (isWritable() && length <= capacity()) {
    return;
  }
  // Growing in large steps keeps a text that is put together piece by piece linear.
  const bool grows = length > capacity();
  const std::size_t room = grows
                               ? std::min(std::max(length, kept * 2), std::max(length, kMaxLength))
                               : std::max(length, kInlineLength + 1);
  wchar_t* text = allocateText(room);
  copyUnits(text, m_data, kept + 1);
  if (!isInline()) {
    release();
  }
  m_data = text;
}

void CString::assign(std::wstring_view text) {
  if (isWritable() && text.size() <= capacity()) {
    Units::move(m_data, text.data(), text.size());
    setLength(text.size());
    return;
  }
  // `text` may be a part of the present text: that is let go last.
  if (text.size() <= kInlineLength) {
    copyUnits(m_inline, text.data(), text.size());
    release();
    m_data = m_inline;
  } else {
    wchar_t* fresh = allocateText(text.size());
    copyUnits(fresh, text.data(), text.size());
    if (!isInline()) {
      release();
    }
    m_data = fresh;
  }
  setLength(text.size());
}

void CString::append(std::wstring_view text) {
  const auto kept = static_cast<std::size_t>(m_length);
  const std::size_t total = kept + text.size();
  if (isWritable() && total <= capacity()) {
    Units::move(m_data + kept, text.data(), text.size());
  } else {
    // The old text stays alive until the new one is complete: `text` may be a part of it.
    CString old(*this);
    const bool within = text.data() >= m_data && text.data() <= m_data + kept;
    const std::size_t offset = within ? static_cast<std::size_t>(text.data() - m_data) : 0;
    makeWritable(total);
    copyUnits(m_data + kept, within ? old.m_data + offset : text.data(), text.size());
  }
  setLength(total);
}

// --- construction ----------------------------------------------------------------------------

CString::CString(const char* utf8)
    : CString(quorvan::fromUtf8(utf8 == nullptr ? std::string_view() : std::string_view(utf8))) {}

CString::CString(const char* utf8, int length)
    : CString(quorvan::fromUtf8(utf8 == nullptr || length < 1
                                    ? std::string_view()
                                    : std::string_view(utf8, static_cast<std::size_t>(length)))) {}

CString::CString(wchar_t character, int count) : CString() {
  if (count < 1) {
    return;
  }
  const auto length = static_cast<std::size_t>(count);
  makeWritable(length);
  Units::assign(m_data, length, character);
  setLength(length);
}

// --- changing ----------------------------------------------------------------------------------

void CString::SetAt(int index, wchar_t character) {
  checkIndex(index, m_length - 1);
  makeWritable(static_cast<std::size_t>(m_length));
  m_data[index] = character;
}

wchar_t* CString::GetBuffer(int length) {
  makeWritable(length < 0 ? 0 : static_cast<std::size_t>(length));
  return m_data;
}

void CString::ReleaseBuffer(int length) {
  const std::size_t room = capacity();
  if (length < 0) {
    const wchar_t* end = Units::find(m_data, room + 1, L'\0');
    setLength(end == nullptr ? room : static_cast<std::size_t>(end - m_data));
    return;
  }
  if (static_cast<std::size_t>(length) > room) {
    raiseOutOfRange();
  }
  makeWritable(static_cast<std::size_t>(m_length));
  setLength(static_cast<std::size_t>(length));
}

// --- comparing ---------------------------------------------------------------------------------

int CString::compareUnits(std::wstring_view text) const noexcept {
  return view().compare(text);
}

int CString::Compare(const wchar_t* text) const noexcept {
  return compareUnits(viewOf(text));
}

int CString::CompareNoCase(const wchar_t* text) const noexcept {
  const std::wstring_view a = view();
  const std::wstring_view b = viewOf(text);
  const std::size_t common = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < common; ++i) {
    const wchar_t unitA = toLower(a[i]);
    const wchar_t unitB = toLower(b[i]);
    if (unitA != unitB) {
      return unitA < unitB ? -1 : 1;
    }
  }
  if (a.size() == b.size()) {
    return 0;
  }
  return a.size() < b.size() ? -1 : 1;
}

// --- parts, searching, replacing ---------------------------------------------------------------

CString CString::Left(int count) const {
  return Mid(0, count);
}

CString CString::Right(int count) const {
  return count >= m_length ? *this : Mid(m_length - std::max(count, 0));
}

CString CString::Mid(int first) const {
  return Mid(first, m_length);
}

CString CString::Mid(int first, int count) const {
  const int begin = std::clamp(first, 0, m_length);
  const int length = std::clamp(count, 0, m_length - begin);
  return length == m_length ? *this : CString(m_data + begin, length);
}

int CString::Find(wchar_t character, int start) const noexcept {
  return start < 0 ? -1 : positionOf(view().find(character, static_cast<std::size_t>(start)));
}

int CString::Find(const wchar_t* text, int start) const noexcept {
  return start < 0 ? -1 : positionOf(view().find(viewOf(text), static_cast<std::size_t>(start)));
}

int CString::ReverseFind(wchar_t character) const noexcept {
  return positionOf(view().rfind(character));
}

int CString::Replace(wchar_t from, wchar_t to) {
  const auto count = static_cast<int>(std::count(m_data, m_data + m_length, from));
  if (count == 0 || from == to) {
    return count;
  }
  makeWritable(static_cast<std::size_t>(m_length));
  std::replace(m_data, m_data + m_length, from, to);
  return count;
}

int CString::Replace(const wchar_t* from, const wchar_t* to) {
  const std::wstring_view sought = viewOf(from);
  const std::wstring_view replacement = viewOf(to);
  if (sought.empty()) {
    return 0;
  }
  const std::wstring_view text = view();
  CString result;
  int count = 0;
  std::size_t done = 0;
  for (std::size_t at = text.find(sought); at != std::wstring_view::npos;
       at = text.find(sought, done)) {
    result.append(text.substr(done, at - done));
    result.append(replacement);
    done = at + sought.size();
    ++count;
  }
  if (count == 0) {
    return 0;
  }
  result.append(text.substr(done));
  swap(result);
  return count;
}

template <class Predicate>
void CString::trimLeftWhile(Predicate isTrimmed) {
  const wchar_t* end = m_data + m_length;
  const wchar_t* begin = std::find_if_not(static_cast<const wchar_t*>(m_data), end, isTrimmed);
  if (begin != m_data) {
    assign({begin, static_cast<std::size_t>(end - begin)});
  }
}

template <class Predicate>
void CString::trimRightWhile(Predicate isTrimmed) {
  auto length = static_cast<std::size_t>(m_length);
  while (length > 0 && isTrimmed(m_data[length - 1])) {
    --length;
  }
  if (length != static_cast<std::size_t>(m_length)) {
    assign({m_data, length});
  }
}

CString& CString::TrimLeft() {
  trimLeftWhile(isBlank);
  return *this;
}

CString& CString::TrimLeft(wchar_t character) {
  trimLeftWhile([=](wchar_t unit) { return unit == character; });
  return *this;
}

CString& CString::TrimLeft(const wchar_t* characters) {
  trimLeftWhile([set = viewOf(characters)](wchar_t unit) {
    return set.find(unit) != std::wstring_view::npos;
  });
  return *this;
}

CString& CString::TrimRight() {
  trimRightWhile(isBlank);
  return *this;
}

CString& CString::TrimRight(wchar_t character) {
  trimRightWhile([=](wchar_t unit) { return unit == character; });
  return *this;
}

CString& CString::TrimRight(const wchar_t* characters) {
  trimRightWhile([set = viewOf(characters)](wchar_t unit) {
    return set.find(unit) != std::wstring_view::npos;
  });
  return *this;
}

CString& CString::Trim() {
  return TrimRight().TrimLeft();
}

CString& CString::Trim(wchar_t character) {
  return TrimRight(character).TrimLeft(character);
}

CString& CString::Trim(const wchar_t* characters) {
  return TrimRight(characters).TrimLeft(characters);
}

CString& CString::MakeLower() {
  makeWritable(static_cast<std::size_t>(m_length));
  std::transform(m_data, m_data + m_length, m_data, toLower);
  return *this;
}

CString& CString::MakeUpper() {
  makeWritable(static_cast<std::size_t>(m_length));
  std::transform(m_data, m_data + m_length, m_data, toUpper);
  return *this;
}
