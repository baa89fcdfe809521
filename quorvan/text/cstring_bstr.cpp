#include <windows.h>

#include <oleauto.h>

#include <new>

#include <quorvan/text/cstring.h>

wchar_t* CString::AllocSysString() const {
  BSTR text = ::SysAllocStringLen(m_data, static_cast<UINT>(m_length));
  if (text == nullptr) {
    throw std::bad_alloc();
  }
  return text;
}
