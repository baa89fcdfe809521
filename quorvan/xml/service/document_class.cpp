#include <quorvan/xml/service/document_class.h>

#include <atomic>
#include <utility>

namespace quorvan::service {

namespace {

// The oldest, version-independent document class.
constexpr CLSID kDocumentClass = {
    0x2933BF90, 0x7B36, 0x11D2, {0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60}};
// In-process server, in-process handler, local server, remote server.
constexpr DWORD kClassContext = 23;

// What makes documents for the first thread that asked for one; kept for good, as is the code
// behind it. Interfaces are not passed between threads, and a place of its own for each thread
// would be lost whenever the library is unloaded.
constinit std::atomic<DWORD> owner = 0;
constinit IClassFactory* factory = nullptr;

bool isOwner() {
  return owner.load(std::memory_order_relaxed) == ::GetCurrentThreadId();
}

bool becomesOwner() {
  DWORD nobody = 0;
  return isOwner() || owner.compare_exchange_strong(nobody, ::GetCurrentThreadId());
}

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
  if (moduleOf(*found, GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT) == service) {
    std::swap(found, factory);
  }
  if (found != nullptr) {
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
  if (isOwner() && factory != nullptr && isComReady() &&
      SUCCEEDED(factory->CreateInstance(nullptr, __uuidof(IXMLDOMDocument), created))) {
    return S_OK;
  }
  const HRESULT result = ::CoCreateInstance(kDocumentClass, nullptr, kClassContext,
                                            __uuidof(IXMLDOMDocument), created);
  if (SUCCEEDED(result)) {
    const HMODULE service = keepLoaded(**document);
    if (becomesOwner()) {
      keepFactory(service);
    }
  }
  return result;
}

}  // namespace quorvan::service
