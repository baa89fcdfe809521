// Rows of single items. Not installed.
#pragma once

#include <cstdint>
#include <type_traits>

#include <quorvan/elements/items/filing.h>
#include <quorvan/geometry/point.h>
#include <quorvan/geometry/vector.h>
#include <quorvan/text/utf8.h>

namespace quorvan::items {

/// The kind under which a field of type `Value` is filed as it stands.
template <class Value>
consteval Kind plainKind() {
  if constexpr (std::is_same_v<Value, CKtPnt3D>) {
    return Kind::kPoint;
  } else if constexpr (std::is_same_v<Value, CKtVect3D>) {
    return Kind::kVector;
  } else if constexpr (std::is_same_v<Value, double>) {
    return Kind::kDouble;
  } else if constexpr (std::is_same_v<Value, long>) {
    return Kind::kLong;
  } else {
    static_assert(std::is_same_v<Value, CString>);
    return Kind::kString;
  }
}

/// The plain rule: a required item, written from the field and read straight into it.
template <class Element, class Value>
struct Plain {
  dom::Name name;
  Value Element::*field;

  static constexpr std::size_t kItems = 1;
  constexpr std::array<ItemSchema, 1> schema() const {
    return {{{name.text(), plainKind<Value>()}}};
  }

  void write(Writing& out, const Element& element) const {
    out.result &= ItemAccess::write(out.filer, name, element.*field);
  }
  void read(Reading& in, Element& element) const {
    in.result &= ItemAccess::read(in.filer, name, &(element.*field));
  }
};

template <class Element, class Value>
Plain(dom::Name, Value Element::*) -> Plain<Element, Value>;

/// A long item whose field is a smaller or an enumerated type; read into the field only when it is
/// there.
template <class Element, class Value>
struct Converted {
  static_assert(!std::is_same_v<Value, long>, "such a field is a plain one");

  dom::Name name;
  Value Element::*field;

  static constexpr std::size_t kItems = 1;
  constexpr std::array<ItemSchema, 1> schema() const { return {{{name.text(), Kind::kLong}}}; }

  void write(Writing& out, const Element& element) const {
    out.result &= ItemAccess::write(out.filer, name, static_cast<long>(element.*field));
  }
  void read(Reading& in, Element& element) const {
    long number = 0;
    const int found = ItemAccess::read(in.filer, name, &number);
    if (found != 0) {
      element.*field = static_cast<Value>(static_cast<std::int32_t>(number));
    }
    in.result &= found;
  }
};

template <class Element, class Value>
Converted(dom::Name, Value Element::*) -> Converted<Element, Value>;

/// A long item read through the element's long buffer: the field takes what the buffer holds
/// whether or not the item was there, so that a missing one repeats the number read before it (0
/// when it is the first).
template <class Element, class Value>
struct Buffered {
  dom::Name name;
  Value Element::*field;

  static constexpr bool kIsColor = std::is_unsigned_v<Value>;
  static constexpr std::size_t kItems = 1;
  constexpr std::array<ItemSchema, 1> schema() const {
    return {{{name.text(), kIsColor ? Kind::kColor : Kind::kLong}}};
  }

  void write(Writing& out, const Element& element) const {
    out.result &= ItemAccess::write(out.filer, name, static_cast<long>(element.*field));
  }
  void read(Reading& in, Element& element) const {
    in.result &= ItemAccess::read(in.filer, name, &in.number);
    if constexpr (kIsColor) {
      element.*field = static_cast<std::uint32_t>(in.number);
    } else {
      element.*field = static_cast<Value>(static_cast<std::int32_t>(in.number));
    }
  }
};

template <class Element, class Value>
Buffered(dom::Name, Value Element::*) -> Buffered<Element, Value>;

/// Writes a flag as the text "True" or "False".
inline int writeFlag(CKtFiler& filer, const dom::Name& name, bool flag) {
  return ItemAccess::write(filer, name, dom::AsciiText{flag ? kTrue : kFalse});
}

/// Whether a flag's text says true.
inline bool isTrue(const CString& text) {
  return text.CompareNoCase(kWideTrue.data()) == 0;
}

/// A required flag, read through the element's text buffer: it is set from the buffer whether or
/// not the item was there, so that a missing one repeats the text read before it.
template <class Element>
struct BufferedFlag {
  dom::Name name;
  bool Element::*field;

