// The contract of the XML document service: walking, looking up and counting.
#include <gtest/gtest.h>

#include <map>
#include <string>

#include <tests/xml/dom_contract.h>

namespace quorvan::test {
namespace {

class Counts final : public dom::ChildNameCounts {
 public:
  explicit Counts(const IXMLDOMNodePtr& node) { dom::countChildNames(node, *this); }

  void count(const dom::Name& name, int children) override {
    EXPECT_TRUE(m_counts.emplace(name.text(), children).second) << "counted twice";
    EXPECT_EQ(name.hash(), dom::hashName(name.text()));
  }

  [[nodiscard]] std::string text() const {
    std::string text;
    for (const auto& [name, children] : m_counts) {
      text += name + "=" + std::to_string(children) + " ";
    }
    return text;
  }

 private:
  std::map<std::string, int> m_counts;
};

TEST_F(DomContract, ChildrenAndSiblingsFollowInDocumentOrder) {
  for (const char* name : {"A", "B", "A"}) {
    appended(m_root, name);
  }
  IXMLDOMNodePtr node = dom::firstChild(m_root);
  EXPECT_TRUE(dom::nodeNameIs(node, "A"));
  node = dom::nextSibling(node);
  EXPECT_TRUE(dom::nodeNameIs(node, "B"));
  node = dom::nextSibling(node);
  EXPECT_TRUE(dom::nodeNameIs(node, "A"));
  EXPECT_TRUE(dom::nextSibling(node) == nullptr);
  EXPECT_TRUE(dom::firstChild(node) == nullptr);
  EXPECT_TRUE(dom::nextSibling(m_root) == nullptr);
}

// The elements below a class element, and those below the root, are looked up in different ways:
// both kinds of parent are walked here.
class DomLookup : public DomContract, public testing::WithParamInterface<bool> {
 protected:
  DomLookup() : m_parent(GetParam() ? m_root : appended(m_root, "Class")) {}

  IXMLDOMNodePtr add(const char* name, const wchar_t* value) {
    IXMLDOMNodePtr child = appended(m_parent, name);
    dom::addAttribute(m_document, child, "v", value);
    return child;
  }

