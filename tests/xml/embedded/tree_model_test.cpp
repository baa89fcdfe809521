// Random sequences of calls on two documents, against a model that is easy to believe in.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <tests/xml/embedded/embedded_dom.h>

namespace quorvan::test {
namespace {

// A node of the model. Its parent owns it; without one, the model's list does.
struct ModelNode {
  std::string name;
  std::vector<std::pair<std::string, std::string>> attributes;
  ModelNode* parent = nullptr;
  std::vector<ModelNode*> children;

  void put(const std::string& key, const std::string& value) {
    for (auto& [known, text] : attributes) {
      if (known == key) {
        text = value;
        return;
      }
    }
    attributes.emplace_back(key, value);
  }

  [[nodiscard]] bool isSelfOrAbove(const ModelNode* other) const {
    for (; other != nullptr; other = other->parent) {
      if (other == this) {
        return true;
      }
    }
    return false;
  }

  void detach() {
    if (parent != nullptr) {
      parent->children.erase(std::find(parent->children.begin(), parent->children.end(), this));
    }
    parent = nullptr;
  }

  // False where it may not.
  bool append(ModelNode* child) {
    if (child->isSelfOrAbove(this)) {
      return false;
    }
    child->detach();
    children.push_back(child);
    child->parent = this;
    return true;
  }

  [[nodiscard]] std::string outline() const {
    std::string out = name;
    for (const auto& [key, value] : attributes) {
      out += (&value == &attributes.front().second ? "(" : " ") + key + "=" + value;
    }
    out += attributes.empty() ? "" : ")";
    for (const ModelNode* child : children) {
      out += (child == children.front() ? "[" : " ") + child->outline();
    }
    return out + (children.empty() ? "" : "]");
  }

  [[nodiscard]] const ModelNode* named(const std::string& wanted, std::size_t from) const {
    for (std::size_t i = from; i < children.size(); ++i) {
      if (children[i]->name == wanted) {
        return children[i];
      }
    }
    return nullptr;
  }

  // The child after this one of that name.
  [[nodiscard]] const ModelNode* nextNamed(const std::string& wanted) const {
    if (parent == nullptr) {
      return nullptr;
    }
    const auto at = std::find(parent->children.begin(), parent->children.end(), this);
    return parent->named(wanted, static_cast<std::size_t>(at - parent->children.begin()) + 1);
  }
};

class CountsByName final : public dom::ChildNameCounts {
 public:
  void count(const dom::Name& name, int children) override {
    counts[std::string(name.text())] = children;
  }
  std::map<std::string, int> counts;
};

class TreeModel : public testing::TestWithParam<unsigned> {
 protected:
  // A node in both worlds. The handle may be dropped; then only the model knows the node.
  struct Held {
    IXMLDOMNodePtr handle;
    ModelNode* model;
    int document;
  };

  TreeModel() : m_random(GetParam()) {
    for (int i = 0; i < 2; ++i) {
      EXPECT_EQ(dom::createDocument(m_documents[i]), S_OK);
      m_held.push_back(create(i));
      m_roots[i] = m_held.back().model;
      dom::append(m_documents[i], m_held.back().handle);
    }
  }

  unsigned below(std::size_t limit) { return static_cast<unsigned>(m_random() % limit); }
  std::string name() { return std::string(1, static_cast<char>('A' + below(4))); }
  Held& any() { return m_held[below(m_held.size())]; }

  Held create(int document) {
    const std::string text = name();
    m_models.push_back(std::make_unique<ModelNode>());
    m_models.back()->name = text;
    return {dom::createElement(m_documents[document], dom::Name(text)), m_models.back().get(),
            document};
  }

  void put() {
    const Held& node = any();
    const std::string key = name();
    const std::string value(below(12), 'v');
    dom::addAttribute(m_documents[below(2)], node.handle, dom::Name(key), dom::AsciiText{value});
    node.model->put(key, value);
  }

  void append() {
    const Held& parent = any();
    const Held& child = any();
    const bool isAllowed = parent.model->append(child.model);
    const HRESULT result = raisedBy([&] { dom::append(parent.handle, child.handle); });
    ASSERT_EQ(result, isAllowed ? S_OK : E_FAIL);
  }

