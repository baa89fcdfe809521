// The handles of the XML document service on Windows: the COM smart pointers of the platform's
// own service.
#pragma once

// <msxml2.h> would bring another document class under the same name.
#include <msxml.h>

#include <comdef.h>

#include <cstddef>

#ifdef __MINGW32__
// These headers declare the interfaces without their identifiers.
__CRT_UUID_DECL(IXMLDOMNode, 0x2933BF80, 0x7B36, 0x11D2, 0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E,
                0x60)
__CRT_UUID_DECL(IXMLDOMElement, 0x2933BF86, 0x7B36, 0x11D2, 0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98,
                0x3E, 0x60)
__CRT_UUID_DECL(IXMLDOMDocument, 0x2933BF81, 0x7B36, 0x11D2, 0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98,
                0x3E, 0x60)
#endif

_COM_SMARTPTR_TYPEDEF(IXMLDOMNode, __uuidof(IXMLDOMNode));
_COM_SMARTPTR_TYPEDEF(IXMLDOMDocument, __uuidof(IXMLDOMDocument));

#ifdef __MINGW32__
// Without these a comparison with null asks the object who it is, each time.
template <class Identified>
bool operator==(_com_ptr_t<Identified>& pointer, std::nullptr_t) noexcept {
  return pointer.GetInterfacePtr() == nullptr;
}
template <class Identified>
bool operator!=(_com_ptr_t<Identified>& pointer, std::nullptr_t) noexcept {
  return pointer.GetInterfacePtr() != nullptr;
}
#endif
