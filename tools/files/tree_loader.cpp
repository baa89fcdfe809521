#include <tools/files/tree_loader.h>

#include <quorvan/text/utf8.h>
#include <quorvan/xml/dom.h>
#include <quorvan/xml/values.h>

#include <tools/console/terminal.h>
#include <tools/files/com_use.h>
#include <tools/files/plain_source.h>

namespace quorvan::tool {

namespace {

// Copies the nodes below the root in document order. What lies deeper than entries of lists is
// looked at only to count its elements.
class TreeCopy {
 public:
  TreeCopy(DocumentTree& tree, const std::vector<Position>& positions, Progress& progress)
      : m_tree(tree), m_positions(positions), m_progress(progress) {}

  void copy(const IXMLDOMNodePtr& root) {
    add(root);
    m_levels.push_back(root);
    IXMLDOMNodePtr next = dom::firstChild(root);
    while (!m_levels.empty()) {
      if (next == nullptr) {
        next = dom::nextSibling(m_levels.back());
        if (m_levels.size() <= kDeepestNode + 1) {
          m_tree.end();
        }
        m_levels.pop_back();
        if (m_levels.empty()) {
          break;
        }
        continue;
      }
      if (m_levels.size() <= kDeepestNode) {
        add(next);
      } else {
        countElement(next);
      }
      m_levels.push_back(next);
      next = dom::firstChild(next);
    }
    m_tree.close();
  }

  // Whether every element found its position.
  [[nodiscard]] bool isComplete() const { return m_elements == m_positions.size(); }

 private:
  void add(const IXMLDOMNodePtr& node) {
    const dom::NodeName name = dom::nodeName(node);
    m_tag.clear();
    if (!dom::hasAttributes(node)) {
      return m_tree.begin(markedName(name.view().text()), m_tag, Position());
    }
    for (dom::AttributeCursor cursor(node); cursor.next();) {
      m_value.clear();
      cursor.value().appendTo(m_value);
      m_tag.add(cursor.name().text(), m_value);
    }
    m_tree.begin(name.view().text(), m_tag, countElement(node));
  }

  // A processing instruction may have the name of an element.
  std::string_view markedName(std::string_view name) {
    if (name.starts_with('#')) {
      return name;
    }
    m_name.assign(1, '?').append(name);
    return m_name;
  }

  Position countElement(const IXMLDOMNodePtr& node) {
    if (!dom::hasAttributes(node)) {
      return {};
    }
    m_progress.report(m_elements, m_positions.size());
    const std::size_t place = m_elements++;
    return place < m_positions.size() ? m_positions[place] : Position();
  }

  DocumentTree& m_tree;
  const std::vector<Position>& m_positions;
  Progress& m_progress;
  std::vector<IXMLDOMNodePtr> m_levels;
  std::size_t m_elements = 0;
  TagCopy m_tag;
  std::string m_value;
  std::string m_name;
};

std::string hexadecimal(HRESULT result) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text = "0x";
  for (int shift = 28; shift >= 0; shift -= 4) {
    text += kDigits[(static_cast<std::uint32_t>(result) >> shift) & 0xFU];
  }
  return text;
}

// The root element; sets what readers take for it instead when something stands before it.
IXMLDOMNodePtr rootOf(const IXMLDOMDocumentPtr& document, std::string& nodeBeforeRoot) {
  for (IXMLDOMNodePtr node = dom::firstChild(document); node != nullptr;
       node = dom::nextSibling(node)) {
    if (dom::nodeNameIs(node, "xml")) {
      continue;
    }
    if (dom::hasAttributes(node)) {
      return node;
    }
    if (nodeBeforeRoot.empty()) {
      nodeBeforeRoot = dom::nodeName(node).view().text();
    }
  }
  return nullptr;
}

DocumentLoad tryLoading(const std::filesystem::path& path, const std::vector<Position>& positions,
                        Progress& progress) {
  DocumentLoad result;
  IXMLDOMDocumentPtr document;
  if (dom::createDocument(document) < 0) {
    throw Failure("the XML document service of this system cannot be started");
  }
  if (!dom::load(document, fromUtf8(toUtf8(path)))) {
    return result;
  }
  const IXMLDOMNodePtr root = rootOf(document, result.nodeBeforeRoot);
  if (root == nullptr) {
    return result;
  }
  TreeCopy copy(result.tree, positions, progress);
  copy.copy(root);
  result.isPlaced = copy.isComplete();
  if (!result.isPlaced) {
    result.tree.forgetPositions();
  }
  result.isWellFormed = true;
  return result;
}

}  // namespace

DocumentLoad loadDocument(const std::filesystem::path& path, const std::vector<Position>& positions,
                          Progress& progress) {
  const ComUse com;
  try {
    return tryLoading(path, positions, progress);
  } catch (const _com_error& error) {
    throw Failure(toUtf8(path) + ": the XML document service failed with " +
                  hexadecimal(error.Error()));
  }
}

}  // namespace quorvan::tool
