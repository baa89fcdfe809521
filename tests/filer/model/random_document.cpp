#include <tests/filer/model/random_document.h>

#include <algorithm>
#include <cstddef>

#include <tests/support/known_differences.h>

namespace quorvan::test::model {

namespace {

std::string randomValue(RandomSource& random) {
  // Wine's document service does not keep what is not ASCII from one saving to the next.
  static const bool onlyAscii = usesWinesDocuments();
  static const std::string kValues[] = {"1.0000000", "0.0000000", "1",  "2",   "",     "a",
                                        "b",         "1.5",       "-1", "abc", "<&>\""};
  static const std::string kOther[] = {"\xC3\xA9", "\xE2\x82\xAC", "a\tb"};
  return !onlyAscii && random.oneIn(12) ? random.pick(kOther) : random.pick(kValues);
}

class Maker {
 public:
  Maker(RandomSource& random, Forest& forest) : m_random(random), m_forest(forest) {}

  // What is no element, below an element.
  Node* otherNode() {
    switch (m_random.below(3)) {
      case 0: {
        Node* const comment = m_forest.make(Kind::kComment, "#comment");
        comment->text = "note";
        return comment;
      }
      case 1: {
        Node* const text = m_forest.make(Kind::kText, "#text");
        text->text = "text";
        return text;
      }
      default: {
        Node* const instruction =
            m_forest.make(Kind::kInstruction,
                          m_random.oneIn(2) ? randomItemName(m_random) : randomClassName(m_random));
        instruction->text = "long=\"1\"";
        return instruction;
      }
    }
  }

  void addAttribute(Node& node, const std::string& name) {
    if (node.attribute(name) == nullptr) {
      node.attributes.emplace_back(name, randomValue(m_random));
    }
  }

  Node* item() {
    Node* const item = m_forest.make(Kind::kElement, randomItemName(m_random));
    switch (m_random.below(7)) {
      case 0:
        addAttribute(*item, "double");
        break;
      case 1:
      case 2:
        addAttribute(*item, "long");
        break;
      case 3:
        addAttribute(*item, "string");
        break;
      case 4:
        for (const char* name : {"X", "Y", "Z"}) {
          if (!m_random.oneIn(6)) {
            addAttribute(*item, name);
          }
        }
        break;
      case 5:
        addAttribute(*item, "size");
        addEntries(*item);
        break;
      default:
        break;
    }
    disturb(*item);
    return item;
  }

  Node* classElement(int index) {
    Node* const element = m_forest.make(Kind::kElement, randomClassName(m_random));
    if (!m_random.oneIn(8)) {
      element->attributes.emplace_back("version", "1");
    }
    if (!m_random.oneIn(8)) {
      element->attributes.emplace_back(
          "index", m_random.oneIn(8) ? randomValue(m_random) : std::to_string(index));
    }
    for (int items = m_random.below(5); items > 0; --items) {
      link(*element, m_random.oneIn(12) ? *otherNode() : *item());
    }
    return element;
  }

  Node* root(int classes) {
    static const std::string kNames[] = {"Document", "Document", "Document", "Zeichnung", "A"};
    Node* const root = m_forest.make(Kind::kElement, m_random.pick(kNames));
    int index = 0;
    for (int left = m_random.below(classes + 1); left > 0; --left) {
      link(*root, m_random.oneIn(15) ? *otherNode() : *classElement(++index));
    }
    return root;
  }

  void addDeclaration(Node& document) {
    if (m_random.oneIn(8)) {
      return;
    }
    Node* const declaration = m_forest.make(Kind::kDeclaration, "xml");
    declaration->attributes.emplace_back("version", "1.0");
    if (m_random.oneIn(8)) {
      declaration->attributes.emplace_back("encoding", "UTF-8");
    } else {
      declaration->attributes.emplace_back("encoding", "ISO-8859-1");
    }
    link(document, *declaration);
  }

  // What may be taken for the root.
  void addInFrontOfRoot(Node& document, const Node& root) {
    if (!m_random.oneIn(25)) {
      return;
    }
    if (!usesWinesDocuments() && m_random.oneIn(3)) {
      link(document, *m_forest.make(Kind::kDoctype, root.name));
    } else {
      Node* const comment = m_forest.make(Kind::kComment, "#comment");
      comment->text = "first";
      link(document, *comment);
    }
  }

