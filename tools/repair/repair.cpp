#include <tools/repair/repair.h>

#include <unordered_set>

#include <quorvan/text/numbers.h>
#include <quorvan/text/utf8.h>
#include <quorvan/xml/dom.h>
#include <quorvan/xml/values.h>

#include <tools/console/terminal.h>
#include <tools/files/com_use.h>
#include <tools/files/work_folder.h>
#include <tools/model/control_members.h>
#include <tools/model/item_reader.h>
#include <tools/model/item_text.h>
#include <tools/model/list_entries.h>
#include <tools/repair/element_plan.h>
#include <tools/repair/item_mending.h>

namespace quorvan::tool {

namespace {

constexpr std::int32_t kVersion = 1;
constexpr std::string_view kDeclaration = "version='1.0' encoding='ISO-8859-1'";

// Builds the document of the copy.
class CopyBuilder {
 public:
  explicit CopyBuilder(const TransferFile& file)
      : m_file(file), m_tree(file.tree()), m_plan(file), m_reader(file) {
    if (dom::createDocument(m_document) < 0) {
      throw Failure("the XML document service of this system cannot be started");
    }
    dom::append(m_document, dom::createProcessingInstruction(m_document, "xml", kDeclaration));
    m_root = dom::createElement(m_document, "Document");
    dom::append(m_document, m_root);
  }

  void build() {
    for (const Element& element : m_file.elements()) {
      if (m_plan.newIndex(element) != 0) {
        copyElement(element);
      }
    }
    if (controlRecord(m_file) == nullptr) {
      addControlRecord();
    }
  }

  void save(const std::filesystem::path& path) { dom::save(m_document, fromUtf8(toUtf8(path))); }

 private:
  IXMLDOMNodePtr create(std::string_view name) {
    return dom::createElement(m_document, dom::Name(name));
  }

  void addText(const IXMLDOMNodePtr& node, std::string_view name, std::string_view value) {
    dom::addAttribute(m_document, node, dom::Name(name), fromUtf8(value).view());
  }

  IXMLDOMNodePtr createClass(std::string_view name, std::int32_t index) {
    IXMLDOMNodePtr node = create(name);
    dom::addAttribute(m_document, node, "version", static_cast<std::int16_t>(kVersion));
    dom::addAttribute(m_document, node, "index", static_cast<std::int16_t>(index));
    return node;
  }

  void addControlRecord() {
    const items::ElementSchema& schema = items::schemaOf(items::ElementClass::kDrawingControl);
    const IXMLDOMNodePtr record = createClass(schema.className, 1);
    for (const items::ItemSchema& item : schema.items) {
      const IXMLDOMNodePtr node = create(item.name);
      if (item.kind == items::Kind::kLong) {
        dom::addAttribute(m_document, node, "long", std::int32_t{0});
      } else {
        addText(node, "string", "");
      }
      dom::append(record, node);
    }
    dom::append(m_root, record);
  }

  void copyElement(const Element& element) {
    const IXMLDOMNodePtr copy = createClass(element.className(), m_plan.newIndex(element));
    std::unordered_set<std::string_view> seen;
    for (const Node* item = m_tree.firstChild(*element.node); item != nullptr;
         item = m_tree.nextSibling(*item)) {
      if (!item->isElement()) {
        continue;
      }
      const items::ItemSchema* const schema = schemaOf(element, item->name);
      if (schema != nullptr && !seen.insert(item->name).second) {
        continue;  // nobody reads the second of a name
      }
      dom::append(copy, schema == nullptr ? copyNode(*item) : copyItem(element, *item, *schema));
    }
    dom::append(m_root, copy);
  }

  static const items::ItemSchema* schemaOf(const Element& element, std::string_view name) {
    if (element.schema != nullptr) {
      for (const items::ItemSchema& item : element.schema->items) {
        if (item.name == name) {
          return &item;
        }
      }
    }
    return nullptr;
  }

  IXMLDOMNodePtr copyItem(const Element& element, const Node& item,
                          const items::ItemSchema& schema) {
    if (isList(schema.kind)) {
      return copyList(element, item, schema);
    }
    if (element.is(items::ElementClass::kRepartition) && schema.name == "Index") {
      if (auto reference = mendedReference(element)) {
        IXMLDOMNodePtr copy = create(item.name);
        dom::addAttribute(m_document, copy, "long", *reference);
        return copy;
      }
    }
    const auto mended = mend(m_tree, item, schema);
    if (!mended) {
      return copyNode(item);
    }
    IXMLDOMNodePtr copy = create(item.name);
    addText(copy, mended->name, mended->value);
    return copy;
  }

  // Where a repartition points to now, unless it points to nothing.
  std::optional<std::int32_t> mendedReference(const Element& element) {
    const Repartition series = toRepartition(m_reader.read(element));
    const std::int64_t index = m_plan.newReference(series.className, series.index);
    if (index == series.index) {
      return std::nullopt;
    }
    return static_cast<std::int32_t>(index);
  }

  // The list with its count put right where its entries run without a gap.
  IXMLDOMNodePtr copyList(const Element& element, const Node& item,
                          const items::ItemSchema& schema) {
    const bool isNumbered = schema.kind == items::Kind::kNumberedPoints;
    const std::string_view attribute = isNumbered ? "long" : "size";
    const ListEntries entries(m_tree, isNumbered ? *element.node : item, schema.stem);
    const std::size_t held = entries.all().size();
    const bool isCertain = entries.isGapless() && (isNumbered || held <= kLargestSize);
    IXMLDOMNodePtr copy = create(item.name);
    bool hasCount = false;
    for (const Attribute& one : m_tree.attributes(item)) {
      const bool isCount = one.name == attribute;
      hasCount = hasCount || isCount;
      addText(copy, one.name, isCount && isCertain ? std::to_string(held) : one.value);
    }
    if (!hasCount && isCertain) {
      addText(copy, attribute, std::to_string(held));
    }
    appendChildren(copy, item);
    return copy;
  }

  void appendChildren(const IXMLDOMNodePtr& copy, const Node& node) {
    for (const Node* child = m_tree.firstChild(node); child != nullptr;
         child = m_tree.nextSibling(*child)) {
      if (child->isElement()) {
        dom::append(copy, copyNode(*child));
      }
    }
  }

  // The node as it stands, but for decimal commas in coordinates and entries of lists.
  IXMLDOMNodePtr copyNode(const Node& node) {
    IXMLDOMNodePtr copy = create(node.name);
    for (const Attribute& one : m_tree.attributes(node)) {
      const bool isNumber =
          one.name == "X" || one.name == "Y" || one.name == "Z" || one.name == "double";
      const auto mended = isNumber ? withPoint(one.value) : std::nullopt;
      addText(copy, one.name, mended ? std::string_view(*mended) : one.value);
    }
    appendChildren(copy, node);
    return copy;
  }

  const TransferFile& m_file;
  const DocumentTree& m_tree;
  ElementPlan m_plan;
  ItemReader m_reader;
  IXMLDOMDocumentPtr m_document;
  IXMLDOMNodePtr m_root;
};

}  // namespace

void writeRepaired(const TransferFile& file, const std::filesystem::path& output) {
  const WorkFolder folder(output);
  const ComUse com;
  try {
    CopyBuilder builder(file);
    builder.build();
    builder.save(folder.file());
  } catch (const _com_error&) {
    throw Failure(toUtf8(output) + ": the XML document service failed while the copy was written");
  }
  folder.moveToTarget();
}

}  // namespace quorvan::tool
