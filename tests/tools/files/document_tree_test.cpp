#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <tools/files/document_tree.h>

namespace {

using quorvan::tool::Attribute;
using quorvan::tool::DocumentTree;
using quorvan::tool::Node;
using quorvan::tool::Position;
using quorvan::tool::TagCopy;

// Begins a node with these attributes.
void begin(DocumentTree& tree, const std::string& name,
           const std::vector<std::pair<std::string, std::string>>& attributes = {},
           Position position = {}) {
  TagCopy tag;
  for (const auto& [attribute, value] : attributes) {
    tag.add(attribute, value);
  }
  tree.begin(name, tag, position);
}

std::string told(const DocumentTree& tree, const Node& node) {
  std::string text;
  for (const Attribute& attribute : tree.attributes(node)) {
    text += std::string(attribute.name) + '=' + std::string(attribute.value) + ' ';
  }
  return text;
}

TEST(ToolTree, HoldsANodeWithItsAttributesInTheirOrder) {
  DocumentTree tree;
  begin(tree, "Document", {{"b", "2"}, {"a", "1"}}, {1, 2});
  EXPECT_EQ(tree.name(tree.root()), "Document");
  EXPECT_EQ(tree.position(tree.root()).line, 1U);
  EXPECT_EQ(tree.position(tree.root()).column, 2U);
  EXPECT_EQ(told(tree, tree.root()), "b=2 a=1 ");
}

TEST(ToolTree, FindsAttributesByTheirWholeName) {
  DocumentTree tree;
  begin(tree, "a", {{"index", "7"}, {"empty", ""}});
  EXPECT_EQ(tree.attribute(tree.root(), "index"), "7");
  EXPECT_EQ(tree.attribute(tree.root(), "empty"), "");
  for (const char* const other : {"", "Index", "inde", "index "}) {
    EXPECT_FALSE(tree.attribute(tree.root(), other)) << other;
  }
}

TEST(ToolTree, KeepsTheAttributesOfEachNodeApart) {
  DocumentTree tree;
  begin(tree, "a", {{"x", "1"}});
  begin(tree, "b");
  begin(tree, "c", {{"x", "3"}});
  const Node* const b = tree.firstChild(tree.root());
  EXPECT_EQ(tree.attribute(tree.root(), "x"), "1");
  EXPECT_FALSE(tree.attribute(*b, "x"));
  EXPECT_TRUE(tree.attributes(*b).empty());
  EXPECT_EQ(tree.attribute(*tree.firstChild(*b), "x"), "3");
}

TEST(ToolTree, LeadsFromNodeToNode) {
  DocumentTree tree;
  begin(tree, "root");
  begin(tree, "first");
  begin(tree, "below");
  tree.end();
  tree.end();
  begin(tree, "second");
  tree.end();
  const Node* const child = tree.firstChild(tree.root());
  ASSERT_NE(child, nullptr);
  EXPECT_EQ(tree.name(*child), "first");
  ASSERT_NE(tree.firstChild(*child), nullptr);
  EXPECT_EQ(tree.name(*tree.firstChild(*child)), "below");
  EXPECT_EQ(tree.nextSibling(*tree.firstChild(*child)), nullptr);
  const Node* const sibling = tree.nextSibling(*child);
  ASSERT_NE(sibling, nullptr);
  EXPECT_EQ(tree.name(*sibling), "second");
  EXPECT_EQ(tree.firstChild(*sibling), nullptr);
  EXPECT_EQ(tree.nextSibling(*sibling), nullptr);
}

TEST(ToolTree, TellsElementsFromOtherNodes) {
  for (const auto& [name, isElement] : {std::pair{"a", true},
                                        {"CKtZantoLine", true},
                                        {"#text", false},
                                        {"#comment", false},
                                        {"#cdata-section", false},
                                        {"?instruction", false},
                                        {"", false}}) {
    DocumentTree tree;
    begin(tree, name);
    EXPECT_EQ(tree.root().isElement(), isElement) << name;
  }
}

TEST(ToolTree, OwnsItsTexts) {
  DocumentTree tree;
  {
    std::string name = "a name that is too long for a small text";
    std::string value = "a value that is too long for a small text";
    begin(tree, name, {{name, value}});
    name.assign(name.size(), '-');
    value.assign(value.size(), '-');
  }
  EXPECT_EQ(tree.name(tree.root()), "a name that is too long for a small text");
  EXPECT_EQ(tree.attributes(tree.root()).begin()->value,
            "a value that is too long for a small text");
}

TEST(ToolTree, KeepsANameOnce) {
  DocumentTree tree;
  begin(tree, "Point1");
  begin(tree, std::string("Point") + '1');
  EXPECT_EQ(tree.name(tree.root()).data(), tree.name(*tree.firstChild(tree.root())).data());
}

TEST(ToolTree, TellsManyNamesApart) {
  DocumentTree tree;
  begin(tree, "root");
  for (int i = 0; i < 20000; ++i) {
    begin(tree, "n" + std::to_string(i % 9000));
    tree.end();
  }
  int i = 0;
  for (const Node* node = tree.firstChild(tree.root()); node != nullptr;
       node = tree.nextSibling(*node), ++i) {
    ASSERT_EQ(tree.name(*node), "n" + std::to_string(i % 9000));
  }
  EXPECT_EQ(i, 20000);
}

TEST(ToolTree, HoldsTextsOfAnySize) {
  DocumentTree tree;
  const std::size_t sizes[] = {0, 1, 1000, 256 * 1024 - 1, 256 * 1024, 256 * 1024 + 1, 3000000, 2};
  std::vector<std::pair<std::string, std::string>> attributes;
  for (const std::size_t size : sizes) {
    attributes.emplace_back("a" + std::to_string(size),
                            std::string(size, 'x') + std::to_string(size));
    begin(tree, "n", {attributes.back()});
  }
  begin(tree, "all", attributes);
  const Node* node = &tree.root();
  for (const auto& [name, value] : attributes) {
    EXPECT_EQ(tree.attribute(*node, name), value) << name;
    node = tree.firstChild(*node);
  }
  for (const auto& [name, value] : attributes) {
    EXPECT_EQ(tree.attribute(*node, name), value) << name;
  }
}

// A quote of either kind ends no value that was copied.
TEST(ToolTree, HoldsTextsWithMarkup) {
  DocumentTree tree;
  begin(tree, "a", {{"x", "1' y='2\" z=\"3/>"}, {"y", "<&>\n"}});
  EXPECT_EQ(told(tree, tree.root()), "x=1' y='2\" z=\"3/> y=<&>\n ");
}

TEST(ToolTree, KeepsItsTextsWhereTheyAreWhileItGrows) {
  DocumentTree tree;
  begin(tree, "root", {{"name", "value"}});
  const char* const before = tree.attribute(tree.root(), "name")->data();
  for (int i = 0; i < 20000; ++i) {
    begin(tree, "n" + std::to_string(i), {{"x", std::to_string(i)}});
    tree.end();
  }
  EXPECT_EQ(tree.attribute(tree.root(), "name")->data(), before);
  EXPECT_EQ(tree.name(*tree.firstChild(tree.root())), "n0");
}

TEST(ToolTree, HoldsItsTextsWhenItIsMoved) {
  DocumentTree tree;
  begin(tree, "root", {{"name", "value"}});
  const DocumentTree moved = std::move(tree);
  EXPECT_EQ(moved.attribute(moved.root(), "name"), "value");
}

TEST(ToolTree, TakesTagsOutOfItsSource) {
  auto source = std::make_shared<const std::string>("<a\r\n x=\"1\"\n/>\r\n");
  DocumentTree tree(source, false);
  tree.begin("a", source->data() + 2);
  const DocumentTree moved = std::move(tree);
  source.reset();
  EXPECT_EQ(told(moved, moved.root()), "x=1 ");
  EXPECT_EQ(moved.position(moved.root()).column, 1U);
}

TEST(ToolTree, ForgetsPositionsAndNothingElse) {
  DocumentTree tree;
  begin(tree, "root", {}, {3, 4});
  begin(tree, "child", {}, {5, 6});
  tree.forgetPositions();
  EXPECT_EQ(tree.position(tree.root()).line, 0U);
  EXPECT_EQ(tree.position(*tree.firstChild(tree.root())).column, 0U);
  EXPECT_EQ(tree.name(*tree.firstChild(tree.root())), "child");
}

}  // namespace
