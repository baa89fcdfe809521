#include <gtest/gtest.h>

#include <string>

#include <tools/files/document_tree.h>

namespace {

using quorvan::tool::DocumentTree;
using quorvan::tool::Node;

TEST(ToolTree, HoldsANodeWithItsAttributesInTheirOrder) {
  DocumentTree tree;
  EXPECT_EQ(tree.addNode("Document", {1, 2}), 0U);
  tree.addAttribute("b", "2");
  tree.addAttribute("a", "1");
  EXPECT_EQ(tree.root().name, "Document");
  EXPECT_EQ(tree.root().position.line, 1U);
  EXPECT_EQ(tree.root().position.column, 2U);
  const auto attributes = tree.attributes(tree.root());
  ASSERT_EQ(attributes.size(), 2U);
  EXPECT_EQ(attributes[0].name, "b");
  EXPECT_EQ(attributes[0].value, "2");
  EXPECT_EQ(attributes[1].name, "a");
}

TEST(ToolTree, FindsAttributesByTheirWholeName) {
  DocumentTree tree;
  tree.addNode("a", {});
  tree.addAttribute("index", "7");
  tree.addAttribute("empty", "");
  ASSERT_NE(tree.attribute(tree.root(), "index"), nullptr);
  EXPECT_EQ(*tree.attribute(tree.root(), "index"), "7");
  ASSERT_NE(tree.attribute(tree.root(), "empty"), nullptr);
  EXPECT_EQ(*tree.attribute(tree.root(), "empty"), "");
  for (const char* const other : {"", "Index", "inde", "index "}) {
    EXPECT_EQ(tree.attribute(tree.root(), other), nullptr) << other;
  }
}

TEST(ToolTree, KeepsTheAttributesOfEachNodeApart) {
  DocumentTree tree;
  tree.addNode("a", {});
  tree.addAttribute("x", "1");
  const std::uint32_t without = tree.addNode("b", {});
  const std::uint32_t last = tree.addNode("c", {});
  tree.addAttribute("x", "3");
  EXPECT_EQ(*tree.attribute(tree.root(), "x"), "1");
  EXPECT_EQ(tree.attribute(tree.node(without), "x"), nullptr);
  EXPECT_TRUE(tree.attributes(tree.node(without)).empty());
  EXPECT_EQ(*tree.attribute(tree.node(last), "x"), "3");
}

TEST(ToolTree, LeadsFromNodeToNode) {
  DocumentTree tree;
  tree.addNode("root", {});
  const std::uint32_t first = tree.addNode("first", {});
  const std::uint32_t second = tree.addNode("second", {});
  tree.node(0).firstChild = first;
  tree.node(first).nextSibling = second;
  const Node* const child = tree.firstChild(tree.root());
  ASSERT_NE(child, nullptr);
  EXPECT_EQ(child->name, "first");
  EXPECT_EQ(tree.firstChild(*child), nullptr);
  const Node* const sibling = tree.nextSibling(*child);
  ASSERT_NE(sibling, nullptr);
  EXPECT_EQ(sibling->name, "second");
  EXPECT_EQ(tree.nextSibling(*sibling), nullptr);
}

TEST(ToolTree, TellsElementsFromOtherNodes) {
  DocumentTree tree;
  for (const auto& [name, isElement] : {std::pair{"a", true},
                                        {"CKtZantoLine", true},
                                        {"#text", false},
                                        {"#comment", false},
                                        {"#cdata-section", false},
                                        {"", false}}) {
    EXPECT_EQ(tree.node(tree.addNode(name, {})).isElement(), isElement) << name;
  }
}

TEST(ToolTree, OwnsItsTexts) {
  DocumentTree tree;
  {
    std::string name = "a name that is too long for a small text";
    std::string value = "a value that is too long for a small text";
    tree.addNode(name, {});
    tree.addAttribute(name, value);
    name.assign(name.size(), '-');
    value.assign(value.size(), '-');
  }
  EXPECT_EQ(tree.root().name, "a name that is too long for a small text");
  EXPECT_EQ(tree.attributes(tree.root())[0].value, "a value that is too long for a small text");
}

TEST(ToolTree, KeepsANameOnce) {
  DocumentTree tree;
  tree.addNode("Point1", {});
  const std::uint32_t other = tree.addNode(std::string("Point") + '1', {});
  EXPECT_EQ(tree.node(0).name.data(), tree.node(other).name.data());
}

TEST(ToolTree, HoldsTextsOfAnySize) {
  DocumentTree tree;
  tree.addNode("root", {});
  const std::size_t sizes[] = {0, 1, 1000, 256 * 1024 - 1, 256 * 1024, 256 * 1024 + 1, 3000000, 2};
  for (const std::size_t size : sizes) {
    tree.addAttribute("a" + std::to_string(size), std::string(size, 'x') + std::to_string(size));
  }
  for (const std::size_t size : sizes) {
    const std::string_view* const value = tree.attribute(tree.root(), "a" + std::to_string(size));
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->size(), size + std::to_string(size).size());
    EXPECT_TRUE(value->ends_with('x' + std::to_string(size)) || size == 0) << size;
  }
}

TEST(ToolTree, KeepsItsTextsWhereTheyAreWhileItGrows) {
  DocumentTree tree;
  tree.addNode("root", {});
  tree.addAttribute("name", "value");
  const char* const before = tree.attribute(tree.root(), "name")->data();
  for (int i = 0; i < 20000; ++i) {
    tree.addNode("n" + std::to_string(i), {});
    tree.addAttribute("x", std::to_string(i));
  }
  EXPECT_EQ(tree.attribute(tree.root(), "name")->data(), before);
  EXPECT_EQ(*tree.attribute(tree.node(20000), "x"), "19999");
  EXPECT_EQ(tree.node(1).name, "n0");
}

TEST(ToolTree, HoldsItsTextsWhenItIsMoved) {
  DocumentTree tree;
  tree.addNode("root", {});
  tree.addAttribute("name", "value");
  const DocumentTree moved = std::move(tree);
  EXPECT_EQ(*moved.attribute(moved.root(), "name"), "value");
}

TEST(ToolTree, ForgetsPositionsAndNothingElse) {
  DocumentTree tree;
  tree.addNode("root", {3, 4});
  tree.addNode("child", {5, 6});
  tree.node(0).firstChild = 1;
  tree.forgetPositions();
  EXPECT_EQ(tree.root().position.line, 0U);
  EXPECT_EQ(tree.node(1).position.column, 0U);
  EXPECT_EQ(tree.firstChild(tree.root())->name, "child");
}

}  // namespace