  IXMLDOMNodePtr m_parent;
};

INSTANTIATE_TEST_SUITE_P(DomContract, DomLookup, testing::Bool(), [](const auto& param) {
  return param.param ? std::string("Root") : std::string("Inner");
});

TEST_P(DomLookup, TheFirstChildOfANameIsFound) {
  add("B", L"1");
  add("A", L"2");
  add("A", L"3");
  EXPECT_EQ(attributeOf(dom::firstChildNamed(m_parent, "A"), "v"), "2");
  EXPECT_EQ(attributeOf(dom::firstChildNamed(m_parent, "B"), "v"), "1");
  EXPECT_EQ(attributeOf(dom::firstChildNamed(m_parent, "A"), "v"), "2");
  EXPECT_TRUE(dom::firstChildNamed(m_parent, "C") == nullptr);
  EXPECT_TRUE(dom::firstChildNamed(m_parent, "a") == nullptr);
  EXPECT_TRUE(dom::firstChildNamed(m_parent, "v") == nullptr);
  EXPECT_TRUE(dom::firstChildNamed(dom::firstChild(m_parent), "A") == nullptr);
}

TEST_P(DomLookup, GrandchildrenAreNotChildren) {
  appended(add("A", L"1"), "Inner");
  EXPECT_TRUE(dom::firstChildNamed(m_parent, "Inner") == nullptr);
  EXPECT_EQ(Counts(m_parent).text(), "A=1 ");
}

TEST_P(DomLookup, TheNextSiblingOfANameIsFound) {
  for (const char* name : {"A", "B", "B", "A", "C", "B"}) {
    add(name, L"");
  }
  const IXMLDOMNodePtr first = dom::firstChild(m_parent);
  IXMLDOMNodePtr b = dom::nextSiblingNamed(first, "B");
  int count = 0;
  for (; b != nullptr; b = dom::nextSiblingNamed(b, "B")) {
    ++count;
  }
  EXPECT_EQ(count, 3);
  const IXMLDOMNodePtr second = dom::nextSiblingNamed(first, "A");
  EXPECT_TRUE(dom::nodeNameIs(dom::nextSibling(second), "C"));
  EXPECT_TRUE(dom::nextSiblingNamed(second, "A") == nullptr);
  EXPECT_TRUE(dom::nextSiblingNamed(first, "D") == nullptr);
}

TEST_P(DomLookup, WhatIsAppendedLaterIsFound) {
  EXPECT_TRUE(dom::firstChildNamed(m_parent, "A") == nullptr);
  const IXMLDOMNodePtr first = add("A", L"1");
  EXPECT_EQ(attributeOf(dom::firstChildNamed(m_parent, "A"), "v"), "1");
  EXPECT_TRUE(dom::nextSiblingNamed(first, "A") == nullptr);
  add("B", L"2");
  EXPECT_EQ(attributeOf(dom::firstChildNamed(m_parent, "B"), "v"), "2");
  add("A", L"3");
  EXPECT_EQ(attributeOf(dom::nextSiblingNamed(first, "A"), "v"), "3");
}

TEST_P(DomLookup, WhatIsMovedAwayIsNotFound) {
  const IXMLDOMNodePtr first = add("A", L"1");
  const IXMLDOMNodePtr second = add("A", L"2");
  const IXMLDOMNodePtr third = add("A", L"3");
  EXPECT_EQ(attributeOf(dom::firstChildNamed(m_parent, "A"), "v"), "1");
  dom::append(m_parent, first);
  EXPECT_EQ(attributeOf(dom::firstChildNamed(m_parent, "A"), "v"), "2");
  EXPECT_EQ(attributeOf(dom::nextSiblingNamed(third, "A"), "v"), "1");
  EXPECT_TRUE(dom::nextSiblingNamed(first, "A") == nullptr);
  dom::append(element("Elsewhere"), third);
  EXPECT_EQ(attributeOf(dom::nextSiblingNamed(second, "A"), "v"), "1");
  EXPECT_EQ(Counts(m_parent).text(), "A=2 ");
}

TEST_P(DomLookup, ChildrenAreCountedByName) {
  EXPECT_EQ(Counts(m_parent).text(), "");
  for (const char* name : {"B", "A", "B", "B"}) {
    add(name, L"");
  }
  EXPECT_EQ(Counts(m_parent).text(), "A=1 B=3 ");
  dom::append(element("Elsewhere"), dom::firstChildNamed(m_parent, "A"));
  EXPECT_EQ(Counts(m_parent).text(), "B=3 ");
}

TEST_F(DomContract, EveryNodeOfALoadedFileIsWalked) {
  ASSERT_TRUE(
      loads("<?xml version=\"1.0\"?><!--c--><?p d?><a> <b/>t<!--c--><![CDATA[x]]><?q?></a>"));
  const IXMLDOMNodePtr declaration = dom::firstChild(m_document);
  EXPECT_TRUE(dom::nodeNameIs(declaration, "xml"));
  const IXMLDOMNodePtr comment = dom::nextSibling(declaration);
  EXPECT_EQ(outline(comment), "#comment");
  const IXMLDOMNodePtr instruction = dom::nextSibling(comment);
  EXPECT_EQ(outline(instruction), "p");
  const IXMLDOMNodePtr root = dom::nextSibling(instruction);
  EXPECT_EQ(outline(root), "a[b #text #comment #cdata-section q]");
  EXPECT_TRUE(dom::nextSibling(root) == nullptr);
  EXPECT_EQ(Counts(root).text(), "#cdata-section=1 #comment=1 #text=1 b=1 q=1 ");
  EXPECT_TRUE(dom::nodeNameIs(dom::nextSiblingNamed(dom::firstChildNamed(root, "b"), "#comment"),
                              "#comment"));
}

TEST_F(DomContract, TheDeclarationOfALoadedFileHasItsAttributes) {
  ASSERT_TRUE(loads("<?xml version='1.0' encoding='ISO-8859-1' standalone='yes'?><a/>"));
  EXPECT_EQ(outline(m_document), "xml(version=1.0 encoding=ISO-8859-1 standalone=yes) a");
}

TEST_F(DomContract, OnlyElementsAndTheDeclarationHaveAttributeMaps) {
  ASSERT_TRUE(loads("<?xml version=\"1.0\"?><a>t<!--c--><![CDATA[x]]><?q d=\"1\"?><b/></a>"));
  EXPECT_TRUE(dom::hasAttributes(dom::firstChild(m_document)));
  const IXMLDOMNodePtr root = dom::nextSibling(dom::firstChild(m_document));
  EXPECT_TRUE(dom::hasAttributes(root));
  for (IXMLDOMNodePtr node = dom::firstChild(root); node != nullptr;
       node = dom::nextSibling(node)) {
    const bool isElement = dom::nodeNameIs(node, "b");
    EXPECT_EQ(dom::hasAttributes(node), isElement);
    EXPECT_EQ(dom::addAttribute(m_document, node, "n", L"1"), isElement);
    EXPECT_EQ(attributeOf(node, "n"), isElement ? "1" : "(none)");
  }
}

TEST_F(DomContract, TheRevisionStaysWhenAnElementIsAppendedToTheRoot) {
  const std::uint64_t before = dom::revision(m_document);
  const IXMLDOMNodePtr line = element("Line");
  dom::addAttribute(m_document, line, "version", std::int16_t{1});
  appended(line, "Color");
  dom::append(m_root, line);
  EXPECT_EQ(dom::revision(m_document), before);
}

TEST_F(DomContract, TheRevisionChangesWithEveryOtherChangeBelowTheRoot) {
  if (dom::revision(m_document) == 0) {
    return;  // the backend keeps no such number
  }
  const IXMLDOMNodePtr line = appended(m_root, "Line");
  const IXMLDOMNodePtr text = appended(m_root, "Text");
  std::uint64_t before = dom::revision(m_document);
  const auto hasChanged = [&] {
    const std::uint64_t now = dom::revision(m_document);
    const bool changed = now != before;
    before = now;
    return changed;
  };
  dom::addAttribute(m_document, line, "a", L"1");
  EXPECT_TRUE(hasChanged());
  const IXMLDOMNodePtr color = appended(line, "Color");
  EXPECT_TRUE(hasChanged());
  dom::addAttribute(m_document, color, "a", L"1");
  EXPECT_TRUE(hasChanged());
  dom::append(m_root, line);
  EXPECT_TRUE(hasChanged());
  dom::append(text, color);
  EXPECT_TRUE(hasChanged());
  dom::append(element("Elsewhere"), text);
  EXPECT_TRUE(hasChanged());
  dom::append(m_root, text);
  EXPECT_TRUE(hasChanged());
  const IXMLDOMDocumentPtr other = newDocument();
  dom::append(dom::nextSibling(dom::firstChild(other)), text);
  EXPECT_TRUE(hasChanged());
  ASSERT_TRUE(loads("<a/>"));
  EXPECT_TRUE(hasChanged());
}

TEST_F(DomContract, TheRevisionsOfTwoDocumentsDiffer) {
  if (dom::revision(m_document) == 0) {
    return;  // the backend keeps no such number
  }
  EXPECT_NE(dom::revision(m_document), dom::revision(newDocument()));
}

}  // namespace
}  // namespace quorvan::test
