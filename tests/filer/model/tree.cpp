#include <tests/filer/model/tree.h>

#include <algorithm>
#include <cstdint>

namespace quorvan::test::model {

namespace {

// The code point that begins at `at`, which moves behind it. The text is valid.
std::uint32_t nextCodePoint(std::string_view utf8, std::size_t& at) {
  const auto lead = static_cast<unsigned char>(utf8[at++]);
  if (lead < 0x80) {
    return lead;
  }
  const int rest = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
  std::uint32_t code = lead & (0x3FU >> rest);
  for (int i = 0; i < rest; ++i) {
    code = (code << 6) | (static_cast<unsigned char>(utf8[at++]) & 0x3FU);
  }
  return code;
}

class Writer {
 public:
  explicit Writer(bool isLatin1) : m_isLatin1(isLatin1) {}

  void write(const Node& node) {
    switch (node.kind) {
      case Kind::kElement:
        writeElement(node);
        break;
      case Kind::kDeclaration:
        m_out += "<?xml";
        writeAttributes(node);
        m_out += "?>";
        break;
      case Kind::kDoctype:
        m_out += "<!DOCTYPE " + node.name + '>';
        break;
      case Kind::kInstruction:
        m_out += "<?" + node.name + ' ' + node.text + "?>";
        break;
      case Kind::kComment:
        m_out += "<!--" + node.text + "-->";
        break;
      case Kind::kText:
        writeText(node.text);
        break;
      case Kind::kDocument:
        for (const Node* child : node.children) {
          write(*child);
          m_out += "\r\n";
        }
        break;
    }
  }

  [[nodiscard]] std::string text() && { return std::move(m_out); }

 private:
  void writeElement(const Node& node) {
    m_out += '<';
    writeText(node.name);
    writeAttributes(node);
    if (node.children.empty()) {
      m_out += "/>";
      return;
    }
    m_out += '>';
    for (const Node* child : node.children) {
      write(*child);
    }
    m_out += "</";
    writeText(node.name);
    m_out += '>';
  }

  void writeAttributes(const Node& node) {
    for (const auto& [name, value] : node.attributes) {
      m_out += ' ';
      writeText(name);
      m_out += "=\"";
      writeText(value);
      m_out += '"';
    }
  }

  void writeText(const std::string& text) {
    for (std::size_t at = 0; at < text.size();) {
      const std::size_t start = at;
      const std::uint32_t code = nextCodePoint(text, at);
      if (code == '&') {
        m_out += "&amp;";
      } else if (code == '<') {
        m_out += "&lt;";
      } else if (code == '>') {
        m_out += "&gt;";
      } else if (code == '"') {
        m_out += "&quot;";
      } else if (code < 0x20 || (m_isLatin1 && code > 0xFF)) {
        m_out += "&#" + std::to_string(code) + ';';
      } else if (m_isLatin1) {
        m_out += static_cast<char>(code);
      } else {
        m_out.append(text, start, at - start);
      }
    }
  }

  std::string m_out;
  bool m_isLatin1;
};

bool isLatin1(const Node& document) {
  const Node* const first = document.firstChild();
  if (first == nullptr || first->kind != Kind::kDeclaration) {
    return false;
  }
  const std::string* const encoding = first->attribute("encoding");
  return encoding != nullptr && *encoding == "ISO-8859-1";
}

}  // namespace

const std::string* Node::attribute(std::string_view attributeName) const {
  const auto found = std::find_if(attributes.begin(), attributes.end(), [&](const auto& attribute) {
    return attribute.first == attributeName;
  });
  return found == attributes.end() ? nullptr : &found->second;
}

bool Node::takesAttributes() const {
  return kind == Kind::kElement || kind == Kind::kDeclaration;
}

Node* Node::firstChild() const {
  return children.empty() ? nullptr : children.front();
}

Node* Node::nextSibling() const {
  if (parent == nullptr) {
    return nullptr;
  }
  const auto self = std::find(parent->children.begin(), parent->children.end(), this);
  return self + 1 == parent->children.end() ? nullptr : *(self + 1);
}

Node* Forest::make(Kind kind, std::string name) {
  m_nodes.push_back({kind, std::move(name)});
  return &m_nodes.back();
}

Node* Forest::copy(const Node& node) {
  Node* const copied = make(node.kind, node.name);
  copied->attributes = node.attributes;
  copied->text = node.text;
  for (const Node* child : node.children) {
    link(*copied, *copy(*child));
  }
  return copied;
}

Node* Forest::reread(const Node& document) {
  Node* const read = make(document.kind, document.name);
  read->attributes = document.attributes;
  read->text = document.text;
  for (const Node* child : document.children) {
    if (child->kind == Kind::kText && !read->children.empty() &&
        read->children.back()->kind == Kind::kText) {
      read->children.back()->text += child->text;
    } else {
      link(*read, *reread(*child));
    }
  }
  return read;
}

void link(Node& parent, Node& child) {
  if (child.parent != nullptr) {
    std::vector<Node*>& siblings = child.parent->children;
    siblings.erase(std::find(siblings.begin(), siblings.end(), &child));
  }
  parent.children.push_back(&child);
  child.parent = &parent;
}

bool isSelfOrAbove(const Node& node, const Node& below) {
  for (const Node* at = &below; at != nullptr; at = at->parent) {
    if (at == &node) {
      return true;
    }
  }
  return false;
}

std::string fileText(const Node& document) {
  Writer writer(isLatin1(document));
  writer.write(document);
  return std::move(writer).text();
}

}  // namespace quorvan::test::model
