#include <tests/xml/embedded/embedded_dom.h>

#include <optional>

#include <quorvan/xml/embedded/files/file_source.h>

namespace quorvan::test {

namespace {

using embedded::NodeFlag;
using embedded::Ref;
using embedded::Tree;

void dumpNode(std::string& out, const Tree& tree, Ref ref) {
  const embedded::Node& node = tree.node(ref);
  out += static_cast<char>('0' + static_cast<int>(node.type()));
  out += node.has(NodeFlag::kSpaceBefore) ? "_" : "";
  out += node.has(NodeFlag::kSpaceAtEnd) ? "~" : "";
  out.append(tree.nodes().names()[node.name()].view()).append("{");
  embedded::ValueWalk walk = tree.nodes().values(ref);
  while (walk.next()) {
    out.append(tree.nodes().names()[walk.name()].view());
    out.append(walk.value().plain ? "=" : "~").append(walk.value().text).append(";");
  }
  out += '}';
}

}  // namespace

std::string dump(const Tree& tree) {
  std::string out;
  const Ref top = tree.document();
  Ref at = top;
  for (;;) {
    dumpNode(out, tree, at);
    if (tree.node(at).firstChild != 0) {
      out += '[';
      at = tree.node(at).firstChild;
      continue;
    }
    while (at != top && tree.node(at).next == 0) {
      out += ']';
      at = tree.parent(at);
    }
    if (at == top) {
      return out;
    }
    at = tree.node(at).next;
  }
}

std::string EmbeddedDom::resaved(std::string_view bytes) const {
  return loads(bytes) ? saved() : "(refused)";
}

std::string EmbeddedDom::readBy(Reader reader, std::string_view bytes) const {
  writeFile("read.xml", bytes);
  return readAgainBy(reader);
}

std::string EmbeddedDom::readAgainBy(Reader reader) const {
  dom::LoadProblem problem;
  std::optional<embedded::FileSource> source =
      embedded::FileSource::open(embedded::systemPath(wide(file("read.xml"))), problem);
  const Tree::Owned tree = reader(source.value());
  return tree == nullptr ? "(refused)" : dump(*tree);
}

}  // namespace quorvan::test
