#include <quorvan/elements/items/numbered_items.h>

#include <algorithm>
#include <charconv>
#include <limits>

namespace quorvan::items {

std::uint32_t numberBehind(std::string_view stem, std::string_view name) noexcept {
  if (name.size() <= stem.size() || name.substr(0, stem.size()) != stem) {
    return 0;
  }
  const std::string_view digits = name.substr(stem.size());
  const char* const stop = digits.data() + digits.size();
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(digits.data(), stop, number);
  const bool canonical = digits.front() != '0' && digits.substr(0, 2) != "-0";
  if (error != std::errc() || end != stop || !canonical) {
    return 0;
  }
  return static_cast<std::uint32_t>(number);
}

std::vector<NumberedItem> numberedChildren(const IXMLDOMNodePtr& scope, std::string_view stem,
                                           std::uint32_t first, std::uint32_t last) {
  std::vector<NumberedItem> items;
  for (IXMLDOMNodePtr child = dom::firstChild(scope); child != nullptr;
       child = dom::nextSibling(child)) {
    const std::uint32_t number = numberBehind(stem, dom::nodeName(child).view().text());
    if (number != 0 && first <= number && number <= last) {
      items.push_back({number, child});
    }
  }
  const auto byNumber = [](const NumberedItem& a, const NumberedItem& b) {
    return a.number < b.number;
  };
  const auto sameNumber = [](const NumberedItem& a, const NumberedItem& b) {
    return a.number == b.number;
  };
  std::stable_sort(items.begin(), items.end(), byNumber);
  items.erase(std::unique(items.begin(), items.end(), sameNumber), items.end());
  return items;
}

ItemsInOrder::ItemsInOrder(const IXMLDOMNodePtr& scope) : m_next(dom::firstChild(scope)) {}

bool ItemsInOrder::next(std::string_view stem, std::uint32_t number) {
  return next(dom::NameText(stem, static_cast<std::int32_t>(number)).name());
}

bool ItemsInOrder::next(const dom::Name& name) {
  if (m_next == nullptr || !dom::nodeNameIs(m_next, name)) {
    return false;
  }
  m_item = std::move(m_next);
  m_next = dom::nextSibling(m_item);
  return true;
}

}  // namespace quorvan::items
