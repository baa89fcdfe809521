#include <quorvan/xml/service/document_bytes.h>

#include <cstddef>
#include <limits>

#include <windows.h>

#include <quorvan/platform/com_error.h>
#include <quorvan/xml/service/bstr.h>
#include <quorvan/xml/service/node_access.h>

namespace quorvan::service {

namespace {

// A stream that keeps in memory what is written into it.
Owned<IStream> memoryStream() {
  IStream* stream = nullptr;
  check(::CreateStreamOnHGlobal(nullptr, TRUE, &stream));
  return Owned<IStream>(stream);
}

// A stream for the service that stays the caller's.
VARIANT lent(IStream& stream) {
  VARIANT value;
  ::VariantInit(&value);
  V_VT(&value) = VT_UNKNOWN;
  V_UNKNOWN(&value) = &stream;
  return value;
}

}  // namespace

std::string bytesOf(IXMLDOMDocument& document) {
  const Owned<IStream> stream = memoryStream();
  check(document.save(lent(*stream)));
  STATSTG facts = {};
  check(stream->Stat(&facts, STATFLAG_NONAME));
  if (facts.cbSize.QuadPart > std::numeric_limits<ULONG>::max()) {
    platform::raiseComError(E_OUTOFMEMORY);
  }
  std::string bytes(static_cast<std::size_t>(facts.cbSize.QuadPart), '\0');
  check(stream->Seek({}, STREAM_SEEK_SET, nullptr));
  ULONG count = 0;
  check(stream->Read(bytes.data(), static_cast<ULONG>(bytes.size()), &count));
  bytes.resize(count);
  return bytes;
}

}  // namespace quorvan::service
