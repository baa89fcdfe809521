#include <quorvan/xml/embedded/reading/doctype.h>

#include <algorithm>

#include <quorvan/xml/embedded/reading/expat_parser.h>
#include <quorvan/xml/embedded/reading/step_budget.h>

namespace quorvan::embedded {

namespace {

constexpr std::string_view kNamespaceName = "xmlns";
constexpr std::string_view kInstructionBegin = "<?";
constexpr std::string_view kCommentBegin = "<!--";

bool startsWith(std::string_view text, std::string_view begin) noexcept {
  return text.substr(0, begin.size()) == begin;
}
bool endsWith(std::string_view text, std::string_view end) noexcept {
  return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}
bool isQuote(char unit) noexcept {
  return unit == '"' || unit == '\'';
}

// Whether the rest of the token is still to come: the parser hands out a long one in pieces.
bool isCut(std::string_view token) noexcept {
  if (isQuote(token.front())) {
    return token.size() == 1 || token.back() != token.front();
  }
  if (startsWith(token, kCommentBegin)) {
    return !endsWith(token.substr(kCommentBegin.size()), "-->");
  }
  return startsWith(token, kInstructionBegin) &&
         !endsWith(token.substr(kInstructionBegin.size()), "?>");
}

// Goes through the declarations. Each is looked at before what follows may use it.
class DeclarationPass {
 public:
  DeclarationPass(Doctype& doctype, std::uint64_t fileSize);

  bool read(FileSource& file, dom::LoadProblem& problem) { return m_parser.parse(file, problem); }
  [[nodiscard]] bool hasDoctype() const noexcept { return m_hasDoctype; }

 private:
  static DeclarationPass& self(void* pass) noexcept { return *static_cast<DeclarationPass*>(pass); }

  void entity(std::string_view name, bool isParameter, std::string_view text);
  void attribute(std::string_view element, std::string_view name, std::string_view value);
  void checkPlainName(std::string_view name);

  ExpatParser m_parser{ExpatParser::Names::kAsTheyAre};
  Doctype& m_doctype;
  StepBudget m_steps;
  bool m_hasDoctype = false;
};

DeclarationPass::DeclarationPass(Doctype& doctype, std::uint64_t fileSize)
    : m_doctype(doctype), m_steps(fileSize) {
  XML_Parser const parser = m_parser.raw();
  XML_SetUserData(parser, this);
  XML_SetStartElementHandler(parser, [](void* pass, const char* /*name*/, const char** /*values*/) {
    self(pass).m_parser.finish();
  });
  XML_SetDoctypeDeclHandler(
      parser,
      [](void* pass, const char* /*name*/, const char* /*systemId*/, const char* /*publicId*/,
         int /*hasSubset*/) { self(pass).m_hasDoctype = true; },
      [](void* pass) { self(pass).m_parser.finish(); });
  XML_SetEntityDeclHandler(
      parser, [](void* pass, const char* name, int isParameter, const char* text, int length,
                 const char* /*base*/, const char* /*systemId*/, const char* /*publicId*/,
                 const char* /*notation*/) {
        DeclarationPass& me = self(pass);
        me.m_parser.guard([&] {
          me.entity(name, isParameter != 0,
                    text == nullptr ? std::string_view()
                                    : std::string_view(text, static_cast<std::size_t>(length)));
        });
      });
  XML_SetAttlistDeclHandler(
      parser, [](void* pass, const char* element, const char* name, const char* /*type*/,
                 const char* value, int /*isRequired*/) {
        DeclarationPass& me = self(pass);
        me.m_parser.guard([&] { me.attribute(element, name, value == nullptr ? "" : value); });
      });
  XML_SetNotationDeclHandler(parser, [](void* pass, const char* name, const char* /*base*/,
                                        const char* /*systemId*/, const char* /*publicId*/) {
    DeclarationPass& me = self(pass);
    me.m_parser.guard([&] { me.checkPlainName(name); });
  });
}

void DeclarationPass::entity(std::string_view name, bool isParameter, std::string_view text) {
  checkPlainName(name);
  EntityGraph& entities = m_doctype.entities;
  if (!(isParameter ? entities.declareParameter(name, text)
                    : entities.declareGeneral(name, text))) {
    m_parser.refuse("entities nested too deep", dom::LoadFailure::kLimit);
  }
}

// The parser compares each attribute with all that are declared for the element.
void DeclarationPass::attribute(std::string_view element, std::string_view name,
                                std::string_view value) {
  auto found = m_doctype.declaredAttributes.find(element);
  if (found == m_doctype.declaredAttributes.end()) {
    found = m_doctype.declaredAttributes.emplace(element, DeclaredAttributes()).first;
  }
  DeclaredAttributes& declared = found->second;
  declared.prefixes += name.find(':') != std::string_view::npos ? 1U : 0U;
  if (startsWith(name, kNamespaceName)) {
    declared.addressBytes += value.size();
    declared.longestAddress = std::max(declared.longestAddress, value.size());
  }
  if (!m_steps.spend(++declared.count)) {
    m_parser.refuse("too many attributes declared for one element", dom::LoadFailure::kLimit);
  }
}

// Of what bears no prefix.
void DeclarationPass::checkPlainName(std::string_view name) {
  if (name.find(':') != std::string_view::npos) {
    m_parser.refuse(kBadName);
  }
}

// Copies the DOCTYPE out. Parameter entities are left as they stand, so that what is kept is what
// stands in the file.
class SourcePass {
 public:
  explicit SourcePass(Doctype& doctype);

