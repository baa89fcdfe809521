#include <quorvan/xml/embedded/writing/document_writer.h>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <optional>

#include <quorvan/text/utf8.h>
#include <quorvan/xml/embedded/tree/prefetch.h>

namespace quorvan::embedded {

namespace {

constexpr HRESULT kBadEncoding = static_cast<HRESULT>(0xC00CE029U);
constexpr std::string_view kLineBreak = "\r\n";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
// Short texts are copied in one piece of this size, past their end: names and values in the tree
// are followed by bytes that may be read.
constexpr std::size_t kPiece = 16;
// What a tag takes beyond its names and values: pieces past their ends, signs around them.
constexpr std::size_t kSlack = 3 * kPiece;
// Deeper down the indentation stays the same, so that a saved file is not much larger than the one
// that was loaded.
constexpr std::size_t kMaxIndentation = 100;

// Nodes lie in memory as they do in the file: how far ahead of the one being written they are asked
// for.
constexpr std::size_t kAhead = 1024;

char* copyText(char* to, const char* text, std::size_t size) noexcept {
  std::memcpy(to, text, kPiece);
  if (size > kPiece) {
    std::memcpy(to + kPiece, text + kPiece, kPiece);
    if (size > 2 * kPiece) {
      std::memcpy(to + 2 * kPiece, text + 2 * kPiece, size - 2 * kPiece);
    }
  }
  return to + size;
}

// What becomes of the characters of a text at one kind of place.
struct Place {
  bool escapesMarkup;
  bool isAttribute;
  // What a character that the encoding lacks is written with: a reference between these, or else.
  bool hasReferences;
  std::string_view before;
  std::string_view after;

  // What an ASCII character is written as, if not as itself.
  [[nodiscard]] std::string_view replacement(char unit) const noexcept {
    switch (unit) {
      case '&':
        return escapesMarkup ? "&amp;" : "";
      case '<':
        return escapesMarkup ? "&lt;" : "";
      case '>':
        return escapesMarkup ? "&gt;" : "";
      case '"':
        return isAttribute ? "&quot;" : "";
      case '\t':
        return isAttribute ? "&#9;" : "";
      case '\n':
        return isAttribute ? "&#10;" : kLineBreak;
      case '\r':
        return escapesMarkup ? "&#13;" : "";
      default:
        return "";
    }
  }
};

constexpr Place kInAttribute = {true, true, true, "", ""};
constexpr Place kInText = {true, false, true, "", ""};
// The section is closed for a reference and opened again behind it.
constexpr Place kInCData = {false, false, true, "]]>", "<![CDATA["};
constexpr Place kVerbatim = {false, false, false, "", ""};

class DocumentWriter {
 public:
  DocumentWriter(const Tree& tree, Encoding encoding, BlockTarget& target);

  void write();

 private:
  void writeNode(Ref top);
  Ref writeEnds(Ref at, Ref top);
  void writeStartTag(Ref ref, const Node& node, bool isWhole);
  void writeAttribute(NameId name, const Value& value);
  void writeEndTag(const Node& node);
  void writeLeaf(Ref ref, const Node& node);
  void writeDeclaration(Ref ref);
  void writeLineBreak();
  void writeName(NameId name);
  void writeValue(const Value& value, const Place& place);
  void writeCharacter(char32_t character, const Place& place);

