#include <tests/support/saved_elements.h>

#include <algorithm>
#include <iterator>
#include <stdexcept>

#include <tests/support/saved_file.h>

namespace quorvan::test {

namespace {

class Reader {
 public:
  explicit Reader(std::string_view text) : m_rest(text) {}

  void expect(std::string_view literal) {
    if (!skip(literal)) {
      throw std::runtime_error("'" + std::string(literal) + "' expected at '" +
                               std::string(m_rest.substr(0, 40)) + "'");
    }
  }

  SavedElement element() {
    SavedElement result;
    expect("<");
    result.name = upTo(" />");
    while (skip(" ")) {
      const std::string name = upTo("=");
      expect("=\"");
      result.attributes.emplace_back(name, upTo("\""));
      expect("\"");
    }
    if (skip("/>")) {
      return result;
    }
    expect(">");
    while (!skip("</")) {
      result.children.push_back(element());
    }
    expect(result.name);
    expect(">");
    return result;
  }

  [[nodiscard]] bool atEnd() const { return m_rest.empty(); }

 private:
  bool skip(std::string_view literal) {
    if (!m_rest.starts_with(literal)) {
      return false;
    }
    m_rest.remove_prefix(literal.size());
    return true;
  }

  std::string upTo(std::string_view ends) {
    const std::size_t length = m_rest.find_first_of(ends);
    if (length == std::string_view::npos) {
      throw std::runtime_error("the file ends early");
    }
    const std::string text(m_rest.substr(0, length));
    m_rest.remove_prefix(length);
    return text;
  }

  std::string_view m_rest;
};

}  // namespace

std::string SavedElement::attribute(std::string_view attributeName) const {
  for (const auto& entry : attributes) {
    if (entry.first == attributeName) {
      return entry.second;
    }
  }
  return "(none)";
}

const SavedElement& SavedElement::child(std::string_view childName) const {
  const auto found =
      std::find_if(children.begin(), children.end(),
                   [childName](const SavedElement& child) { return child.name == childName; });
  if (found == children.end()) {
    throw std::runtime_error(name + " holds no " + std::string(childName));
  }
  return *found;
}

std::vector<SavedElement> savedElements(const std::filesystem::path& path) {
  const std::string bytes = savedBytes(path);
  Reader reader(bytes);
  reader.expect("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n");
  SavedElement root = reader.element();
  reader.expect("\r\n");
  if (root.name != "Document" || !root.attributes.empty() || !reader.atEnd()) {
    throw std::runtime_error("not one plain root element");
  }
  return std::move(root.children);
}

std::vector<SavedElement> savedElements(const std::filesystem::path& path,
                                        std::string_view className) {
  std::vector<SavedElement> elements = savedElements(path);
  std::erase_if(elements,
                [className](const SavedElement& element) { return element.name != className; });
  return elements;
}

std::string savedIndexes(const std::filesystem::path& path) {
  std::string indexes;
  for (const SavedElement& element : savedElements(path)) {
    indexes += (indexes.empty() ? "" : ", ") + element.name + ' ' + element.attribute("index");
  }
  return indexes;
}

}  // namespace quorvan::test
