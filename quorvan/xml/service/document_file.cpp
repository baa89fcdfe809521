#include <quorvan/xml/service/document_file.h>

#include <algorithm>
#include <limits>
#include <string>

#include <windows.h>

#include <quorvan/platform/com_error.h>
#include <quorvan/text/utf8.h>
#include <quorvan/xml/service/document_bytes.h>
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

// The service's codes for an encoding that it does not know, or that the bytes are not in.
constexpr long kEncodingSwitch = static_cast<long>(0xC00CE56EU);
constexpr long kUnknownEncoding = static_cast<long>(0xC00CE56FU);

// Bytes as the service takes them.
class ByteArray {
 public:
  explicit ByteArray(std::string_view bytes)
      : m_array(::SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(bytes.size()))) {
    if (m_array == nullptr || bytes.size() > std::numeric_limits<ULONG>::max()) {
      ::SafeArrayDestroy(m_array);
      platform::raiseComError(E_OUTOFMEMORY);
    }
    std::copy(bytes.begin(), bytes.end(), static_cast<char*>(m_array->pvData));
  }
  ~ByteArray() { ::SafeArrayDestroy(m_array); }
  ByteArray(const ByteArray&) = delete;
  ByteArray& operator=(const ByteArray&) = delete;

  [[nodiscard]] SAFEARRAY* get() const noexcept { return m_array; }

 private:
  SAFEARRAY* m_array;
};

bool load(IXMLDOMDocument& document, const VARIANT& source) {
  check(document.put_async(VARIANT_FALSE));
  // A file says nothing about what else to fetch: no outer DTD is read, none is obeyed.
  check(document.put_validateOnParse(VARIANT_FALSE));
  check(document.put_resolveExternals(VARIANT_FALSE));
  VARIANT_BOOL loaded = VARIANT_FALSE;
  const HRESULT result = document.load(source, &loaded);
  check(result);
  return result == S_OK && loaded == VARIANT_TRUE;
}

bool isReadable(const std::wstring& path) {
  const HANDLE file = ::CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    return false;
  }
  ::CloseHandle(file);
  return true;
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

// Writes a scratch file where there is none. False where one is in the way: a link too, which must
// not be followed.
bool saveScratch(IXMLDOMDocument& document, const std::wstring& target) {
  const HANDLE file = ::CreateFileW(target.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    return false;
  }
  ::CloseHandle(file);
  const HRESULT result = document.save(lent(Bstr(target)));
  if (FAILED(result)) {
    ::DeleteFileW(target.c_str());
  }
  check(result);
  return true;
}

// The same for a file that is deleted as soon as it is complete: its closing does that, and nobody
// else comes to open it.
bool savePassing(IXMLDOMDocument& document, const std::wstring& target) {
  const std::string bytes = bytesOf(document);
  const HANDLE file = ::CreateFileW(target.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    return false;
  }
  DWORD count = 0;
  const BOOL isWritten =
      ::WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr);
  const DWORD error = isWritten == 0 ? ::GetLastError() : ERROR_WRITE_FAULT;
  ::CloseHandle(file);
  if (isWritten == 0 || count != bytes.size()) {
    platform::raiseComError(HRESULT_FROM_WIN32(error));
  }
  return true;
}

}  // namespace

bool loadFile(IXMLDOMDocument& document, const CString& path) {
  const Bstr name(escapePercent(fullPath(path)));
  return load(document, lent(name));
}

bool loadBytes(IXMLDOMDocument& document, std::string_view bytes) {
  const ByteArray array(bytes);
  VARIANT value;
  ::VariantInit(&value);
  V_VT(&value) = VT_ARRAY | VT_UI1;
  V_ARRAY(&value) = array.get();
  return load(document, value);
}

void explain(IXMLDOMDocument& document, dom::LoadProblem& problem) {
  problem.failure = dom::LoadFailure::kNotWellFormed;
  IXMLDOMParseError* raw = nullptr;
  if (!found(document.get_parseError(&raw)) || raw == nullptr) {
    return;
  }
  const Owned<IXMLDOMParseError> error(raw);
  long code = 0;
  long line = 0;
  long column = 0;
  BSTR reason = nullptr;
  check(error->get_errorCode(&code));
  check(error->get_line(&line));
  check(error->get_linepos(&column));
  check(error->get_reason(&reason));
  const Bstr owned = Bstr::adopt(reason);
  if (code == kEncodingSwitch || code == kUnknownEncoding) {
    problem.failure = dom::LoadFailure::kEncoding;
  }
  problem.line = static_cast<std::uint64_t>(std::max(line, 0L));
  problem.column = static_cast<std::uint64_t>(std::max(column, 0L));
  problem.reason = toUtf8(owned.view());
  problem.reason.erase(problem.reason.find_last_not_of("\r\n") + 1);
}

void explainFile(IXMLDOMDocument& document, const CString& path, dom::LoadProblem& problem) {
  const std::wstring full = fullPath(path);
  const DWORD attributes = ::GetFileAttributesW(full.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    problem.failure = dom::LoadFailure::kMissing;
  } else if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
    problem.failure = dom::LoadFailure::kNotAFile;
  } else if (!isReadable(full)) {
    problem.failure = dom::LoadFailure::kNoAccess;
  } else {
    explain(document, problem);
  }
}

void saveFile(IXMLDOMDocument& document, const CString& path, dom::Durability durability) {
  IXMLDOMElement* root = nullptr;
  const bool hasRoot = found(document.get_documentElement(&root));
  const Owned<IXMLDOMElement> owned(root);
  const std::wstring target = fullPath(path);
  if (!hasRoot || root == nullptr || target.empty()) {
    platform::raiseComError(E_FAIL);
  }
  if (durability == dom::Durability::kPassing && savePassing(document, target)) {
    return;
  }
  if (durability == dom::Durability::kDisk || !saveScratch(document, target)) {
    const NewFile file(pathBeside(target));
    file.write(document);
    if (durability == dom::Durability::kDisk) {
      file.flush();
    }
    file.replace(target);
  }
  if (durability == dom::Durability::kPassing) {
    ::DeleteFileW(target.c_str());
  }
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
