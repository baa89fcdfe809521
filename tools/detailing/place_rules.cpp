#include <algorithm>
#include <limits>

#include <tools/detailing/bar_body.h>
#include <tools/detailing/detailing_rules.h>

namespace quorvan::tool {

namespace {

// Whether the bar runs from one side of an outline to the other.
bool passesFormwork(const BarBody& body, const Formwork& formwork) {
  bool isPassing = false;
  const auto lookAlong = [&](const auto& part) {
    formwork.visit(boxAround(part, 0.0),
                   [&](const FormworkLine& line) { isPassing = isPassing || passes(part, line); });
  };
  std::ranges::for_each(body.legs, lookAlong);
  std::ranges::for_each(body.rings, lookAlong);
  return isPassing;
}

// The least of the gaps to the formwork within reach. A bar that runs through a joint keeps no
// cover to what lies on the line of that joint.
double leastCover(const BarBody& body, bool isPassing, double reach, const Formwork& formwork) {
  double least = std::numeric_limits<double>::infinity();
  for (const LegBody& leg : body.legs) {
    formwork.visit(boxAround(leg, reach), [&](const FormworkLine& line) {
      if (!isPassing || !passesDrawnOn(leg, line)) {
        least = std::min(least, gapBetween(leg, line));
      }
    });
  }
  for (const RingBody& ring : body.rings) {
    formwork.visit(boxAround(ring, reach), [&](const FormworkLine& line) {
      if (!isPassing || !passes(ring, line)) {
        least = std::min(least, gapBetween(ring, line));
      }
    });
  }
  return least;
}

bool liesInside(const BarBody& body, const Formwork& formwork) {
  return std::ranges::any_of(body.samples(),
                             [&](PlanePoint point) { return formwork.isAround(point); });
}

}  // namespace

void PlaceRules::look(const Subject& subject, const Bar& bar) {
  const BarBody body = bodyOf(bar, *m_limits.unit);
  if (bar.isHidden || m_formwork.isEmpty() || (body.legs.empty() && body.rings.empty())) {
    return;
  }
  const bool isPassing = passesFormwork(body, m_formwork);
  Mark& mark = m_marks[subject.mark];
  if (!isPassing && !liesInside(body, m_formwork)) {
    mark.outside.push_back(&subject.element);
    return;
  }
  mark.isInside = true;
  if (!m_limits.cover) {
    return;
  }
  const double cover = leastCover(body, isPassing, *m_limits.cover, m_formwork);
  if (cover < *m_limits.cover - kLengthSlack) {
    m_sink.add(findings::kCover, subject, "", inMillimetres(cover) + " from the edge of the bar",
               inMillimetres(*m_limits.cover) + " at least (--cover; EN 1992-1-1, 4.4.1)",
               {"EN 1992-1-1, 4.4.1", cover, *m_limits.cover,
                "move the bar " + inMillimetres(*m_limits.cover - cover) + " into the concrete"});
  }
}

void PlaceRules::report() {
  if (m_formwork.isEmpty()) {
    m_sink.leaveOut(findings::kCover, "there is no formwork in the file");
    m_sink.leaveOut(findings::kOutside, "there is no formwork in the file");
    return;
  }
  if (!m_limits.cover) {
    m_sink.leaveOut(findings::kCover,
                    "the cover that is wanted is not in the file: --cover says it");
  }
  for (const auto& [number, mark] : m_marks) {
    for (const Element* const element : mark.outside) {
      if (mark.isInside) {
        m_sink.leaveOut(findings::kOutside,
                        "bars outside, of marks that also lie inside: they may be drawn apart",
                        true);
      } else {
        m_sink.add(findings::kOutside, {*element, {}, number}, "", "within 0 outlines",
                   "within 1 outline at least",
                   {"formwork of the drawing", 0.0, 1.0,
                    "move the bar into the concrete, or transfer the formwork around it"});
      }
    }
  }
  if (m_formwork.isExhausted()) {
    for (const FindingKind* const kind : {&findings::kCover, &findings::kOutside}) {
      m_sink.leaveOut(*kind, "lines of the formwork lie over one another too often: given up");
    }
  }
}

}  // namespace quorvan::tool