  static constexpr std::size_t kItems = 1;
  constexpr std::array<ItemSchema, 1> schema() const { return {{{name.text(), Kind::kFlag}}}; }

  void write(Writing& out, const Element& element) const {
    out.result &= writeFlag(out.filer, name, element.*field);
  }
  void read(Reading& in, Element& element) const {
    in.result &= ItemAccess::read(in.filer, name, &in.text);
    element.*field = isTrue(in.text);
  }
};

template <class Element>
BufferedFlag(dom::Name, bool Element::*) -> BufferedFlag<Element>;

/// A flag that older files lack: without the item the field and the result stay as they are.
template <class Element>
struct OptionalFlag {
  dom::Name name;
  bool Element::*field;

  static constexpr std::size_t kItems = 1;
  constexpr std::array<ItemSchema, 1> schema() const {
    return {{{name.text(), Kind::kFlag, true}}};
  }

  void write(Writing& out, const Element& element) const {
    out.result &= writeFlag(out.filer, name, element.*field);
  }
  void read(Reading& in, Element& element) const {
    if (ItemAccess::read(in.filer, name, &in.text) != 0) {
      element.*field = isTrue(in.text);
    }
  }
};

template <class Element>
OptionalFlag(dom::Name, bool Element::*) -> OptionalFlag<Element>;

/// A flag filed as the long 1 or 0; any other number but 0 reads as set.
template <class Element>
struct NumericFlag {
  dom::Name name;
  bool Element::*field;

  static constexpr std::size_t kItems = 1;
  constexpr std::array<ItemSchema, 1> schema() const {
    return {{{name.text(), Kind::kNumericFlag}}};
  }

  void write(Writing& out, const Element& element) const {
    out.result &= ItemAccess::write(out.filer, name, element.*field ? 1L : 0L);
  }
  void read(Reading& in, Element& element) const {
    long number = element.*field ? 1 : 0;
    in.result &= ItemAccess::read(in.filer, name, &number);
    element.*field = number != 0;
  }
};

template <class Element>
NumericFlag(dom::Name, bool Element::*) -> NumericFlag<Element>;

/// The bond class: filed as text; older files hold a number in its place.
template <class Element>
struct Adherence {
  dom::Name name;
  CString Element::*field;

  static constexpr std::size_t kItems = 1;
  constexpr std::array<ItemSchema, 1> schema() const { return {{{name.text(), Kind::kAdherence}}}; }

  void write(Writing& out, const Element& element) const {
    out.result &= ItemAccess::write(out.filer, name, element.*field);
  }
  void read(Reading& in, Element& element) const {
    long code = 0;
    if (ItemAccess::read(in.filer, name, &code) != 0) {
      element.*field = fromUtf8(adherenceOf(code));
    } else {
      in.result &= ItemAccess::read(in.filer, name, &(element.*field));
    }
  }
};

template <class Element>
Adherence(dom::Name, CString Element::*) -> Adherence<Element>;

/// An item whose absence does not make reading fail.
template <class Row>
struct Optional {
  Row row;

  static constexpr std::size_t kItems = 1;
  constexpr std::array<ItemSchema, 1> schema() const {
    auto items = row.schema();
    items[0].optional = true;
    return items;
  }

  template <class Element>
  void write(Writing& out, const Element& element) const {
    row.write(out, element);
  }
  template <class Element>
  void read(Reading& in, Element& element) const {
    const int before = in.result;
    row.read(in, element);
    in.result = before;
  }
};

template <class Row>
Optional(Row) -> Optional<Row>;

/// Two items that are read in the reverse order of writing.
template <class First, class Second>
struct ReadInReverse {
  First first;
  Second second;

  static constexpr std::size_t kItems = 2;
  constexpr std::array<ItemSchema, 2> schema() const {
    return {{first.schema()[0], second.schema()[0]}};
  }

  template <class Element>
  void write(Writing& out, const Element& element) const {
    first.write(out, element);
    second.write(out, element);
  }
  template <class Element>
  void read(Reading& in, Element& element) const {
    second.read(in, element);
    first.read(in, element);
  }
};

template <class First, class Second>
ReadInReverse(First, Second) -> ReadInReverse<First, Second>;

}  // namespace quorvan::items
