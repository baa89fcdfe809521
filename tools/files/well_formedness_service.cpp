#include <windows.h>

#include <msxml2.h>
#include <oleauto.h>

#include <memory>

#include <quorvan/text/utf8.h>

#include <tools/files/well_formedness.h>

namespace quorvan::tool {

namespace {

struct ReleaseInterface {
  void operator()(IUnknown* object) const { object->Release(); }
};
struct FreeText {
  void operator()(OLECHAR* text) const { SysFreeString(text); }
};
template <class Interface>
using Held = std::unique_ptr<Interface, ReleaseInterface>;
using HeldText = std::unique_ptr<OLECHAR, FreeText>;

// The service's own account of its last load.
Refusal refusalOf(IXMLDOMDocument* document) {
  IXMLDOMParseError* raw = nullptr;
  if (FAILED(document->get_parseError(&raw)) || raw == nullptr) {
    return {};
  }
  const Held<IXMLDOMParseError> error(raw);
  long line = 0;
  long column = 0;
  BSTR reason = nullptr;
  error->get_line(&line);
  error->get_linepos(&column);
  error->get_reason(&reason);
  const HeldText held(reason);
  Refusal refusal{{static_cast<std::uint32_t>(line), static_cast<std::uint32_t>(column)}, {}};
  if (reason != nullptr) {
    refusal.reason = quorvan::toUtf8({reason, SysStringLen(reason)});
  }
  while (!refusal.reason.empty() &&
         (refusal.reason.back() == '\n' || refusal.reason.back() == '\r')) {
    refusal.reason.pop_back();
  }
  return refusal;
}

}  // namespace

Refusal findRefusal(const std::filesystem::path& path, const std::string& /*bytes*/) {
  constexpr CLSID kDocument = {
      0x2933BF90, 0x7B36, 0x11D2, {0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60}};
  constexpr IID kInterface = {
      0x2933BF81, 0x7B36, 0x11D2, {0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60}};
  Refusal refusal;
  void* raw = nullptr;
  if (SUCCEEDED(CoCreateInstance(kDocument, nullptr, CLSCTX_ALL, kInterface, &raw))) {
    const Held<IXMLDOMDocument> document(static_cast<IXMLDOMDocument*>(raw));
    document->put_async(VARIANT_FALSE);
    const HeldText name(SysAllocString(path.c_str()));
    VARIANT source;
    VariantInit(&source);
    source.vt = VT_BSTR;
    source.bstrVal = name.get();
    VARIANT_BOOL isLoaded = VARIANT_FALSE;
    document->load(source, &isLoaded);
    refusal = refusalOf(document.get());
  }
  if (refusal.reason.empty()) {
    refusal.reason = "the document service refuses it";
  }
  return refusal;
}

}  // namespace quorvan::tool