  // What may come with an item that was not made by the library.
  void disturb(Node& item) {
    if (m_random.oneIn(10)) {
      addAttribute(item, "extra");
    }
    if (m_random.oneIn(12)) {
      addAttribute(item, "long");
    }
    if (m_random.oneIn(12)) {
      std::reverse(item.attributes.begin(), item.attributes.end());
    }
    if (m_random.oneIn(20)) {
      link(item, *otherNode());
    }
    if (m_random.oneIn(15)) {
      link(item, *this->item());
    }
  }

 private:
  void addEntries(Node& list) {
    for (int entries = m_random.below(4); entries > 0; --entries) {
      Node* const entry =
          m_forest.make(Kind::kElement, m_random.oneIn(6) ? "vectorPoints" : "point");
      for (const char* name : {"X", "Y", "Z"}) {
        if (!m_random.oneIn(15)) {
          addAttribute(*entry, name);
        }
      }
      link(list, m_random.oneIn(12) ? *otherNode() : *entry);
    }
  }

  RandomSource& m_random;
  Forest& m_forest;
};

// The elements below the root, which is the document's last element.
std::vector<const Node*> classElements(const Node& document) {
  std::vector<const Node*> elements;
  for (const Node* root : document.children) {
    for (const Node* child : root->children) {
      if (child->kind == Kind::kElement) {
        elements.push_back(child);
      }
    }
  }
  return elements;
}

void mutate(RandomSource& random, Maker& maker, Node& element) {
  std::vector<Node*>& items = element.children;
  const auto any = [&] { return random.below(static_cast<int>(items.size())); };
  if (!items.empty() && random.oneIn(2)) {
    items.erase(items.begin() + any());
  }
  if (!items.empty() && random.oneIn(4)) {
    items.erase(items.begin() + any());
  }
  if (!items.empty() && random.oneIn(3)) {
    Node& item = *items[static_cast<std::size_t>(any())];
    if (!item.attributes.empty()) {
      item.attributes.back().second = randomValue(random);
    }
  }
  if (!items.empty() && random.oneIn(6)) {
    Node& item = *items[static_cast<std::size_t>(any())];
    if (item.kind == Kind::kElement) {
      maker.disturb(item);
    }
  }
  if (random.oneIn(6)) {
    link(element, *maker.item());
  }
  if (random.oneIn(20)) {
    link(element, *maker.otherNode());
  }
  if (random.oneIn(5)) {
    std::reverse(items.begin(), items.end());
  }
}

}  // namespace

std::string randomClassName(RandomSource& random) {
  static const std::string kNames[] = {"A", "A", "A", "B", "B", "C"};
  return random.pick(kNames);
}

std::string randomItemName(RandomSource& random) {
  static const std::string kNames[] = {"P", "P", "Q", "R"};
  return random.pick(kNames);
}

std::shared_ptr<const Sample> randomDocument(RandomSource& random, int classes) {
  const auto sample = std::make_shared<Sample>();
  Maker maker(random, sample->forest);
  Node* const document = sample->forest.make(Kind::kDocument, "#document");
  Node* const root = maker.root(classes);
  maker.addDeclaration(*document);
  maker.addInFrontOfRoot(*document, *root);
  link(*document, *root);
  sample->document = document;
  return sample;
}

std::shared_ptr<const Sample> randomPattern(RandomSource& random, const Node& searched) {
  const auto sample = std::make_shared<Sample>();
  Maker maker(random, sample->forest);
  Node* const document = sample->forest.make(Kind::kDocument, "#document");
  Node* const root = sample->forest.make(Kind::kElement, "Document");
  const std::vector<const Node*> elements = classElements(searched);
  Node* element = nullptr;
  if (elements.empty() || random.oneIn(12)) {
    element = maker.classElement(1);
  } else {
    element = sample->forest.copy(
        *elements[static_cast<std::size_t>(random.below(static_cast<int>(elements.size())))]);
  }
  if (!random.oneIn(3)) {
    mutate(random, maker, *element);
  }
  if (random.oneIn(15)) {
    element->name = "D";
  }
  if (random.oneIn(30)) {
    link(*root, *maker.otherNode());
  }
  link(*root, *element);
  link(*document, *root);
  sample->document = document;
  return sample;
}

}  // namespace quorvan::test::model
