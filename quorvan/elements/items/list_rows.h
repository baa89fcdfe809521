// Rows of lists. Not installed.
//
// A counted list is a vector scope whose "size" is the count and whose entries are named by a stem
// and a number from 1. Counts come from the caller or from the file and are not trusted: entries
// that are not there are never invented, except where a row says so.
#pragma once

#include <algorithm>
#include <limits>

#include <quorvan/elements/items/filing.h>
#include <quorvan/elements/items/numbered_lists.h>
#include <quorvan/filer/coordinates.h>
#include <quorvan/filer/item_values.h>

namespace quorvan::items {

/// Writes entry `number` (from 1) of a list.
template <class Value>
int writeEntry(CKtFiler& filer, std::string_view stem, std::size_t number, const Value& value) {
  const dom::NameText name(stem, static_cast<std::int32_t>(static_cast<std::uint32_t>(number)));
  return ItemAccess::write(filer, name.name(), value);
}

/// Appends the item's value to the list if it can be read; gives its result.
template <class Value>
int appendItem(const IXMLDOMNodePtr& item, std::vector<Value>& values) {
  Value value{};
  const int found = filer::itemValue(item, &value);
  if (found != 0) {
    values.push_back(value);
  }
  return found;
}

/// Reads the points of the open list into `points`; a missing one appends nothing.
inline int readPoints(CKtFiler& filer, std::uint32_t count, std::vector<CKtPnt3D>& points) {
  const IXMLDOMNodePtr& scope = ItemAccess::scope(filer);
  ItemsInOrder inOrder(scope);
  int result = 1;
  const bool complete =
      forEachPresent(inOrder, scope, kPointStem, count,
                     [&](const IXMLDOMNodePtr& item) { result &= appendItem(item, points); });
  return complete ? result : 0;
}

/// A counted list of points with a point count of its own, which is the count filed and the one
/// that reading replaces. The element goes on without the list when it cannot be opened, and its
/// result is not lowered for that.
template <class Element>
struct CountedPoints {
  std::uint32_t Element::*count;
  std::vector<CKtPnt3D> Element::*points;

  static constexpr std::size_t kItems = 1;
  constexpr std::array<ItemSchema, 1> schema() const {
    return {{{kListName.text(), Kind::kPointList, true, kPointStem}}};
  }

  void write(Writing& out, const Element& element) const {
    const std::uint32_t announced = element.*count;
    if (ItemAccess::beginVector(out.filer, kListName, static_cast<long>(announced)) == 0) {
      return;
    }
    const std::vector<CKtPnt3D>& held = element.*points;
    const std::size_t entries = std::min<std::size_t>(announced, held.size());
    for (std::size_t i = 0; i < entries; ++i) {
      out.result &= writeEntry(out.filer, kPointStem, i + 1, held[i]);
    }
    if (entries < announced) {
      out.result = 0;
    }
    out.result &= out.filer.endVector();
  }

  void clear(Element& element) const { (element.*points).clear(); }

  void read(Reading& in, Element& element) const {
    long announced = 0;
    if (ItemAccess::beginVector(in.filer, kListName, &announced) == 0) {
      return;
    }
    element.*count = static_cast<std::uint32_t>(announced);
    in.result &= readPoints(in.filer, element.*count, element.*points);
    in.result &= in.filer.endVector();
  }
};

/// A counted list of points whose count is their number. The element ends with the result so far
/// when the list cannot be opened.
template <class Element>
struct LastPoints {
  std::vector<CKtPnt3D> Element::*points;

  static constexpr std::size_t kItems = 1;
  constexpr std::array<ItemSchema, 1> schema() const {
    return {{{kListName.text(), Kind::kPointList, true, kPointStem}}};
  }

  void write(Writing& out, const Element& element) const {
    const std::vector<CKtPnt3D>& held = element.*points;
    if (ItemAccess::beginVector(out.filer, kListName, static_cast<long>(held.size())) == 0) {
      out.finished = true;
      return;
    }
    for (std::size_t i = 0; i < held.size(); ++i) {
      out.result &= writeEntry(out.filer, kPointStem, i + 1, held[i]);
    }
    out.result &= out.filer.endVector();
  }

