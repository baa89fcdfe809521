#include <quorvan/xml/embedded/reading/expat_reader.h>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include <quorvan/xml/embedded/reading/doctype.h>
#include <quorvan/xml/embedded/reading/expat_parser.h>
#include <quorvan/xml/embedded/reading/limits.h>
#include <quorvan/xml/embedded/reading/parser_cost.h>
#include <quorvan/xml/embedded/reading/raw_start_tag.h>
#include <quorvan/xml/embedded/reading/tree_builder.h>
#include <quorvan/xml/embedded/tree/value_text.h>
#include <quorvan/xml/name_rules.h>

namespace quorvan::embedded {

namespace {

constexpr std::string_view kSpaceName = "xml:space";
constexpr const char* kUnknownEntity = "an entity is not declared";

// Whether both sides of the first colon, or the name without one, may name something.
bool isQualifiedName(std::string_view name) noexcept {
  const std::size_t colon = name.find(':');
  return dom::isXmlName(name.substr(0, colon)) &&
         (colon == std::string_view::npos || dom::isXmlName(name.substr(colon + 1)));
}

// Line ends as LF.
std::string normalised(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] != '\r') {
      result += text[at];
    } else if (at + 1 == text.size() || text[at + 1] != '\n') {
      result += '\n';
    }
  }
  return result;
}

// The name in "<!DOCTYPE name ...>".
std::string_view doctypeName(std::string_view source) noexcept {
  constexpr std::string_view kSpaces = " \t\r\n";
  source.remove_prefix(kDoctypeBegin.size());
  source.remove_prefix(std::min(source.find_first_not_of(kSpaces), source.size()));
  return source.substr(0, source.find_first_of(" \t\r\n[>"));
}

class Reader {
 public:
  Reader(Tree& tree, const Doctype& doctype, std::uint64_t fileSize);

  bool read(FileSource& file, dom::LoadProblem& problem) { return m_parser.parse(file, problem); }
  // The parser has not looked into the prefixes of names.
  [[nodiscard]] ParserCost& cost() noexcept { return m_cost; }

 private:
  static Reader& self(void* reader) noexcept { return *static_cast<Reader*>(reader); }

  void setMarkupHandlers();
  void setTextHandlers();
  void setDoctypeHandlers();

  void declaration(const char* version, const char* encoding, int standalone);
  void startElement(const char* name, const char** attributes);
  void addAttributes(Ref element, const char** attributes, int count);
  void addRawAttributes(Ref element, const char** attributes, int count);
  void addAttribute(Ref element, const char* name, std::string_view value);
  void followSpaceRule(const char** attributes, int count);
  void text(std::string_view characters);
  void comment(const char* text);
  void instruction(const char* target, const char* data);
  void doctype();
  [[nodiscard]] bool mayHideSpace() const;

  NameId nameOf(const char* name);

  ExpatParser m_parser{ExpatParser::Names::kAsTheyAre};
  TreeBuilder m_builder;
  const Doctype& m_doctype;
  ParserCost m_cost;
  bool m_isInCData = false;
  bool m_isInDoctype = false;
  bool m_isInTag = false;
  std::string m_cdata;
  std::string m_tag;
};

Reader::Reader(Tree& tree, const Doctype& doctype, std::uint64_t fileSize)
    : m_builder(tree), m_doctype(doctype), m_cost(doctype, fileSize) {
  XML_SetUserData(m_parser.raw(), this);
  setMarkupHandlers();
  setTextHandlers();
  setDoctypeHandlers();
}

void Reader::setMarkupHandlers() {
  XML_Parser const parser = m_parser.raw();
  XML_SetXmlDeclHandler(
      parser, [](void* reader, const char* version, const char* encoding, int standalone) {
        Reader& me = self(reader);
        me.m_parser.guard([&] { me.declaration(version, encoding, standalone); });
      });
  XML_SetStartElementHandler(parser, [](void* reader, const char* name, const char** attributes) {
    Reader& me = self(reader);
    me.m_parser.guard([&] { me.startElement(name, attributes); });
  });
  XML_SetEndElementHandler(parser, [](void* reader, const char* /*name*/) {
    Reader& me = self(reader);
    me.m_parser.guard([&] { me.m_builder.closeElement(); });
  });
  XML_SetProcessingInstructionHandler(parser,
                                      [](void* reader, const char* target, const char* data) {
                                        Reader& me = self(reader);
                                        me.m_parser.guard([&] { me.instruction(target, data); });
                                      });
  XML_SetCommentHandler(parser, [](void* reader, const char* text) {
    Reader& me = self(reader);
    me.m_parser.guard([&] { me.comment(text); });
  });
}