  const Tree& m_tree;
  const NodeStore& m_nodes;
  const NameTable& m_names;
  Encoding m_encoding;
  BlockBuffer m_out;
  std::size_t m_depth = 0;
};

DocumentWriter::DocumentWriter(const Tree& tree, Encoding encoding, BlockTarget& target)
    : m_tree(tree),
      m_nodes(tree.nodes()),
      m_names(tree.nodes().names()),
      m_encoding(encoding),
      m_out(encoding, target) {}

void DocumentWriter::write() {
  if (isUnicode(m_encoding) && m_encoding != Encoding::kUtf8) {
    m_out.put(kByteOrderMark);
  }
  for (Ref at = m_tree.node(m_tree.document()).firstChild; at != 0; at = m_tree.node(at).next) {
    writeNode(at);
    m_out.put(kLineBreak);
  }
  m_out.finish();
}

// Writes a child of the document with all below it, without recursion.
void DocumentWriter::writeNode(Ref top) {
  Ref at = top;
  while (at != 0) {
    const Node& node = m_nodes.node(at);
    prefetch(reinterpret_cast<const char*>(&node) + kAhead, 1);
    if (node.has(NodeFlag::kSpaceBefore)) {
      writeLineBreak();
    }
    if (node.isElement()) {
      const bool isEmpty = node.firstChild == 0;
      writeStartTag(at, node, isEmpty && !node.has(NodeFlag::kSpaceAtEnd));
      if (!isEmpty) {
        ++m_depth;
        at = node.firstChild;
        continue;
      }
      if (node.has(NodeFlag::kSpaceAtEnd)) {
        writeEndTag(node);
      }
    } else {
      writeLeaf(at, node);
    }
    at = node.next != 0 && at != top ? node.next : writeEnds(at, top);
  }
}

// Writes the end tags of the elements that end with this node; returns the next node, 0 when all
// is written.
Ref DocumentWriter::writeEnds(Ref at, Ref top) {
  while (at != top && m_nodes.node(at).next == 0) {
    at = m_tree.parent(at);
    --m_depth;
    writeEndTag(m_nodes.node(at));
  }
  return at == top ? 0 : m_nodes.node(at).next;
}

// Nearly all of a drawing is written here: in one go a tag, but for what is not plain or too long.
void DocumentWriter::writeStartTag(Ref ref, const Node& node, bool isWhole) {
  constexpr std::size_t kRoom = BlockBuffer::kMaxReserve;
  char* at = m_out.reserve(kRoom);
  const char* limit = at + (kRoom - kSlack);
  const NameEntry* const names = &m_names[kNoName];
  const auto fits = [&](const NameEntry& name, std::size_t size) {
    // The signs around the last attribute may have gone a little beyond the limit.
    return name.isAscii && static_cast<std::ptrdiff_t>(name.length + size) < limit - at;
  };
  if (const NameEntry& name = names[node.name()]; fits(name, 0)) {
    char* const begin = at;
    at = copyText(at, name.text - 1, name.length + 1);
    *begin = '<';
  } else {
    *at++ = '<';
    m_out.advance(at);
    writeName(node.name());
    at = m_out.reserve(kRoom);
    limit = at + (kRoom - kSlack);
  }
  for (ValueWalk walk = m_nodes.values(ref); walk.next();) {
    const NameEntry& name = names[walk.name()];
    if (const Value value = walk.value(); value.plain && fits(name, value.text.size())) {
      at = copyText(at, name.text - 1, name.length + 3);
      at = copyText(at, value.text.data(), value.text.size());
      *at++ = '"';
    } else {
      m_out.advance(at);
      writeAttribute(walk.name(), walk.value());
      at = m_out.reserve(kRoom);
      limit = at + (kRoom - kSlack);
    }
  }
  if (isWhole) {
    *at++ = '/';
  }
  *at++ = '>';
  m_out.advance(at);
}

void DocumentWriter::writeAttribute(NameId name, const Value& value) {
  m_out.put(' ');
  writeName(name);
  m_out.put("=\"");
  writeValue(value, kInAttribute);
  m_out.put('"');
}

void DocumentWriter::writeEndTag(const Node& node) {
  if (node.has(NodeFlag::kSpaceAtEnd)) {
    writeLineBreak();
  }
  m_out.put('<');
  m_out.put('/');
  writeName(node.name());
  m_out.put('>');
}

void DocumentWriter::writeLeaf(Ref ref, const Node& node) {
  switch (node.type()) {
    case NodeType::kText:
      writeValue(m_nodes.text(ref), kInText);
      break;
    case NodeType::kCData:
      m_out.put("<![CDATA[");
      writeValue(m_nodes.text(ref), kInCData);
      m_out.put("]]>");
      break;
    case NodeType::kComment:
      m_out.put("<!--");
      writeValue(m_nodes.text(ref), kVerbatim);
      m_out.put("-->");
      break;
    case NodeType::kInstruction:
      m_out.put("<?");
      writeName(node.name());
      if (node.isDeclaration()) {
        writeDeclaration(ref);
      } else if (const Value data = m_nodes.text(ref); !data.text.empty()) {
        m_out.put(' ');
        writeValue(data, kVerbatim);
      }
      m_out.put("?>");
      break;
    default:  // a DOCTYPE holds its own source
      writeValue(m_nodes.text(ref), kVerbatim);
      break;
  }
}

void DocumentWriter::writeDeclaration(Ref ref) {
  for (const NameId name : {kVersionName, kEncodingName, kStandaloneName}) {
    ValueWalk parts = m_nodes.values(ref);
    if (parts.find(name)) {
      writeAttribute(name, parts.value());
    }
  }
}

void DocumentWriter::writeLineBreak() {
  m_out.put(kLineBreak);
  const std::size_t tabs = std::min(m_depth, kMaxIndentation);
  char* const at = m_out.reserve(tabs);
  std::fill_n(at, tabs, '\t');
  m_out.advance(at + tabs);
}

void DocumentWriter::writeName(NameId name) {
  const NameEntry& entry = m_names[name];
  const std::size_t size = entry.length + kPiece;
  if (entry.isAscii && size <= BlockBuffer::kMaxReserve) {
    m_out.advance(copyText(m_out.reserve(size), entry.text, entry.length));
    return;
  }
  const char* at = entry.text;
  const char* const end = at + entry.length;
  while (at != end) {
    const char* const character = at;
    const char32_t code = decodeUtf8(at, end);
    if (isUnicode(m_encoding)) {
      m_out.put({character, static_cast<std::size_t>(at - character)});
    } else {
      const std::optional<unsigned char> byte = byteFor(code, m_encoding);
      if (!byte) {
        platform::raiseComError(kBadEncoding);
      }
      m_out.put(static_cast<char>(*byte));
    }
  }
}

void DocumentWriter::writeValue(const Value& value, const Place& place) {
  if (value.plain) {
    m_out.put(value.text);
    return;
  }
  const bool keepsAll = isUnicode(m_encoding);
  const char* run = value.text.data();
  const char* at = run;
  const char* const end = at + value.text.size();
  const auto putRun = [&](const char* stop) {
    m_out.put({run, static_cast<std::size_t>(stop - run)});
  };
  while (at != end) {
    if (static_cast<unsigned char>(*at) >= 0x80) {
      if (keepsAll) {
        ++at;
        continue;
      }
      putRun(at);
      writeCharacter(decodeUtf8(at, end), place);
      run = at;
    } else if (const std::string_view other = place.replacement(*at); !other.empty()) {
      putRun(at);
      m_out.put(other);
      run = ++at;
    } else {
      ++at;
    }
  }
  putRun(end);
}

void DocumentWriter::writeCharacter(char32_t character, const Place& place) {
  if (const std::optional<unsigned char> byte = byteFor(character, m_encoding); byte) {
    m_out.put(static_cast<char>(*byte));
  } else if (place.hasReferences) {
    char digits[10];
    const char* const end =
        std::to_chars(digits, digits + sizeof digits, static_cast<std::uint32_t>(character)).ptr;
    m_out.put(place.before);
    m_out.put("&#");
    m_out.put({digits, static_cast<std::size_t>(end - digits)});
    m_out.put(';');
    m_out.put(place.after);
  } else {
    m_out.put('?');
  }
}

}  // namespace

Encoding declaredEncoding(const Tree& tree) {
  const Ref first = tree.node(tree.document()).firstChild;
  if (first == 0 || !tree.node(first).isDeclaration()) {
    return Encoding::kUtf8;
  }
  ValueWalk parts = tree.nodes().values(first);
  if (!parts.find(kEncodingName)) {
    return Encoding::kUtf8;
  }
  const std::optional<Encoding> encoding = encodingNamed(parts.value().text);
  if (!encoding) {
    platform::raiseComError(E_FAIL);
  }
  return *encoding;
}

void writeDocument(const Tree& tree, Encoding encoding, BlockTarget& target) {
  DocumentWriter(tree, encoding, target).write();
}

}  // namespace quorvan::embedded