  void clear(Element& element) const { (element.*points).clear(); }

  void read(Reading& in, Element& element) const {
    long announced = 0;
    if (ItemAccess::beginVector(in.filer, kListName, &announced) == 0) {
      in.finished = true;
      return;
    }
    const auto count = static_cast<std::uint32_t>(std::max(announced, 0L));
    in.result &= readPoints(in.filer, count, element.*points);
    in.result &= in.filer.endVector();
  }
};

/// A counted list of segments: two points and a bulge each, numbered apart. The count filed is the
/// point count; an odd last point is left out both ways. The element ends with the result so far
/// when the list cannot be opened.
template <class Element>
struct Segments {
  std::uint32_t Element::*count;
  std::vector<CKtPnt3D> Element::*points;
  std::vector<CKtVect3D> Element::*bulges;

  static constexpr std::size_t kItems = 1;
  constexpr std::array<ItemSchema, 1> schema() const {
    return {{{kListName.text(), Kind::kSegmentList, true, kPointStem}}};
  }

  void write(Writing& out, const Element& element) const {
    const std::uint32_t announced = element.*count;
    if (ItemAccess::beginVector(out.filer, kListName, static_cast<long>(announced)) == 0) {
      out.finished = true;
      return;
    }
    const std::size_t segments = std::min<std::size_t>(
        announced / 2, std::max((element.*points).size(), (element.*bulges).size()));
    for (std::size_t k = 0; k < segments; ++k) {
      writeHeld(out, kPointStem, 2 * k + 1, element.*points);
      writeHeld(out, kPointStem, 2 * k + 2, element.*points);
      writeHeld(out, kBulgeStem, k + 1, element.*bulges);
    }
    if (segments < announced / 2) {
      out.result = 0;
    }
    out.result &= out.filer.endVector();
  }

  void clear(Element& element) const {
    (element.*points).clear();
    (element.*bulges).clear();
  }

  void read(Reading& in, Element& element) const {
    long announced = 0;
    if (ItemAccess::beginVector(in.filer, kListName, &announced) == 0) {
      in.finished = true;
      return;
    }
    element.*count = static_cast<std::uint32_t>(announced);
    readSegments(in, element);
    in.result &= in.filer.endVector();
  }

 private:
  // A list that is too short for the point count lacks entries; those of the other are written.
  template <class Value>
  static void writeHeld(Writing& out, std::string_view stem, std::size_t number,
                        const std::vector<Value>& values) {
    out.result &=
        number <= values.size() ? writeEntry(out.filer, stem, number, values[number - 1]) : 0;
  }

  void readSegments(Reading& in, Element& element) const {
    const IXMLDOMNodePtr& scope = ItemAccess::scope(in.filer);
    ItemsInOrder inOrder(scope);
    const std::uint32_t segments = element.*count / 2;
    std::uint32_t pointsDone = 0;
    std::uint32_t bulgesDone = 0;
    while (bulgesDone < segments) {
      const bool isBulge = pointsDone == 2 * (bulgesDone + 1);
      if (isBulge ? !inOrder.next(kBulgeStem, bulgesDone + 1)
                  : !inOrder.next(kPointStem, pointsDone + 1)) {
        break;
      }
      if (isBulge) {
        in.result &= appendItem(inOrder.item(), element.*bulges);
        ++bulgesDone;
      } else {
        in.result &= appendItem(inOrder.item(), element.*points);
        ++pointsDone;
      }
    }
    readRest(in, scope, kPointStem, pointsDone, 2 * segments, element.*points);
    readRest(in, scope, kBulgeStem, bulgesDone, segments, element.*bulges);
  }