  bool read(FileSource& file, dom::LoadProblem& problem) { return m_parser.parse(file, problem); }

 private:
  static SourcePass& self(void* pass) noexcept { return *static_cast<SourcePass*>(pass); }

  void piece(std::string_view text);
  void checkNames(std::string_view token);

  ExpatParser m_parser{ExpatParser::Names::kAsTheyAre};
  Doctype& m_doctype;
  std::size_t m_token = 0;  // where the last token begins in the source
  bool m_isCut = false;     // more of it comes
};

SourcePass::SourcePass(Doctype& doctype) : m_doctype(doctype) {
  XML_Parser const parser = m_parser.raw();
  XML_SetParamEntityParsing(parser, XML_PARAM_ENTITY_PARSING_NEVER);
  XML_SetUserData(parser, this);
  XML_SetDefaultHandler(parser, [](void* pass, const char* text, int length) {
    SourcePass& me = self(pass);
    me.m_parser.guard([&] { me.piece({text, static_cast<std::size_t>(length)}); });
  });
  XML_SetEndDoctypeDeclHandler(parser, [](void* pass) {
    SourcePass& me = self(pass);
    me.m_parser.guard([&] {
      me.m_doctype.source += '>';
      me.m_parser.finish();
    });
  });
  XML_SetNotStandaloneHandler(parser, [](void* pass) {
    self(pass).m_doctype.isOpenWorld = true;
    return static_cast<int>(XML_STATUS_OK);
  });
}

void SourcePass::piece(std::string_view text) {
  std::string& source = m_doctype.source;
  if (source.empty() && text != kDoctypeBegin) {
    return;
  }
  if (!m_isCut) {
    m_token = source.size();
  }
  source.append(text);
  const std::string_view token = std::string_view(source).substr(m_token);
  m_isCut = isCut(token);
  if (!m_isCut) {
    checkNames(token);
  }
}

// The parser takes three signs of ISO-8859-1 for letters that it takes for none in Unicode.
void SourcePass::checkNames(std::string_view token) {
  const bool isInstruction = startsWith(token, kInstructionBegin);
  if (isInstruction) {
    const std::size_t begin = kInstructionBegin.size();
    token = token.substr(begin, token.find_first_of(" \t\r\n?", begin) - begin);
  } else if (isQuote(token.front()) || startsWith(token, kCommentBegin)) {
    return;
  }
  for (const std::string_view sign : {"\xC2\xAA", "\xC2\xB5", "\xC2\xBA"}) {
    if (token.find(sign) != std::string_view::npos) {
      m_parser.refuse(kBadName);
    }
  }
  if (isInstruction && token.find(':') != std::string_view::npos) {
    m_parser.refuse(kBadName);
  }
}

}  // namespace

std::optional<Doctype> Doctype::read(FileSource& file, dom::LoadProblem& problem) {
  Doctype doctype;
  DeclarationPass declarations(doctype, file.size());
  if (!declarations.read(file, problem)) {
    return std::nullopt;
  }
  doctype.entities.finish();
  file.rewind();
  if (declarations.hasDoctype()) {
    if (!SourcePass(doctype).read(file, problem)) {
      return std::nullopt;
    }
    file.rewind();
  }
  return doctype;
}

}  // namespace quorvan::embedded
