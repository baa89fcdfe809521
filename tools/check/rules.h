// The rules by what they look at. Each is given the elements one after the other, then asked for
// what it found out about all of them.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <tools/bending/corner_line.h>
#include <tools/check/checker.h>
#include <tools/check/finding_sink.h>
#include <tools/check/index_runs.h>
#include <tools/model/bar.h>
#include <tools/model/extents.h>
#include <tools/model/item_problem.h>
#include <tools/model/item_value.h>
#include <tools/model/repartition.h>
#include <tools/model/repeated_bars.h>
#include <tools/model/view_twins.h>
#include <tools/text/keyed_hash.h>

namespace quorvan::tool {

/// The document around the elements.
void checkDocument(const TransferFile& file, FindingSink& sink);

/// The control record.
void checkControl(const TransferFile& file, FindingSink& sink);

/// The attributes "version" and "index".
class IndexRule {
 public:
  IndexRule(const TransferFile& file, FindingSink& sink) : m_file(file), m_sink(sink) {}
  void look(const Element& element);

 private:
  struct Seen {
    std::int32_t last = 0;
    IndexRuns indexes;
  };

  const TransferFile& m_file;
  FindingSink& m_sink;
  std::unordered_map<std::string_view, Seen, KeyedHash> m_classes;
};

const FindingKind& findingKindOf(ProblemKind problem);

/// Whether nothing that was met with is an error: what the drawing says is looked at only then.
bool areWhole(const std::vector<ItemProblem>& problems);

/// What reading the items met with.
void reportProblems(const Element& element, const std::vector<ItemProblem>& problems,
                    FindingSink& sink);

/// The characters of texts.
void checkTexts(const Element& element, const std::vector<ItemValue>& items, FindingSink& sink);

/// Hidden bars that are equal, as the library tells them: by the texts of their items.
class HiddenBarRule {
 public:
  HiddenBarRule(const TransferFile& file, FindingSink& sink) : m_file(file), m_sink(sink) {}
  void look(const Element& element, const Bar& bar);

 private:
  const TransferFile& m_file;
  FindingSink& m_sink;
  std::unordered_map<std::string, const Element*, KeyedHash> m_seen;
};

/// The texts by which the library tells whether two bars are equal.
std::string comparedTexts(const DocumentTree& tree, const Element& element);

/// Bars of one reference, which are to be alike.
class ReferenceRule {
 public:
  ReferenceRule(const TransferFile& file, FindingSink& sink) : m_file(file), m_sink(sink) {}
  void look(const Element& element, const std::vector<ItemValue>& items, const Bar& bar);

 private:
  // One of the kinds of bar that a mark has.
  struct Variant {
    const Element* element;
    std::string steel;  // diameter, grade, adherence
    BarShape shape;
    double length;    // 0 for a bar seen end-on
    CornerLine line;  // none for a bar seen end-on and a circular frame
    double radius;    // of a circular frame
  };

  static bool haveOneLength(const Variant& a, const Variant& b);
  static bool areAlike(const Variant& a, const Variant& b);
  static std::string describe(const Variant& variant, bool withLegs);
  CornerLine lineOf(const Bar& bar);

  const TransferFile& m_file;
  FindingSink& m_sink;
  std::optional<AngleUnit> m_angles;  // guessed where a hook asks for it
  std::unordered_map<std::int64_t, std::vector<Variant>, KeyedHash> m_marks;
};

/// Visible bars of one mark, steel and shape at one place, to a thousandth of the drawing's unit:
/// the bar list counts them all.
class EqualBarRule {
 public:
  EqualBarRule(const TransferFile& file, FindingSink& sink) : m_file(file), m_sink(sink) {}
  void look(const Element& element, const Bar& bar);

 private:
  const TransferFile& m_file;
  FindingSink& m_sink;
  std::unordered_map<std::string, const Element*, KeyedHash> m_seen;
};

/// Diameters.
void checkDiameter(const Element& element, const std::vector<ItemValue>& items, const Bar& bar,
                   const StandardSizes& sizes, FindingSink& sink);

/// Repartitions.
void checkRepartition(const ElementIndex& index, const Element& element,
                      const std::vector<ItemValue>& items, FindingSink& sink);

/// Repartitions that look like the same bars in several views.
class SeriesViewRule {
 public:
  SeriesViewRule(const TransferFile& file, FindingSink& sink)
      : m_file(file), m_sink(sink), m_bars(file) {}
  [[nodiscard]] const ElementIndex& elements() const noexcept { return m_bars.index(); }
  void look(const Element& element, const Repartition& series);
  void report() const;

 private:
  const TransferFile& m_file;
  FindingSink& m_sink;
  RepeatedBars m_bars;
  ViewTwins m_twins;
};

/// Repartitions that noise in coordinates made: without any step, or with a point or distance a
/// million times the drawing's size away.
class DegenerateSeriesRule {
 public:
  explicit DegenerateSeriesRule(FindingSink& sink) : m_sink(sink) {}
  void look(const Element& element, const std::vector<ItemValue>& items);
  void lookAtSize(const std::vector<ItemValue>& items) { includeElement(m_drawing, items); }
  void report() const;

 private:
  // A point of a repartition, or a list of distances.
  struct Place {
    const Element* element;
    const std::string_view* item;
    const Node* node;
    Coordinates point;
    std::optional<double> farthest;  // of the list
  };

  [[nodiscard]] double howFar(const Place& one) const;

  FindingSink& m_sink;
  std::optional<Extents> m_drawing;  // without repartitions
  std::vector<Place> m_places;
};

}  // namespace quorvan::tool
