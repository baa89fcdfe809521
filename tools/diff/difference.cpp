#include <tools/diff/difference.h>

#include <algorithm>
#include <utility>

#include <tools/diff/candidates.h>
#include <tools/diff/common_shift.h>
#include <tools/diff/element_content.h>
#include <tools/model/bar.h>
#include <tools/text/table.h>

namespace quorvan::tool {

namespace {

constexpr double kRounding = 0.001;  // of the vector by which all is moved

// What makes an element the one it is although its content changed: the mark of a bar, the
// reference of a mesh, the contents of a text. Empty where nothing but its place does.
std::string identityOf(const Element& element, const std::vector<ItemValue>& items) {
  for (const std::string_view name : {"Reference", "Contents"}) {
    const ItemValue* const item = findItem(items, name);
    if (item != nullptr && !item->isMissing()) {
      return std::string(element.className()) + '\n' +
             (item->schema->kind == items::Kind::kLong ? std::to_string(item->integer)
                                                       : item->text);
    }
  }
  // The control record is the only one of its kind.
  const bool hasPlace = std::ranges::any_of(items, [](const ItemValue& item) {
    return item.schema->kind == items::Kind::kPoint || isList(item.schema->kind);
  });
  return hasPlace ? std::string() : std::string(element.className());
}

// The point by which an element is found; all elements without one are at the origin.
Coordinates anchorOf(const Content& content) {
  return content.points.empty() ? Coordinates() : content.points.front();
}

// From the first to the last point: what stays when an element is moved.
Coordinates spanOf(const Content& content) {
  if (content.points.empty()) {
    return {};
  }
  const Coordinates& first = content.points.front();
  const Coordinates& last = content.points.back();
  return {last.x - first.x, last.y - first.y, last.z - first.z};
}

// Pairs the elements of two files, from the strictest likeness to the loosest.
class Comparison {
 public:
  Comparison(const TransferFile& before, const TransferFile& after, double tolerance)
      : m_before(before),
        m_after(after),
        m_readBefore(before),
        m_readAfter(after),
        m_tolerance(tolerance),
        m_isOpenBefore(before.elements().size(), true),
        m_isOpenAfter(after.elements().size(), true) {}

  std::vector<Difference> compare(Progress& progress) {
    if (const auto by = commonShift(m_before, m_readBefore, m_after, m_readAfter, m_tolerance)) {
      m_shift = *by;
      pairAlike(m_shift, progress);
    }
    pairAlike({}, progress);
    pairMoved();
    pairChanged(&Comparison::placeKey, true);
    pairChanged(&Comparison::identityKey, false);
    collectRest();
    std::ranges::stable_sort(m_differences, {}, [](const Difference& one) {
      return std::pair(one.kind, (one.before != nullptr ? one.before : one.after)->place);
    });
    return std::move(m_differences);
  }

 private:
  // A text and a point under which an element is looked up; an empty text for none.
  using Key = std::pair<std::string, Coordinates>;
  using KeyOf = Key (Comparison::*)(ContentReader&, const Element&);

  void take(const Element& before, const Element& after) {
    m_isOpenBefore[before.place] = false;
    m_isOpenAfter[after.place] = false;
  }

  // The open elements of the second file under their keys.
  Candidates candidatesBy(const auto& keyOf) {
    Candidates candidates(m_tolerance);
    for (const Element& element : m_after.elements()) {
      if (!m_isOpenAfter[element.place]) {
        continue;
      }
      const Key key = keyOf(m_readAfter, element);
      if (!key.first.empty()) {
        candidates.add(key.first, key.second, element.place);
      }
    }
    return candidates;
  }

  [[nodiscard]] auto isFree() const {
    return [this](std::uint32_t place) { return static_cast<bool>(m_isOpenAfter[place]); };
  }

  // Pairs what is the same once all is moved by the vector.
  void pairAlike(const Coordinates& by, Progress& progress) {
    const bool isMoved = isBeyond(by, m_tolerance);
    const auto keyOf = [](ContentReader& reader, const Element& element) {
      const Content& content = reader.read(element);
      return Key(content.discrete, anchorOf(content));
    };
    Candidates candidates = candidatesBy(keyOf);
    for (const Element& element : m_before.elements()) {
      progress.report(element.place, m_before.elements().size());
      if (!m_isOpenBefore[element.place]) {
        continue;
      }
      const Content& content = m_readBefore.read(element);
      const Coordinates anchor = anchorOf(content);
      const Coordinates there{anchor.x + by.x, anchor.y + by.y, anchor.z + by.z};
      candidates.visit(content.discrete, there, isFree(), [&](std::uint32_t place) {
        const Element& other = m_after.elements()[place];
        if (!isMoved ? !areEqual(content, m_readAfter.read(other), m_tolerance)
                     : !isMovedBy(by, content, m_readAfter.read(other))) {
          return false;
        }
        take(element, other);
        if (isMoved) {
          m_differences.push_back({DifferenceKind::kMoved, &element, &other, by, {}});
        }
        return true;
      });
    }
  }

