#include <expat.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <string_view>

#include <tools/files/well_formedness.h>

namespace quorvan::tool {

namespace {

constexpr std::size_t kBlock = std::size_t{1024} * 1024;
constexpr XML_Char kSeparator = '\n';

using Parser = std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)>;

int acceptSingleBytes(void* /*data*/, const XML_Char* name, XML_Encoding* description) {
  if (std::string_view(name) != "windows-1252" && std::string_view(name) != "ISO8859-1") {
    return XML_STATUS_ERROR;
  }
  for (int byte = 0; byte < 256; ++byte) {
    description->map[byte] = byte;
  }
  description->data = nullptr;
  description->convert = nullptr;
  description->release = nullptr;
  return XML_STATUS_OK;
}

std::uint32_t bounded(XML_Size number) {
  return static_cast<std::uint32_t>(
      std::min<XML_Size>(number, std::numeric_limits<std::uint32_t>::max()));
}

Refusal refusalOf(XML_Parser parser) {
  return {
      {bounded(XML_GetCurrentLineNumber(parser)), bounded(XML_GetCurrentColumnNumber(parser) + 1)},
      XML_ErrorString(XML_GetErrorCode(parser))};
}

}  // namespace

Refusal findRefusal(const std::filesystem::path& /*path*/, const std::string& bytes) {
  const Parser parser(XML_ParserCreateNS(nullptr, kSeparator), XML_ParserFree);
  if (parser == nullptr) {
    return {{}, "out of memory"};
  }
  XML_SetUnknownEncodingHandler(parser.get(), acceptSingleBytes, nullptr);
  for (std::size_t at = 0; at <= bytes.size(); at += kBlock) {
    const std::size_t count = std::min(kBlock, bytes.size() - at);
    const bool isLast = at + count == bytes.size();
    if (XML_Parse(parser.get(), bytes.data() + at, static_cast<int>(count), isLast ? 1 : 0) !=
        XML_STATUS_OK) {
      return refusalOf(parser.get());
    }
    if (isLast) {
      break;
    }
  }
  return {{}, "the document service refuses it: a limit, or an encoding that is not known"};
}

}  // namespace quorvan::tool
