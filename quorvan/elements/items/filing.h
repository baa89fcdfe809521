// The one writer and the one reader that follow the item tables. Not installed.
//
// A table is a class name and a tuple of rows, in the order of the file. A row says how one item
// goes out and comes in:
//
//   void write(Writing&, const Element&) const   writes the item
//   void read(Reading&, Element&) const          reads it
//   void clear(Element&) const                   (lists) empties the field before the class is
//                                                looked up, so that a failed read leaves no stale
//                                                entries
//   static constexpr std::array schema           what the row is, see item_schema.h
//
// Every departure from the plain rule is a row kind of its own: see scalar_rows.h and list_rows.h.
#pragma once

#include <array>
#include <optional>
#include <tuple>
#include <utility>

#include <quorvan/elements/items/item_schema.h>
#include <quorvan/elements/items/item_words.h>
#include <quorvan/filer/item_access.h>

namespace quorvan::items {

/// The state of one element going out.
struct Writing {
  CKtFiler& filer;
  int result = 1;         // the AND of all item results
  bool finished = false;  // a row ended the element early
};

/// The state of one element coming in. The buffers outlast single items on purpose: kinds that
/// read through them hand on what the item before left there when theirs is missing.
struct Reading {
  CKtFiler& filer;
  int result = 1;
  bool finished = false;
  long number = 0;
  CString text = {};
  double entry = 0.0;
};

/// Whether reading an element keeps a filer of its own beside the one read from, for the length of
/// the call: it pairs one more initialisation of COM with the reading.
enum class OwnFiler { kNone, kWhileReading };

/// The items of one element class.
template <class... Rows>
struct Table {
  dom::Name className;
  OwnFiler ownFiler;
  std::tuple<Rows...> rows;

  static constexpr std::size_t kItems = (Rows::kItems + ... + 0);

  consteval std::array<ItemSchema, kItems> schema() const {
    std::array<ItemSchema, kItems> all{};
    std::size_t next = 0;
    const auto append = [&](const auto& row) {
      for (const ItemSchema& item : row.schema()) {
        all[next++] = item;
      }
    };
    std::apply([&](const auto&... row) { (append(row), ...); }, rows);
    return all;
  }
};

/// The table of these rows. Two items of one name do not compile.
template <class... Rows>
consteval auto table(dom::Name className, OwnFiler ownFiler, Rows... rows) {
  const Table<Rows...> made{className, ownFiler, std::tuple<Rows...>{rows...}};
  if (!namesDiffer(made.schema())) {
    throw "two items of one class bear the same name";
  }
  return made;
}

/// Writes the rows until one of them ends the element.
template <class Element, class... Rows>
void writeRows(const std::tuple<Rows...>& rows, Writing& out, const Element& element) {
  const auto goOn = [&](const auto& row) {
    row.write(out, element);
    return !out.finished;
  };
  std::apply([&](const auto&... row) { static_cast<void>((goOn(row) && ...)); }, rows);
}

/// Reads the rows until one of them ends the element.
template <class Element, class... Rows>
void readRows(const std::tuple<Rows...>& rows, Reading& in, Element& element) {
  const auto goOn = [&](const auto& row) {
    row.read(in, element);
    return !in.finished;
  };
  std::apply([&](const auto&... row) { static_cast<void>((goOn(row) && ...)); }, rows);
}

/// The body of every fileOut.
template <class Element, class... Rows>
int fileOut(const Table<Rows...>& table, const Element& element, CKtFiler& filer) {
  if (ItemAccess::beginClass(filer, table.className, kElementVersion) == 0) {
    return 0;
  }
  Writing out{filer};
  writeRows(table.rows, out, element);
  filer.endClass();
  return out.result;
}

/// The body of every fileIn.
template <class Element, class... Rows>
int fileIn(const Table<Rows...>& table, Element& element, CKtFiler& filer) {
  std::optional<CKtFiler> own;
  if (table.ownFiler == OwnFiler::kWhileReading) {
    own.emplace();
  }
  const auto clear = [&element](const auto& row) {
    if constexpr (requires { row.clear(element); }) {
      row.clear(element);
    }
  };
  std::apply([&](const auto&... row) { (clear(row), ...); }, table.rows);
  if (ItemAccess::beginClass(filer, table.className) == 0) {
    return 0;
  }
  Reading in{filer};
  readRows(table.rows, in, element);
  filer.endClass();
  return in.result;
}

}  // namespace quorvan::items
