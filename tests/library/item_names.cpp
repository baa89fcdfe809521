// Two items of one class: with the names given here it compiles, or it must not.
#include <quorvan/elements/items/scalar_rows.h>

struct Element {
  double first = 0.0;
  double second = 0.0;
};

constexpr auto kTable = quorvan::items::table(
    "Element", quorvan::items::OwnFiler::kNone, quorvan::items::Plain{"First", &Element::first},
    quorvan::items::Plain{QUORVAN_SECOND_NAME, &Element::second});

static_assert(kTable.schema().size() == 2);