void Reader::setTextHandlers() {
  XML_Parser const parser = m_parser.raw();
  XML_SetCharacterDataHandler(parser, [](void* reader, const char* text, int length) {
    Reader& me = self(reader);
    me.m_parser.guard([&] { me.text({text, static_cast<std::size_t>(length)}); });
  });
  XML_SetStartCdataSectionHandler(parser, [](void* reader) { self(reader).m_isInCData = true; });
  XML_SetEndCdataSectionHandler(parser, [](void* reader) {
    Reader& me = self(reader);
    me.m_isInCData = false;
    me.m_parser.guard([&] { me.m_builder.addNode(NodeType::kCData, kCDataName, me.m_cdata); });
    me.m_cdata.clear();
  });
}

void Reader::setDoctypeHandlers() {
  XML_Parser const parser = m_parser.raw();
  XML_SetDoctypeDeclHandler(
      parser,
      [](void* reader, const char* /*name*/, const char* /*systemId*/, const char* /*publicId*/,
         int /*hasSubset*/) { self(reader).m_isInDoctype = true; },
      [](void* reader) {
        Reader& me = self(reader);
        me.m_parser.guard([&] { me.doctype(); });
      });
  // What has no handler of its own comes here; entities are replaced.
  XML_SetDefaultHandlerExpand(parser, [](void* reader, const char* text, int length) {
    Reader& me = self(reader);
    if (me.m_isInTag) {
      me.m_parser.guard([&] { me.m_tag.append(text, static_cast<std::size_t>(length)); });
    }
  });
  XML_SetSkippedEntityHandler(parser, [](void* reader, const char* /*name*/, int isParameter) {
    if (isParameter == 0) {
      self(reader).m_parser.refuse(kUnknownEntity);
    }
  });
}

NameId Reader::nameOf(const char* name) {
  const std::string_view text(name);
  NameTable& names = m_builder.tree().nodes().names();
  const NameId id = names.intern(dom::Name(text));
  const bool hasPrefix = text.find(':') != std::string_view::npos;
  if (hasPrefix) {
    m_cost.addPrefix();
  }
  // In ISO-8859-1 the parser takes signs for letters that it takes for none in Unicode.
  if (!names[id].isAscii && !names[id].isXmlName && !(hasPrefix && isQualifiedName(text))) {
    m_parser.refuse(kBadName);
  }
  return id;
}

void Reader::declaration(const char* version, const char* encoding, int standalone) {
  Declaration parts;
  parts.version = version;
  if (encoding != nullptr) {
    parts.encoding = encoding;
  }
  if (standalone >= 0) {
    parts.standalone = standalone == 1 ? "yes" : "no";
  }
  if (isDeclarationPart("version", parts.version)) {
    m_builder.addDeclaration(parts);
  } else {
    m_parser.refuse("the version of XML is not 1.0");
  }
}

void Reader::startElement(const char* name, const char** attributes) {
  // Attributes that a DOCTYPE adds to those in the file are left there.
  const int count = XML_GetSpecifiedAttributeCount(m_parser.raw()) / 2;
  if (m_builder.depth() == kMaxDepth) {
    m_parser.refuse("elements nested too deep", dom::LoadFailure::kLimit);
    return;
  }
  if (count > static_cast<int>(kMaxAttributes)) {
    m_parser.refuse("too many attributes in one element", dom::LoadFailure::kLimit);
    return;
  }
  const Ref element = m_builder.createElement(nameOf(name));
  if (!m_cost.addTag(name, static_cast<std::size_t>(count))) {
    m_parser.refuse("too many attributes declared for a file of this size",
                    dom::LoadFailure::kLimit);
    return;
  }
  if (count != 0 && (m_doctype.isOpenWorld || mayHideSpace())) {
    addRawAttributes(element, attributes, count);
  } else {
    addAttributes(element, attributes, count);
  }
  m_builder.openElement(element);
  followSpaceRule(attributes, count);
}