  void drop() {
    if (m_held.size() > 3) {
      m_held.erase(m_held.begin() + below(m_held.size()));
    }
  }

  // Another handle to a node that was reached by walking.
  void walk() {
    Held held = any();
    const std::string wanted = name();
    const ModelNode* model = nullptr;
    switch (below(4)) {
      case 0:
        held.handle = dom::firstChild(held.handle);
        model = held.model->children.empty() ? nullptr : held.model->children.front();
        break;
      case 1:
        held.handle = dom::nextSibling(held.handle);
        if (held.model->parent != nullptr) {
          const auto& siblings = held.model->parent->children;
          const auto at = std::find(siblings.begin(), siblings.end(), held.model) + 1;
          model = at == siblings.end() ? nullptr : *at;
        }
        break;
      case 2:
        held.handle = dom::firstChildNamed(held.handle, dom::Name(wanted));
        model = held.model->named(wanted, 0);
        break;
      default:
        held.handle = dom::nextSiblingNamed(held.handle, dom::Name(wanted));
        model = held.model->nextNamed(wanted);
        break;
    }
    ASSERT_EQ(held.handle != nullptr, model != nullptr);
    if (model == nullptr) {
      return;
    }
    held.model = const_cast<ModelNode*>(model);
    ASSERT_EQ(outline(held.handle), model->outline());
    m_held.push_back(held);
  }

  void count() {
    const Held& node = any();
    CountsByName counts;
    dom::countChildNames(node.handle, counts);
    std::map<std::string, int> expected;
    for (const ModelNode* child : node.model->children) {
      ++expected[child->name];
    }
    ASSERT_EQ(counts.counts, expected);
  }

  // Makes a node without parent the root of a document that has none.
  void root() {
    const int document = static_cast<int>(below(2));
    const Held& node = any();
    const bool hasRoot =
        m_roots[document] != nullptr && m_roots[document]->parent == nullptr && isRoot(document);
    const HRESULT result = raisedBy([&] { dom::append(m_documents[document], node.handle); });
    if (hasRoot && m_roots[document] != node.model) {
      ASSERT_EQ(result, E_FAIL);
      return;
    }
    ASSERT_EQ(result, S_OK);
    node.model->detach();
    for (ModelNode*& other : m_roots) {
      if (other == node.model) {
        other = nullptr;
      }
    }
    m_roots[document] = node.model;
  }

  bool isRoot(int document) {
    const IXMLDOMNodePtr first = dom::firstChild(m_documents[document]);
    return first != nullptr;
  }

  void compare() {
    for (const Held& held : m_held) {
      ASSERT_EQ(outline(held.handle), held.model->outline());
    }
    for (int i = 0; i < 2; ++i) {
      const bool has = m_roots[i] != nullptr && m_roots[i]->parent == nullptr;
      ASSERT_EQ(outline(m_documents[i]), has ? m_roots[i]->outline() : "");
    }
  }

  std::mt19937 m_random;
  IXMLDOMDocumentPtr m_documents[2];
  ModelNode* m_roots[2] = {};
  std::vector<std::unique_ptr<ModelNode>> m_models;
  std::vector<Held> m_held;
};

INSTANTIATE_TEST_SUITE_P(Seeds, TreeModel, testing::Range(0U, 60U));

TEST_P(TreeModel, EveryCallGivesWhatTheModelGives) {
  for (int step = 0; step < 400; ++step) {
    switch (below(12)) {
      case 0:
      case 1:
        m_held.push_back(create(static_cast<int>(below(2))));
        break;
      case 2:
      case 3:
        put();
        break;
      case 4:
      case 5:
      case 6:
        append();
        break;
      case 7:
        drop();
        break;
      case 8:
        count();
        break;
      case 9:
        root();
        break;
      default:
        walk();
        break;
    }
    if (HasFatalFailure()) {
      return;
    }
    if (step % 20 == 0) {
      compare();
    }
    if (HasFatalFailure()) {
      return;
    }
  }
  m_documents[0] = nullptr;
  for (const Held& held : m_held) {
    ASSERT_EQ(outline(held.handle), held.model->outline());
  }
}

}  // namespace
}  // namespace quorvan::test
