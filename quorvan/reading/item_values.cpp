// Items that hold one value.
#include <quorvan/filer/item_values.h>

#include <algorithm>
#include <array>

#include <quorvan/elements/items/item_words.h>
#include <quorvan/elements/items/scalar_rows.h>
#include <quorvan/filer/vocabulary.h>
#include <quorvan/reading/boundary.h>
#include <quorvan/reading/element.h>
#include <quorvan/reading/kinds.h>
#include <quorvan/reading/read.h>
#include <quorvan/text/utf8.h>

namespace dom = quorvan::dom;
namespace filer = quorvan::filer;
namespace items = quorvan::items;
using quorvan::fail;
using quorvan::reading::guarded;

namespace {

bool has(const QuorvanItem& item, const dom::Name& attribute) {
  dom::AttributeValue value;
  return dom::attribute(item.node, attribute, value);
}

bool is(const QuorvanItem& item, items::Kind kind) {
  return item.schema != nullptr && item.schema->kind == kind;
}

// What stands in the file, whatever the class says.
QuorvanKind kindInFile(const QuorvanItem& item) {
  if (has(item, filer::kDoubleKind)) {
    return QUORVAN_KIND_DOUBLE;
  }
  if (has(item, filer::kLongKind)) {
    return QUORVAN_KIND_LONG;
  }
  if (has(item, filer::kStringKind)) {
    return QUORVAN_KIND_TEXT;
  }
  if (has(item, filer::kX) && has(item, filer::kY) && has(item, filer::kZ)) {
    return QUORVAN_KIND_POINT;
  }
  return has(item, filer::kSizeName) ? QUORVAN_KIND_LIST : QUORVAN_KIND_NONE;
}

// Whether an item that the class files as `kind` may stand in the file as `found`.
bool standsAs(items::Kind kind, QuorvanKind found) {
  switch (kind) {
    case items::Kind::kPoint:
    case items::Kind::kVector:
      return found == QUORVAN_KIND_POINT;
    case items::Kind::kDouble:
      return found == QUORVAN_KIND_DOUBLE;
    case items::Kind::kLong:
    case items::Kind::kColor:
    case items::Kind::kNumericFlag:
    case items::Kind::kNumberedPoints:
      return found == QUORVAN_KIND_LONG;
    case items::Kind::kString:
    case items::Kind::kFlag:
      return found == QUORVAN_KIND_TEXT;
    case items::Kind::kAdherence:
      return found == QUORVAN_KIND_TEXT || found == QUORVAN_KIND_LONG;
    case items::Kind::kPointList:
    case items::Kind::kSegmentList:
    case items::Kind::kDoubleList:
      return found == QUORVAN_KIND_LIST;
  }
  return false;
}

bool isTrue(std::string_view text) {
  constexpr std::string_view kTrue = "true";
  return std::equal(text.begin(), text.end(), kTrue.begin(), kTrue.end(), [](char a, char b) {
    return a == b || (a >= 'A' && a <= 'Z' && a - 'A' + 'a' == b);
  });
}

// Hands the text of the item over, in the caller's form.
template <class Unit, class Text>
int give(const QuorvanItem& item, const Text& text, const Unit** to, std::size_t* length) {
  *to = item.element->texts().keep(text);
  if (length != nullptr) {
    *length = text.size();
  }
  return QUORVAN_DONE;
}

// Finds the attribute that a value stands in and hands it to `use`.
template <class Use>
int read(const QuorvanItem* item, const void* to, const dom::Name& attribute, const Use& use) {
  if (item == nullptr) {
    return fail(QUORVAN_NO_ITEM);
  }
  if (to == nullptr) {
    return fail(QUORVAN_BAD_ARGUMENT);
  }
  return guarded([&]() -> int {
    dom::AttributeValue value;
    if (!dom::attribute(item->node, attribute, value)) {
      return fail(QUORVAN_OTHER_KIND);
    }
    use(value);
    return QUORVAN_DONE;
  });
}

// The text of a bond class that an older file holds as a number; null where it does not.
const wchar_t* bondClass(const QuorvanItem& item, CString& text) {
  dom::AttributeValue code;
  if (!is(item, items::Kind::kAdherence) || !dom::attribute(item.node, filer::kLongKind, code)) {
    return nullptr;
  }
  text = quorvan::fromUtf8(items::adherenceOf(code.toLong()));
  return text;
}

}  // namespace