void Reader::addAttributes(Ref element, const char** attributes, int count) {
  for (int i = 0; i < count; ++i) {
    addAttribute(element, attributes[2 * i], attributes[2 * i + 1]);
  }
}

void Reader::addRawAttributes(Ref element, const char** attributes, int count) {
  m_tag.clear();
  m_isInTag = true;
  XML_DefaultCurrent(m_parser.raw());
  m_isInTag = false;
  RawStartTag tag(m_tag);
  for (int i = 0; i < count; ++i) {
    const char* const parsed = attributes[2 * i + 1];
    const std::optional<RawValue> raw = tag.next();
    if (raw && m_doctype.isOpenWorld && !raw->isKnown(m_doctype.entities)) {
      // The parser leaves out what it finds no declaration for.
      m_parser.refuse(kUnknownEntity);
      return;
    }
    const std::optional<std::string> kept = raw ? raw->keepingSpace(parsed) : std::nullopt;
    addAttribute(element, attributes[2 * i], kept ? std::string_view(*kept) : parsed);
  }
}

void Reader::addAttribute(Ref element, const char* name, std::string_view value) {
  m_cost.addAttribute(name, value);
  m_builder.tree().nodes().put(element, nameOf(name), {value, isPlain(value)});
}

void Reader::followSpaceRule(const char** attributes, int count) {
  for (int i = 0; i < count; ++i) {
    if (attributes[2 * i] != kSpaceName) {
      continue;
    }
    const std::string_view rule = attributes[2 * i + 1];
    if (rule == "preserve" || rule == "default") {
      m_builder.preserveSpace(rule == "preserve");
    }
  }
}

// Whether the start tag may hold a tab or line end that the parser has turned into a blank.
bool Reader::mayHideSpace() const {
  int offset = 0;
  int size = 0;
  const char* const input = XML_GetInputContext(m_parser.raw(), &offset, &size);
  const int length = XML_GetCurrentByteCount(m_parser.raw());
  if (input == nullptr || length == 0) {
    return true;
  }
  const std::string_view tag(input + offset, static_cast<std::size_t>(length));
  return tag.find_first_of("\t\n\r") != std::string_view::npos;
}

void Reader::text(std::string_view characters) {
  if (m_isInCData) {
    m_cdata.append(characters);
  } else {
    m_builder.addText(characters);
  }
}

void Reader::comment(const char* text) {
  if (!m_isInDoctype) {
    m_builder.addNode(NodeType::kComment, kCommentName, text);
  }
}

void Reader::instruction(const char* target, const char* data) {
  if (m_isInDoctype) {
    return;
  }
  NameTable& names = m_builder.tree().nodes().names();
  const NameId name = names.intern(dom::Name(std::string_view(target)));
  if (!names[name].isXmlName || names[name].view().find(':') != std::string_view::npos) {
    m_parser.refuse(kBadName);
    return;
  }
  m_builder.addNode(NodeType::kInstruction, name, data);
}

void Reader::doctype() {
  m_isInDoctype = false;
  const std::string& source = m_doctype.source;
  const NameId name = m_builder.tree().nodes().names().intern(dom::Name(doctypeName(source)));
  m_builder.addNode(NodeType::kDoctype, name, normalised(source));
}

}  // namespace

Tree::Owned readWithExpat(FileSource& file, dom::LoadProblem& problem) {
  const std::optional<Doctype> doctype = Doctype::read(file, problem);
  if (!doctype) {
    return nullptr;
  }
  Tree::Owned tree = Tree::create();
  {
    Reader reader(*tree, *doctype, file.size());
    if (!reader.read(file, problem)) {
      return nullptr;
    }
    if (!reader.cost().hasPrefix()) {
      return tree;
    }
    if (!reader.cost().mayResolvePrefixes()) {
      problem.failure = dom::LoadFailure::kLimit;
      problem.reason = "namespace addresses too long for a file of this size";
      return nullptr;
    }
  }
  file.rewind();
  if (!ExpatParser(ExpatParser::Names::kWithNamespaces).parse(file, problem)) {
    return nullptr;
  }
  return tree;
}

}  // namespace quorvan::embedded
