// Writing and reading the drawing through a library with a tree, given what is particular to it:
//
//   struct Tree {
//     using Node = ...;                                  contextually convertible to bool
//     Node root();
//     Node addChild(Node parent, const char* name);
//     void addAttribute(Node, const char* name, const char* utf8);
//     Node child(Node parent, const char* name);         first of that name
//     Node nextOfName(Node node, const char* name);      next sibling of that name
//     const char* attribute(Node, const char* name);     UTF-8 in the tree, or null
//   };
#pragma once

#include <map>
#include <string>

#include <bench/drawing.h>
#include <bench/number_text.h>

namespace bench {

template <class Tree>
class TreeSink {
 public:
  TreeSink(Tree& tree, typename Tree::Node element) : m_tree(tree), m_element(element) {}

  void number(const char* name, double value) { add(name, "double", FixedText(value).c_str()); }
  void integer(const char* name, long value) { add(name, "long", IntegerText(value).c_str()); }
  void flag(const char* name, bool value) { add(name, "string", value ? "True" : "False"); }
  void text(const char* name, const std::wstring& value) {
    add(name, "string", narrow(value).c_str());
  }
  void point(const char* name, const Point& point) { addPoint(m_element, name, point); }
  void points(const char* name, const std::vector<Point>& points) {
    const auto list = m_tree.addChild(m_element, name);
    m_tree.addAttribute(list, "size", IntegerText(static_cast<long>(points.size())).c_str());
    for (std::size_t i = 0; i < points.size(); ++i) {
      addPoint(list, PointName(i + 1).c_str(), points[i]);
    }
  }

 private:
  void add(const char* name, const char* kind, const char* value) {
    m_tree.addAttribute(m_tree.addChild(m_element, name), kind, value);
  }
  void addPoint(typename Tree::Node parent, const char* name, const Point& point) {
    const auto item = m_tree.addChild(parent, name);
    m_tree.addAttribute(item, "X", FixedText(point.x).c_str());
    m_tree.addAttribute(item, "Y", FixedText(point.y).c_str());
    m_tree.addAttribute(item, "Z", FixedText(point.z).c_str());
  }

  Tree& m_tree;
  typename Tree::Node m_element;
};

template <class Tree>
class TreeSource {
 public:
  TreeSource(Tree& tree, typename Tree::Node element) : m_tree(tree), m_element(element) {}

  void number(const char* name, double& value) { value = toDouble(find(name, "double")); }
  void integer(const char* name, long& value) { value = toLong(find(name, "long")); }
  void flag(const char* name, bool& value) {
    const char* text = find(name, "string");
    value = text != nullptr && std::string_view(text) == "True";
  }
  void text(const char* name, std::wstring& value) {
    const char* text = find(name, "string");
    value = text != nullptr ? widen(text) : std::wstring();
  }
  void point(const char* name, Point& point) { readPoint(m_element, name, point); }
  void points(const char* name, std::vector<Point>& points) {
    const auto list = m_tree.child(m_element, name);
    points.resize(static_cast<std::size_t>(toLong(m_tree.attribute(list, "size"))));
    for (std::size_t i = 0; i < points.size(); ++i) {
      readPoint(list, PointName(i + 1).c_str(), points[i]);
    }
  }

 private:
  const char* find(const char* name, const char* kind) {
    const auto item = m_tree.child(m_element, name);
    return item ? m_tree.attribute(item, kind) : nullptr;
  }
  void readPoint(typename Tree::Node parent, const char* name, Point& point) {
    const auto item = m_tree.child(parent, name);
    point.x = toDouble(m_tree.attribute(item, "X"));
    point.y = toDouble(m_tree.attribute(item, "Y"));
    point.z = toDouble(m_tree.attribute(item, "Z"));
  }

  Tree& m_tree;
  typename Tree::Node m_element;
};

template <class E, class Tree>
void writeElement(Tree& tree, const E& e, long index) {
  const auto node = tree.addChild(tree.root(), E::kClass);
  tree.addAttribute(node, "version", "1");
  tree.addAttribute(node, "index", IntegerText(index).c_str());
  TreeSink<Tree> sink(tree, node);
  visitItems(e, sink);
}

template <class Tree>
void writeTree(Tree& tree, const Drawing& drawing) {
  std::array<long, std::variant_size_v<Element>> indexes{};
  for (const Element& element : drawing.elements) {
    // Indexes are filed with 16 bits.
    const long index = static_cast<std::int16_t>(++indexes[element.index()]);
    std::visit([&](const auto& e) { writeElement(tree, e, index); }, element);
  }
  writeElement(tree, drawing.control, 1);
}

template <class E, class Tree>
std::uint64_t readKind(Tree& tree) {
  std::uint64_t sum = 0;
  for (auto node = tree.child(tree.root(), E::kClass); node;
       node = tree.nextOfName(node, E::kClass)) {
    E e;
    TreeSource<Tree> source(tree, node);
    visitItems(e, source);
    sum += checksum(Element(std::move(e)));
  }
  return sum;
}

template <class Tree>
std::uint64_t readTree(Tree& tree) {
  return []<class... E>(Tree& t, std::tuple<E...>*) { return (readKind<E>(t) + ...); }(
             tree, static_cast<Kinds*>(nullptr));
}

}  // namespace bench