int quorvanItemKind(const QuorvanItem* item) {
  int kind = QUORVAN_KIND_NONE;
  if (item != nullptr) {
    guarded([&] {
      const QuorvanKind found = kindInFile(*item);
      const bool isAsFiled = item->schema != nullptr && standsAs(item->schema->kind, found);
      kind = isAsFiled ? quorvan::reading::kindOf(item->schema->kind) : found;
      return QUORVAN_DONE;
    });
  }
  return kind;
}

int quorvanReadLong(const QuorvanItem* item, std::int32_t* value) {
  return read(item, value, filer::kLongKind,
              [&](const dom::AttributeValue& found) { *value = found.toLong(); });
}

int quorvanReadColor(const QuorvanItem* item, std::uint32_t* value) {
  return read(item, value, filer::kLongKind, [&](const dom::AttributeValue& found) {
    *value = static_cast<std::uint32_t>(found.toLong());
  });
}

int quorvanReadDouble(const QuorvanItem* item, double* value) {
  return read(item, value, filer::kDoubleKind,
              [&](const dom::AttributeValue& found) { *value = found.toDouble(); });
}

int quorvanReadFlag(const QuorvanItem* item, int* value) {
  if (item != nullptr && is(*item, items::Kind::kNumericFlag)) {
    return read(item, value, filer::kLongKind,
                [&](const dom::AttributeValue& found) { *value = found.toLong() != 0 ? 1 : 0; });
  }
  return read(item, value, filer::kStringKind, [&](const dom::AttributeValue& found) {
    std::string text;
    found.appendTo(text);
    *value = isTrue(text) ? 1 : 0;
  });
}

int quorvanReadText(const QuorvanItem* item, const char** text, std::size_t* length) {
  if (item == nullptr || text == nullptr) {
    return fail(item == nullptr ? QUORVAN_NO_ITEM : QUORVAN_BAD_ARGUMENT);
  }
  return guarded([&]() -> int {
    std::string found;
    CString bond;
    dom::AttributeValue value;
    if (bondClass(*item, bond) != nullptr) {
      found.assign(bond.view().begin(), bond.view().end());
    } else if (dom::attribute(item->node, filer::kStringKind, value)) {
      value.appendTo(found);
    } else {
      return fail(QUORVAN_OTHER_KIND);
    }
    return give(*item, std::string_view(found), text, length);
  });
}

int quorvanReadWideText(const QuorvanItem* item, const wchar_t** text, std::size_t* length) {
  if (item == nullptr || text == nullptr) {
    return fail(item == nullptr ? QUORVAN_NO_ITEM : QUORVAN_BAD_ARGUMENT);
  }
  return guarded([&]() -> int {
    CString found;
    dom::AttributeValue value;
    if (bondClass(*item, found) == nullptr) {
      if (!dom::attribute(item->node, filer::kStringKind, value)) {
        return fail(QUORVAN_OTHER_KIND);
      }
      found = value.toText();
    }
    return give(*item, found.view(), text, length);
  });
}

int quorvanReadPoint(const QuorvanItem* item, double* xyz) {
  if (item == nullptr || xyz == nullptr) {
    return fail(item == nullptr ? QUORVAN_NO_ITEM : QUORVAN_BAD_ARGUMENT);
  }
  return guarded([&]() -> int {
    std::array<double, 3> coordinates{};
    if (!quorvan::reading::readCoordinates(item->node, coordinates.data())) {
      return fail(QUORVAN_OTHER_KIND);
    }
    std::copy(coordinates.begin(), coordinates.end(), xyz);
    return QUORVAN_DONE;
  });
}

int quorvanReadSize(const QuorvanItem* item, std::int32_t* announced) {
  const bool isNumber = item != nullptr && is(*item, items::Kind::kNumberedPoints);
  return read(item, announced, isNumber ? filer::kLongKind : filer::kSizeName,
              [&](const dom::AttributeValue& found) { *announced = found.toLong(); });
}