  // A place of the old drawing in the new one.
  [[nodiscard]] Coordinates shifted(const Coordinates& point) const {
    return {point.x + m_shift.x, point.y + m_shift.y, point.z + m_shift.z};
  }

  [[nodiscard]] bool isMovedBy(const Coordinates& by, const Content& before,
                               const Content& after) const {
    Coordinates found;
    return areMoved(before, after, m_tolerance, found) &&
           distance(found, by) <= std::max(m_tolerance, kRounding);
  }

  void pairMoved() {
    const auto keyOf = [](ContentReader& reader, const Element& element) {
      const Content& content = reader.read(element);
      return Key(content.points.empty() ? std::string() : content.discrete, spanOf(content));
    };
    Candidates candidates = candidatesBy(keyOf);
    for (const Element& element : m_before.elements()) {
      if (!m_isOpenBefore[element.place]) {
        continue;
      }
      const Content& content = m_readBefore.read(element);
      Difference nearest{DifferenceKind::kMoved, &element, nullptr, {}, {}};
      candidates.visit(content.discrete, spanOf(content), isFree(), [&](std::uint32_t place) {
        const Element& other = m_after.elements()[place];
        Coordinates by;
        if (areMoved(content, m_readAfter.read(other), m_tolerance, by) &&
            (nearest.after == nullptr || distance(by, {}) < distance(nearest.by, {}))) {
          nearest.after = &other;
          nearest.by = by;
        }
        return false;
      });
      if (nearest.after != nullptr) {
        take(element, *nearest.after);
        m_differences.push_back(std::move(nearest));
      }
    }
  }

  Key placeKey(ContentReader& reader, const Element& element) {
    const Content& content = reader.read(element);
    return {content.points.empty() ? std::string() : std::string(element.className()),
            anchorOf(content)};
  }

  Key identityKey(ContentReader& reader, const Element& element) {
    if (element.schema == nullptr) {
      return {};
    }
    return {element.is(items::ElementClass::kRepartition)
                ? reader.repeatedMark(element)
                : identityOf(element, reader.items(element)),
            {}};
  }

  void pairChanged(KeyOf keyOf, bool isByPlace) {
    Candidates candidates = candidatesBy([&](ContentReader& reader, const Element& element) {
      return (this->*keyOf)(reader, element);
    });
    for (const Element& element : m_before.elements()) {
      if (!m_isOpenBefore[element.place]) {
        continue;
      }
      Key key = (this->*keyOf)(m_readBefore, element);
      if (key.first.empty()) {
        continue;
      }
      if (isByPlace) {
        key.second = shifted(key.second);
      }
      Difference closest{DifferenceKind::kChanged, &element, nullptr, {}, {}};
      candidates.visit(key.first, key.second, isFree(), [&](std::uint32_t place) {
        const Element& other = m_after.elements()[place];
        std::vector<ItemChange> changes = changesBetween(element, other);
        if (closest.after == nullptr || changes.size() < closest.items.size()) {
          closest.after = &other;
          closest.items = std::move(changes);
        }
        return false;
      });
      if (closest.after != nullptr) {
        take(element, *closest.after);
        m_differences.push_back(std::move(closest));
      }
    }
  }

  std::vector<ItemChange> changesBetween(const Element& before, const Element& after) {
    std::vector<ItemChange> changes;
    const auto old = m_readBefore.texts(before);
    const auto now = m_readAfter.texts(after);
    for (std::size_t i = 0; i < old.size() && i < now.size(); ++i) {
      if (old[i].second != now[i].second) {
        changes.push_back({old[i].first, old[i].second, now[i].second});
      }
    }
    return changes;
  }

  void collectRest() {
    for (const Element& element : m_before.elements()) {
      if (m_isOpenBefore[element.place]) {
        m_differences.push_back({DifferenceKind::kDeleted, &element, nullptr, {}, {}});
      }
    }
    for (const Element& element : m_after.elements()) {
      if (m_isOpenAfter[element.place]) {
        m_differences.push_back({DifferenceKind::kAdded, nullptr, &element, {}, {}});
      }
    }
  }

  const TransferFile& m_before;
  const TransferFile& m_after;
  ContentReader m_readBefore;
  ContentReader m_readAfter;
  double m_tolerance;
  Coordinates m_shift;  // of the drawing as a whole
  std::vector<bool> m_isOpenBefore;
  std::vector<bool> m_isOpenAfter;
  std::vector<Difference> m_differences;
};

}  // namespace

std::vector<Difference> compareFiles(const TransferFile& before, const TransferFile& after,
                                     double tolerance, Console& console) {
  Progress progress(console,
                    "comparing " + printable(before.name()) + " and " + printable(after.name()));
  return Comparison(before, after, tolerance).compare(progress);
}

std::string_view differenceName(DifferenceKind kind) noexcept {
  switch (kind) {
    case DifferenceKind::kDeleted:
      return "deleted";
    case DifferenceKind::kAdded:
      return "added";
    case DifferenceKind::kMoved:
      return "moved";
    case DifferenceKind::kChanged:
      return "changed";
  }
  return {};
}

}  // namespace quorvan::tool
