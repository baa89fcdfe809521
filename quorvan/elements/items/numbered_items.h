// Items that are named by a stem and a number: "Point1", "Point2" and so on. Not installed.
//
// How many there should be comes from the file, and so do the items; the number announced may be
// anything. Looking up one name after the other would cost the square of a long list, and a walk
// up to an absurd count would never end: these look-ups cost no more than the children there are.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include <quorvan/xml/dom.h>
#include <quorvan/xml/values.h>

namespace quorvan::items {

/// One item of a numbered list.
struct NumberedItem {
  std::uint32_t number;
  IXMLDOMNodePtr node;
};

/// The number behind the stem, if it stands there just as "%d" prints it. 0 for none, which is no
/// number of a list.
std::uint32_t numberBehind(std::string_view stem, std::string_view name) noexcept;

/// The first child of each name `stem` + number among the children of `scope`, for numbers from
/// `first` to `last`, in ascending order. Numbers above 2^31 - 1 stand in names as "%d" prints
/// them, as negative ones.
std::vector<NumberedItem> numberedChildren(const IXMLDOMNodePtr& scope, std::string_view stem,
                                           std::uint32_t first, std::uint32_t last);

/// Walks a list of numbered items that stand in the expected order, which is how they are filed.
class ItemsInOrder {
 public:
  /// Starts in front of the first child of `scope`.
  explicit ItemsInOrder(const IXMLDOMNodePtr& scope);

  /// Goes on to the next child if its name is `stem` + `number`. False, staying where it was, when
  /// it is not: then the items from here on must be looked up. True for every name so far means
  /// that each child gone over is the first of its name, provided that the names asked for differ.
  bool next(std::string_view stem, std::uint32_t number);

  /// As above, for a name without number.
  bool next(const dom::Name& name);

  /// The child arrived at.
  [[nodiscard]] const IXMLDOMNodePtr& item() const noexcept { return m_item; }

 private:
  IXMLDOMNodePtr m_item;
  IXMLDOMNodePtr m_next;
};

}  // namespace quorvan::items
