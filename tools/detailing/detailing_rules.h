// The rules by what they look at.
#pragma once

#include <map>
#include <optional>
#include <string_view>
#include <vector>

#include <tools/bending/bent_bar.h>
#include <tools/bending/faceted_arc.h>
#include <tools/detailing/breach_sink.h>
#include <tools/detailing/detailing_findings.h>
#include <tools/detailing/detailing_limits.h>
#include <tools/detailing/formwork.h>
#include <tools/model/bar.h>
#include <tools/model/repartition.h>

namespace quorvan::tool {

/// By how much a value may miss a limit, in mm and degrees: coordinates come from programs that
/// reckon in other units.
inline constexpr double kLengthSlack = 0.1;
inline constexpr double kAngleSlack = 0.1;

/// A bar in both readings of its hooks' lengths, which are one where it is known which counts.
struct RuledBar {
  Subject subject;
  const Bar& bar;
  BentBar least;  // hooks measured from the corner
  BentBar most;   // hooks measured without their bends
  std::vector<FacetedArc> arcs;
  bool isUsualRoller;

  /// Whether the bend is a facet of an arc.
  [[nodiscard]] bool isFacet(std::size_t bend) const noexcept;
};

/// The ends of links (801).
void checkLinkEnd(const RuledBar& ruled, BreachSink& sink);
/// End projections (802).
void checkEndProjections(const RuledBar& ruled, BreachSink& sink);
/// Legs between bends (803).
void checkLegs(const RuledBar& ruled, BreachSink& sink);
/// Pieces longer than the stock (804). Of a series, its longest bar: true where the bar itself is
/// too long.
bool checkStock(const Subject& subject, const BentBar& bent, double stock, BreachSink& sink);
/// Rollers (805).
void checkRoller(const RuledBar& ruled, const DetailingLimits& limits, BreachSink& sink);
/// Spacing (806).
void checkSpacing(const Subject& series, const std::vector<double>& spacings, double diameter,
                  const DetailingLimits& limits, BreachSink& sink);
/// Arcs (809).
void checkArcs(const RuledBar& ruled, BreachSink& sink);
/// Ends of smooth bars (810).
void checkSmoothEnds(const RuledBar& ruled, BreachSink& sink);

/// Cover (807) and place (808) of the bars that the drawing shows.
class PlaceRules {
 public:
  PlaceRules(const Formwork& formwork, const DetailingLimits& limits, BreachSink& sink)
      : m_formwork(formwork), m_limits(limits), m_sink(sink) {}
  void look(const Subject& subject, const Bar& bar);
  void report();

 private:
  // What of a mark lies where.
  struct Mark {
    bool isInside = false;
    std::vector<const Element*> outside;
  };

  const Formwork& m_formwork;
  const DetailingLimits& m_limits;
  BreachSink& m_sink;
  std::map<std::int64_t, Mark> m_marks;
};

}  // namespace quorvan::tool
