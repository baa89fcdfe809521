#include <quorvan/xml/service/document_class.h>

#include <atomic>

namespace quorvan::service {

namespace {

// The oldest, version-independent document class.
constexpr CLSID kDocumentClass = {
    0x2933BF90, 0x7B36, 0x11D2, {0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60}};
// In-process server, in-process handler, local server, remote server.
constexpr DWORD kClassContext = 23;

// A place for each thread, given back when the library is unloaded: what a variable of the language
// takes of the system for that would be lost.
class ThreadPlace {
 public:
  constexpr ThreadPlace() noexcept = default;
  ~ThreadPlace() { ::TlsFree(m_index.exchange(TLS_OUT_OF_INDEXES)); }
  ThreadPlace(const ThreadPlace&) = delete;
  ThreadPlace& operator=(const ThreadPlace&) = delete;

  // Null where nothing was put.
  [[nodiscard]] void* get() const noexcept {
    const DWORD index = m_index;
    return index == TLS_OUT_OF_INDEXES ? nullptr : ::TlsGetValue(index);
  }
  // Gives whether it is there from now on.
  bool put(void* value) noexcept {
    DWORD none = TLS_OUT_OF_INDEXES;
    if (m_index == none) {
      const DWORD index = ::TlsAlloc();
      if (!m_index.compare_exchange_strong(none, index)) {
        ::TlsFree(index);  // another thread was faster
      }
    }
    return m_index != TLS_OUT_OF_INDEXES && ::TlsSetValue(m_index, value) != 0;
  }

 private:
  std::atomic<DWORD> m_index = TLS_OUT_OF_INDEXES;
};

// What makes documents for this thread: interfaces are not passed between threads. It is kept for
// good, as is the code behind it.
constinit ThreadPlace factoryPlace;

// The module that an object's code is in.
HMODULE moduleOf(IUnknown& object, DWORD flags) {
  const auto* const code = *reinterpret_cast<const wchar_t* const*>(&object);
  HMODULE module = nullptr;
  ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | flags, code, &module);
  return module;
}

// COM unloads a service after the last CoUninitialize, nodes held or not, and a filer releases its
// nodes after that call: the code that ends them has to stay.
HMODULE keepLoaded(IUnknown& object) {
  return moduleOf(object, GET_MODULE_HANDLE_EX_FLAG_PIN);
}

// One that stands for a factory elsewhere, in another process or another thread's apartment, would
// be of no use after the last CoUninitialize.
void keepFactory(HMODULE service) {
  IClassFactory* found = nullptr;
  if (FAILED(::CoGetClassObject(kDocumentClass, kClassContext, nullptr, IID_IClassFactory,
                                reinterpret_cast<void**>(&found)))) {
    return;
  }
  if (moduleOf(*found, GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT) != service ||
      !factoryPlace.put(found)) {
    found->Release();
  }
}

// Without COM on this thread a document is not to be had, whatever is kept.
bool isComReady() {
  ULONG_PTR context = 0;
  return SUCCEEDED(::CoGetContextToken(&context));
}

}  // namespace

HRESULT createDocument(IXMLDOMDocument** document) {
  *document = nullptr;
  auto** const created = reinterpret_cast<void**>(document);
  auto* const factory = static_cast<IClassFactory*>(factoryPlace.get());
  if (factory != nullptr && isComReady() &&
      SUCCEEDED(factory->CreateInstance(nullptr, __uuidof(IXMLDOMDocument), created))) {
    return S_OK;
  }
  const HRESULT result = ::CoCreateInstance(kDocumentClass, nullptr, kClassContext,
                                            __uuidof(IXMLDOMDocument), created);
  if (SUCCEEDED(result)) {
    const HMODULE service = keepLoaded(**document);
    if (factory == nullptr) {
      keepFactory(service);
    }
  }
  return result;
}

}  // namespace quorvan::service
