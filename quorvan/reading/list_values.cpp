// Items that hold a list.
#include <cstdint>
#include <limits>

#include <quorvan/elements/items/item_words.h>
#include <quorvan/elements/items/numbered_items.h>
#include <quorvan/filer/item_values.h>
#include <quorvan/filer/vocabulary.h>
#include <quorvan/reading/boundary.h>
#include <quorvan/reading/element.h>
#include <quorvan/reading/kinds.h>
#include <quorvan/reading/read.h>

namespace dom = quorvan::dom;
namespace items = quorvan::items;
using quorvan::fail;
using quorvan::reading::guarded;

namespace {

// The entries of a list as they are met.
class Entries {
 public:
  // `Read` stores the value of an entry in the caller's array, or tells that it holds none.
  using Read = bool (*)(const IXMLDOMNodePtr& entry, double* to);

  Entries(Read read, std::size_t width, double* array, std::size_t room) noexcept
      : m_read(read), m_width(width), m_array(array), m_room(array == nullptr ? 0 : room) {}

  void take(const IXMLDOMNodePtr& entry) {
    double beyond[3];
    double* const to = m_count < m_room ? m_array + m_count * m_width : beyond;
    if (m_read(entry, to)) {
      ++m_count;
    } else {
      m_isComplete = false;
    }
  }
  void lacksSome() noexcept { m_isComplete = false; }

  [[nodiscard]] int result(std::size_t* count) const noexcept {
    *count = m_count;
    if (m_array != nullptr && m_count > m_room) {
      return fail(QUORVAN_NO_ROOM);
    }
    return m_isComplete ? QUORVAN_DONE : fail(QUORVAN_INCOMPLETE);
  }

 private:
  Read m_read;
  std::size_t m_width;
  double* m_array;
  std::size_t m_room;
  std::size_t m_count = 0;
  bool m_isComplete = true;
};

// Takes the entries named by the stem and a number, the first of each number, in their order. Gives
// the last number.
std::uint32_t takeNumbered(const IXMLDOMNodePtr& scope, std::string_view stem, Entries& entries) {
  std::uint32_t next = 1;
  IXMLDOMNodePtr child = dom::firstChild(scope);
  for (; child != nullptr; child = dom::nextSibling(child)) {
    const std::uint32_t number = items::numberBehind(stem, dom::nodeName(child).view().text());
    if (number > next) {
      break;
    }
    if (number == next) {
      entries.take(child);
      ++next;
    }
  }
  if (child == nullptr) {
    return next - 1;
  }
  const auto rest =
      items::numberedChildren(scope, stem, next, std::numeric_limits<std::uint32_t>::max());
  for (const items::NumberedItem& entry : rest) {
    if (entry.number != next) {
      entries.lacksSome();
    }
    entries.take(entry.node);
    next = entry.number + 1;
  }
  return next - 1;
}

// Takes whatever stands in a list of which nothing is known, as far as it has a value.
void takeAll(const IXMLDOMNodePtr& scope, Entries& entries) {
  for (IXMLDOMNodePtr child = dom::firstChild(scope); child != nullptr;
       child = dom::nextSibling(child)) {
    if (dom::hasAttributes(child)) {
      entries.take(child);
    }
  }
}

// Whether the number that the file announces fits the last one that is there. "size" has 16 bits;
// of segments it is the number of points, of which an odd last one is left out.
bool fits(std::int32_t announced, std::uint32_t last, items::Kind kind, bool areBulges) {
  const std::uint32_t entries = areBulges ? 2 * last : last;
  if (kind == items::Kind::kSegmentList && (announced & 1) != 0) {
    announced -= 1;
  }
  const auto wrapped = static_cast<std::int16_t>(static_cast<std::uint16_t>(entries & 0xFFFFU));
  return announced == static_cast<std::int32_t>(entries) ||
         (kind != items::Kind::kNumberedPoints && announced == wrapped);
}

struct List {
  std::string_view stem;
  items::Kind kind;
  bool areBulges = false;
};

int readList(const QuorvanItem& item, const List& list, Entries& entries) {
  std::int32_t announced = 0;
  if (const int result = quorvanReadSize(&item, &announced); result != QUORVAN_DONE) {
    return result;
  }
  const bool isBeside = list.kind == items::Kind::kNumberedPoints;
  const std::uint32_t last =
      takeNumbered(isBeside ? item.element->node() : item.node, list.stem, entries);
  if (!fits(announced, last, list.kind, list.areBulges)) {
    entries.lacksSome();
  }
  return QUORVAN_DONE;
}

// The list of such entries that the item is by its class; nothing where it is of another kind.
bool isListOf(const QuorvanItem& item, items::Kind kind) {
  return item.schema != nullptr && item.schema->kind == kind;
}

template <class Find>
int read(const QuorvanItem* item, std::size_t* count, Entries entries, const Find& find) {
  if (item == nullptr || count == nullptr) {
    return fail(item == nullptr ? QUORVAN_NO_ITEM : QUORVAN_BAD_ARGUMENT);
  }
  return guarded([&]() -> int {
    int result = QUORVAN_DONE;
    List list{};
    if (item->schema == nullptr && quorvanItemKind(item) == QUORVAN_KIND_LIST) {
      takeAll(item->node, entries);
    } else if (item->schema != nullptr && find(*item, list)) {
      result = readList(*item, list, entries);
    } else {
      result = fail(QUORVAN_OTHER_KIND);
    }
    return result == QUORVAN_DONE ? entries.result(count) : result;
  });
}

bool readDouble(const IXMLDOMNodePtr& entry, double* to) {
  return quorvan::filer::itemValue(entry, to) != 0;
}

}  // namespace

bool quorvan::reading::readCoordinates(const IXMLDOMNodePtr& node, double* xyz) {
  dom::AttributeValue value;
  for (const dom::Name& name : quorvan::filer::kCoordinateNames) {
    if (!dom::hasAttributes(node) || !dom::attribute(node, name, value)) {
      return false;
    }
    *xyz++ = value.toDouble();
  }
  return true;
}

int quorvanReadPoints(const QuorvanItem* item, double* xyz, std::size_t room, std::size_t* count) {
  return read(item, count, Entries(quorvan::reading::readCoordinates, 3, xyz, room),
              [](const QuorvanItem& found, List& list) {
                list = {found.schema->stem, found.schema->kind};
                return isListOf(found, items::Kind::kPointList) ||
                       isListOf(found, items::Kind::kSegmentList) ||
                       isListOf(found, items::Kind::kNumberedPoints);
              });
}

int quorvanReadBulges(const QuorvanItem* item, double* xyz, std::size_t room, std::size_t* count) {
  return read(item, count, Entries(quorvan::reading::readCoordinates, 3, xyz, room),
              [](const QuorvanItem& found, List& list) {
                list = {items::kBulgeStem, found.schema->kind, true};
                return isListOf(found, items::Kind::kSegmentList);
              });
}

int quorvanReadDoubles(const QuorvanItem* item, double* values, std::size_t room,
                       std::size_t* count) {
  return read(item, count, Entries(readDouble, 1, values, room),
              [](const QuorvanItem& found, List& list) {
                list = {found.schema->stem, found.schema->kind};
                return isListOf(found, items::Kind::kDoubleList);
              });
}