  // The entries that do not stand in order; points and bulges fill lists of their own, so that it
  // does not matter which are read first.
  template <class Value>
  static void readRest(Reading& in, const IXMLDOMNodePtr& scope, std::string_view stem,
                       std::uint32_t done, std::uint32_t count, std::vector<Value>& values) {
    if (done == count) {
      return;
    }
    const auto rest = numberedChildren(scope, stem, done + 1, count);
    for (const NumberedItem& entry : rest) {
      in.result &= appendItem(entry.node, values);
    }
    if (rest.size() < count - done) {
      in.result = 0;
    }
  }
};

/// A counted list of doubles. It is skipped when it cannot be opened, without lowering the result.
/// Reading holds as many values as the count says: a missing entry repeats the value before it, in
/// this list or the one read before, 0 at first. A count that goes too far beyond the entries in
/// the file (CKtFiler::kMissingEntries) is refused: no values, and the result is 0.
template <class Element>
struct CountedDoubles {
  dom::Name name;
  std::string_view stem;
  std::vector<double> Element::*values;

  static constexpr std::size_t kItems = 1;
  constexpr std::array<ItemSchema, 1> schema() const {
    return {{{name.text(), Kind::kDoubleList, true, stem}}};
  }

  void write(Writing& out, const Element& element) const {
    const std::vector<double>& held = element.*values;
    if (ItemAccess::beginVector(out.filer, name, static_cast<long>(held.size())) == 0) {
      return;
    }
    for (std::size_t i = 0; i < held.size(); ++i) {
      out.result &= writeEntry(out.filer, stem, i + 1, held[i]);
    }
    out.result &= out.filer.endVector();
  }

  void clear(Element& element) const { (element.*values).clear(); }

  void read(Reading& in, Element& element) const {
    long announced = 0;
    if (ItemAccess::beginVector(in.filer, name, &announced) == 0) {
      return;
    }
    const IXMLDOMNodePtr& scope = ItemAccess::scope(in.filer);
    ItemsInOrder inOrder(scope);
    const auto count = static_cast<std::uint32_t>(std::max(announced, 0L));
    const double former = in.entry;
    const auto trust = [&in](long entries) { return ItemAccess::trust(in.filer, entries); };
    if (!forEachNumber(inOrder, scope, stem, count, trust, [&](const IXMLDOMNodePtr& item) {
          in.result &= filer::itemValue(item, &in.entry);
          (element.*values).push_back(in.entry);
        })) {
      in.result = 0;
      in.entry = former;
      (element.*values).clear();
    }
    in.result &= in.filer.endVector();
  }
};

/// Points that stand in the class element itself, behind an item with their number. Reading holds
/// as many points as the number says: a missing one becomes a default point. A number that goes too
/// far beyond the points in the file (CKtFiler::kMissingEntries) is refused: no points, and the
/// result is 0.
template <class Element>
struct NumberedPoints {
  dom::Name name;
  std::vector<CKtPnt3D> Element::*points;

  static constexpr std::size_t kItems = 1;
  constexpr std::array<ItemSchema, 1> schema() const {
    return {{{name.text(), Kind::kNumberedPoints, false, kPointStem}}};
  }

  void write(Writing& out, const Element& element) const {
    const std::vector<CKtPnt3D>& held = element.*points;
    out.result &= ItemAccess::write(out.filer, name, static_cast<long>(held.size()));
    for (std::size_t i = 0; i < held.size(); ++i) {
      out.result &= writeEntry(out.filer, kPointStem, i + 1, held[i]);
    }
  }

  void read(Reading& in, Element& element) const {
    (element.*points).clear();
    long announced = 0;
    in.result &= ItemAccess::read(in.filer, name, &announced);
    const IXMLDOMNodePtr& scope = ItemAccess::scope(in.filer);
    ItemsInOrder inOrder(scope);
    inOrder.next(name);
    const auto count = static_cast<std::uint32_t>(std::max(announced, 0L));
    const auto trust = [&in](long entries) { return ItemAccess::trust(in.filer, entries); };
    if (!forEachNumber(inOrder, scope, kPointStem, count, trust, [&](const IXMLDOMNodePtr& item) {
          CKtPnt3D point;
          in.result &= filer::itemValue(item, &point);
          (element.*points).push_back(point);
        })) {
      in.result = 0;
      (element.*points).clear();
    }
  }
};

template <class Element>
NumberedPoints(dom::Name, std::vector<CKtPnt3D> Element::*) -> NumberedPoints<Element>;

}  // namespace quorvan::items
