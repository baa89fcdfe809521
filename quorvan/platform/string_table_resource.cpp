#include <windows.h>

#include <quorvan/platform/string_table.h>

namespace quorvan::platform {

namespace {

// Entries stand in blocks of 16, which is what a resource of this kind is.
constexpr int kBlockSize = 16;

const wchar_t kAnchor[] = L"";

// The module that this code is part of; its handle is not counted and needs no release.
HMODULE ownModule() noexcept {
  HMODULE module = nullptr;
  ::GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      kAnchor, &module);
  return module;
}

// By exact language: LoadStringW finds nothing where another module language holds the same block.
const wchar_t* findBlock(int number) noexcept {
  const HMODULE module = ownModule();
  const auto block = static_cast<WORD>(number / kBlockSize + 1);
  const HRSRC resource = ::FindResourceExW(module, MAKEINTRESOURCEW(6), MAKEINTRESOURCEW(block),
                                           MAKELANGID(LANG_FRENCH, SUBLANG_FRENCH));
  if (resource == nullptr) {
    return nullptr;
  }
  const HGLOBAL loaded = ::LoadResource(module, resource);
  return loaded == nullptr ? nullptr : static_cast<const wchar_t*>(::LockResource(loaded));
}

}  // namespace

std::wstring_view findString(int number) noexcept {
  if (number < 0 || number > 0xFFFF) {
    return {};
  }
  const wchar_t* at = findBlock(number);
  if (at == nullptr) {
    return {};
  }
  // Each entry is its length, then as many units without a terminator.
  for (int entry = number % kBlockSize; entry > 0; --entry) {
    at += 1 + *at;
  }
  return {at + 1, static_cast<std::size_t>(*at)};
}

}  // namespace quorvan::platform
