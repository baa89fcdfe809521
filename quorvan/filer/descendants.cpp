#include <quorvan/filer/descendants.h>

#include <vector>

namespace quorvan::filer {

bool descendantsHaveAttributes(const IXMLDOMNodePtr& node) {
  // Patterns come from files too, so the depth is the file's: no recursion.
  std::vector<IXMLDOMNodePtr> open;
  IXMLDOMNodePtr child = dom::firstChild(node);
  while (child != nullptr) {
    if (!dom::hasAttributes(child)) {
      return false;
    }
    IXMLDOMNodePtr below = dom::firstChild(child);
    open.push_back(std::move(child));
    child = std::move(below);
    while (child == nullptr && !open.empty()) {
      child = dom::nextSibling(open.back());
      open.pop_back();
    }
  }
  return true;
}

}  // namespace quorvan::filer
