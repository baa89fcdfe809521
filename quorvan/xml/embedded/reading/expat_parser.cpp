#include <quorvan/xml/embedded/reading/expat_parser.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>

#include <quorvan/xml/embedded/reading/limits.h>
#include <quorvan/xml/embedded/reading/surrogate_check.h>
#include <quorvan/xml/embedded/tree/encoding.h>

namespace quorvan::embedded {

namespace {

constexpr std::size_t kLeastBlock = std::size_t{64} * 1024;
constexpr std::size_t kMaxBlock = std::size_t{256} * 1024 * 1024;
constexpr XML_Char kSeparator = '\n';  // stands in no namespace name

// Memory for the parser from where all other memory comes from, with its size in front.
constexpr std::size_t kHeader = alignof(std::max_align_t);

void* allocate(std::size_t size) noexcept {
  if (size > std::numeric_limits<std::size_t>::max() - kHeader) {
    return nullptr;
  }
  auto* const block = static_cast<char*>(::operator new(kHeader + size, std::nothrow));
  if (block == nullptr) {
    return nullptr;
  }
  std::memcpy(block, &size, sizeof size);
  return block + kHeader;
}

void release(void* memory) noexcept {
  if (memory != nullptr) {
    ::operator delete(static_cast<char*>(memory) - kHeader);
  }
}

void* reallocate(void* memory, std::size_t size) noexcept {
  if (memory == nullptr) {
    return allocate(size);
  }
  void* const larger = allocate(size);
  if (larger == nullptr) {
    return nullptr;
  }
  std::size_t former = 0;
  std::memcpy(&former, static_cast<char*>(memory) - kHeader, sizeof former);
  std::memcpy(larger, memory, std::min(former, size));
  release(memory);
  return larger;
}

constexpr XML_Memory_Handling_Suite kMemory = {allocate, reallocate, release};

int describeEncoding(void* /*data*/, const XML_Char* name, XML_Encoding* description) {
  const auto encoding = encodingNamed(name);
  if (encoding != Encoding::kWindows1252 && encoding != Encoding::kLatin1) {
    return XML_STATUS_ERROR;
  }
  for (int byte = 0; byte < 256; ++byte) {
    const auto unit = static_cast<unsigned char>(byte);
    description->map[byte] =
        encoding == Encoding::kLatin1 ? unit : static_cast<int>(windows1252Character(unit));
  }
  description->data = nullptr;
  description->convert = nullptr;
  description->release = nullptr;
  return XML_STATUS_OK;
}

dom::LoadFailure failureOf(XML_Error error) noexcept {
  switch (error) {
    case XML_ERROR_UNKNOWN_ENCODING:
    case XML_ERROR_INCORRECT_ENCODING:
    case XML_ERROR_PARTIAL_CHAR:
      return dom::LoadFailure::kEncoding;
    case XML_ERROR_AMPLIFICATION_LIMIT_BREACH:
      return dom::LoadFailure::kLimit;
    default:
      return dom::LoadFailure::kNotWellFormed;
  }
}

// Without context it is a part of the DOCTYPE, which may be left unread; what it might declare is
// not known then. Elsewhere its text would be missing.
int refuseExternalEntity(XML_Parser /*parser*/, const XML_Char* context, const XML_Char* /*base*/,
                         const XML_Char* /*systemId*/, const XML_Char* /*publicId*/) {
  return context == nullptr ? XML_STATUS_OK : XML_STATUS_ERROR;
}

}  // namespace

ExpatParser::ExpatParser(Names names)
    : m_parser(XML_ParserCreate_MM(nullptr, &kMemory,
                                   names == Names::kWithNamespaces ? &kSeparator : nullptr)) {
  if (m_parser == nullptr) {
    throw std::bad_alloc();
  }
  XML_SetUnknownEncodingHandler(m_parser, describeEncoding, nullptr);
  XML_SetExternalEntityRefHandler(m_parser, refuseExternalEntity);
  XML_SetParamEntityParsing(m_parser, XML_PARAM_ENTITY_PARSING_ALWAYS);
  XML_SetBillionLaughsAttackProtectionMaximumAmplification(m_parser, kMaxEntityAmplification);
  XML_SetBillionLaughsAttackProtectionActivationThreshold(m_parser, kFreeEntityBytes);
}

ExpatParser::~ExpatParser() {
  XML_ParserFree(m_parser);
}

bool ExpatParser::parse(FileSource& file, dom::LoadProblem& problem) {
  SurrogateCheck surrogates;
  std::size_t block = kLeastBlock;
  XML_Index position = -1;
  for (;;) {
    void* const buffer = XML_GetBuffer(m_parser, static_cast<int>(block));
    if (buffer == nullptr) {
      throw std::bad_alloc();
    }
    const std::size_t count = file.read(static_cast<char*>(buffer), block);
    if (!surrogates.accept({static_cast<const char*>(buffer), count})) {
      problem.failure = dom::LoadFailure::kEncoding;
      problem.reason = "a surrogate stands without its partner";
      return false;
    }
    const XML_Status status = XML_ParseBuffer(m_parser, static_cast<int>(count), count == 0);
    if (m_raised) {
      std::rethrow_exception(m_raised);
    }
    if (status != XML_STATUS_OK) {
      if (m_isStopped && m_reason == nullptr) {
        return true;
      }
      if (XML_GetErrorCode(m_parser) == XML_ERROR_NO_MEMORY) {
        throw std::bad_alloc();
      }
      explain(problem);
      return false;
    }
    if (count == 0) {
      return true;
    }
    // The parser begins anew with a part that is not complete: where one gets long, larger blocks
    // keep that from costing its square.
    const XML_Index reached = XML_GetCurrentByteIndex(m_parser);
    block = reached == position ? std::min(2 * block, kMaxBlock) : kLeastBlock;
    position = reached;
  }
}

void ExpatParser::refuse(const char* reason, dom::LoadFailure failure) noexcept {
  if (m_reason == nullptr) {
    m_reason = reason;
    m_failure = failure;
  }
  finish();
}

void ExpatParser::finish() noexcept {
  m_isStopped = true;
  XML_StopParser(m_parser, XML_FALSE);
}

void ExpatParser::explain(dom::LoadProblem& problem) const {
  const XML_Error error = XML_GetErrorCode(m_parser);
  problem.failure = m_reason != nullptr ? m_failure : failureOf(error);
  problem.reason = m_reason != nullptr ? m_reason : XML_ErrorString(error);
  problem.line = XML_GetCurrentLineNumber(m_parser);
  problem.column = XML_GetCurrentColumnNumber(m_parser) + 1;
}

}  // namespace quorvan::embedded
