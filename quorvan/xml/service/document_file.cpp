#include <quorvan/xml/service/document_file.h>

#include <string>

#include <windows.h>

#include <quorvan/platform/com_error.h>
#include <quorvan/xml/service/node_access.h>

namespace quorvan::service {

namespace {

// Empty when the system cannot make one of it. A full path is no address of another kind for the
// service to fetch, and means the same file to its reader, its writer and the file system.
std::wstring fullPath(const CString& path) {
  const DWORD needed = ::GetFullPathNameW(path.GetString(), 0, nullptr, nullptr);
  if (needed == 0) {
    return {};
  }
  std::wstring full(needed, L'\0');
  const DWORD length = ::GetFullPathNameW(path.GetString(), needed, full.data(), nullptr);
  if (length >= needed) {
    return {};
  }
  full.resize(length);
  return full;
}

// The service's reader, but not its writer, takes a percent sign for the start of an escape.
std::wstring escapePercent(const std::wstring& path) {
  std::wstring escaped;
  escaped.reserve(path.size());
  for (const wchar_t unit : path) {
    escaped += unit;
    if (unit == L'%') {
      escaped += L"25";
    }
  }
  return escaped;
}

// A text for the service that stays the caller's.
VARIANT lent(const Bstr& text) {
  VARIANT value;
  ::VariantInit(&value);
  V_VT(&value) = VT_BSTR;
  V_BSTR(&value) = text.get();
  return value;
}

[[noreturn]] void raiseLastError() {
  const DWORD error = ::GetLastError();
  platform::raiseComError(error == 0 ? E_FAIL : HRESULT_FROM_WIN32(error));
}

std::wstring pathBeside(const std::wstring& target) {
  return target + L".quorvan-new";
}

// The file written beside the target; gone at the end unless it took the target's place.
class NewFile {
 public:
  explicit NewFile(std::wstring path) : m_path(std::move(path)) {}
  ~NewFile() { ::DeleteFileW(m_path.c_str()); }
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  void write(IXMLDOMDocument& document) const { check(document.save(lent(Bstr(m_path)))); }

  // Without this a power failure could leave the new name over data that never reached the disk.
  void flush() const {
    const HANDLE file = ::CreateFileW(m_path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
      raiseLastError();
    }
    const BOOL flushed = ::FlushFileBuffers(file);
    const DWORD error = ::GetLastError();
    ::CloseHandle(file);
    if (flushed == 0) {
      platform::raiseComError(HRESULT_FROM_WIN32(error));
    }
  }

  void replace(const std::wstring& target) const {
    if (::MoveFileExW(m_path.c_str(), target.c_str(),
                      MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) == 0) {
      raiseLastError();
    }
  }

 private:
  std::wstring m_path;
};

}  // namespace

bool loadFile(IXMLDOMDocument& document, const CString& path) {
  check(document.put_async(VARIANT_FALSE));
  // A file says nothing about what else to fetch: no outer DTD is read, none is obeyed.
  check(document.put_validateOnParse(VARIANT_FALSE));
  check(document.put_resolveExternals(VARIANT_FALSE));
  const Bstr name(escapePercent(fullPath(path)));
  VARIANT_BOOL loaded = VARIANT_FALSE;
  const HRESULT result = document.load(lent(name), &loaded);
  check(result);
  return result == S_OK && loaded == VARIANT_TRUE;
}

void saveFile(IXMLDOMDocument& document, const CString& path, dom::Durability durability) {
  IXMLDOMElement* root = nullptr;
  const bool hasRoot = found(document.get_documentElement(&root));
  const Owned<IXMLDOMElement> owned(root);
  const std::wstring target = fullPath(path);
  if (!hasRoot || root == nullptr || target.empty()) {
    platform::raiseComError(E_FAIL);
  }
  const NewFile file(pathBeside(target));
  file.write(document);
  if (durability == dom::Durability::kDisk) {
    file.flush();
  }
  file.replace(target);
}

// One that is open to be written cannot be deleted.
void clearLeftOver(const CString& path) noexcept {
  try {
    const std::wstring target = fullPath(path);
    if (!target.empty()) {
      ::DeleteFileW(pathBeside(target).c_str());
    }
  } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch): the next save overwrites it
  }
}

}  // namespace quorvan::service
