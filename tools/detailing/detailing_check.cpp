#include <tools/detailing/detailing_check.h>

#include <algorithm>

#include <tools/check/rules.h>
#include <tools/detailing/detailing_rules.h>
#include <tools/model/item_reader.h>
#include <tools/model/repeated_bars.h>
#include <tools/model/series_layout.h>
#include <tools/model/series_spans.h>

namespace quorvan::tool {

namespace {

constexpr std::size_t kEffort = 20'000'000;      // lines looked at in any file
constexpr std::size_t kEffortAnElement = 1'000;  // and for each of its elements

std::vector<Segment> segmentsOf(const TransferFile& file) {
  std::vector<Segment> segments;
  ItemReader reader(file);
  for (const Element& element : file.elements()) {
    if (element.is(items::ElementClass::kFormwork)) {
      for (const ItemValue& item : reader.read(element)) {
        segments.insert(segments.end(), item.segments.begin(), item.segments.end());
      }
    }
  }
  return segments;
}

class Detailing {
 public:
  Detailing(const TransferFile& file, const DetailingLimits& limits)
      : m_file(file),
        m_limits(limits),
        m_sink(file),
        m_formwork(segmentsOf(file), *limits.unit,
                   kEffort + kEffortAnElement * file.elements().size()),
        m_places(m_formwork, limits, m_sink),
        m_repeated(file) {
    m_rules.mandrel = limits.mandrel;
    m_rules.angles = limits.angles ? *limits.angles : guessAngleUnit(file).unit;
  }

  DetailingReport check() {
    leaveOutOtherRules();
    ItemReader reader(m_file);
    std::vector<ItemProblem> problems;
    for (const Element& element : m_file.elements()) {
      if (element.schema == nullptr) {
        continue;
      }
      problems.clear();
      const std::vector<ItemValue>& items = reader.read(element, &problems);
      if (!areWhole(problems)) {
        continue;
      }
      if (const auto shape = barShapeOf(element)) {
        checkBar(element, items, toBar(*shape, items));
      } else if (element.is(items::ElementClass::kRepartition)) {
        checkSeries(element, items);
      }
    }
    m_places.report();
    return {m_sink.takeFindings(), m_sink.notChecked()};
  }

 private:
  [[nodiscard]] BentBar bentBy(const Bar& bar, HookMeaning hooks) const {
    BendingRules rules = m_rules;
    rules.hooks = m_limits.hooks.value_or(hooks);
    return bend(bar, *m_limits.unit, rules);
  }

  void leaveOutOtherRules() {
    for (const FindingKind* const kind :
         {&findings::kLinkEnd, &findings::kClearSpacing, &findings::kSmoothEnd}) {
      if (!m_limits.hasEurocode2) {
        m_sink.leaveOut(*kind, "a rule of Eurocode 2: --rules ec2");
      }
    }
    for (const FindingKind* const kind :
         {&findings::kEndProjection, &findings::kLegBetweenBends, &findings::kFlatArc}) {
      if (!m_limits.hasBs8666) {
        m_sink.leaveOut(*kind, "a rule of BS 8666: --rules bs8666");
      }
    }
    if (!m_limits.mandrel) {
      m_sink.leaveOut(findings::kRoller, "the roller is not in the file: --mandrel says it");
    }
    if (m_limits.hasEurocode2 && !m_limits.aggregate) {
      m_sink.leaveOut(findings::kClearSpacing,
                      "against the aggregate, whose size is not in the file: --aggregate says it");
    }
  }

  void checkBar(const Element& element, const std::vector<ItemValue>& items, const Bar& bar) {
    const Subject subject{element, items, bar.reference};
    m_places.look(subject, bar);
    if (!bar.hasLength()) {
      return;
    }
    RuledBar ruled{subject,
                   bar,
                   bentBy(bar, HookMeaning::kCorner),
                   bentBy(bar, HookMeaning::kStraight),
                   {},
                   !m_limits.mandrel};
    ruled.arcs = facetedArcsOf(ruled.least);
    checkStock(subject, ruled.least, m_limits.stock, m_sink);
    if (m_limits.mandrel) {
      checkRoller(ruled, m_limits, m_sink);
    }
    if (m_limits.hasEurocode2) {
      checkLinkEnd(ruled, m_sink);
      checkSmoothEnds(ruled, m_sink);
    }
    if (m_limits.hasBs8666) {
      checkEndProjections(ruled, m_sink);
      checkLegs(ruled, m_sink);
      checkArcs(ruled, m_sink);
    }
  }

  void checkSeries(const Element& element, const std::vector<ItemValue>& items) {
    const Repartition series = toRepartition(items);
    const Bar* const bar = m_repeated.find(series);
    if (bar == nullptr) {
      return;
    }
    const Subject subject{element, items, bar->reference};
    if (m_limits.hasEurocode2) {
      std::vector<double> spacings = statedSpacings(series, bar);
      for (double& spacing : spacings) {
        spacing = m_limits.unit->millimetres(spacing);
      }
      checkSpacing(subject, spacings, m_limits.unit->millimetres(bar->diameter), m_limits, m_sink);
    }
    checkLongest(subject, series, *bar);
  }

  // The repeated bar itself is looked at where it is filed.
  void checkLongest(const Subject& subject, const Repartition& series, const Bar& bar) {
    const std::vector<double> spans = seriesSpans(series, bar);
    if (spans.empty() ||
        bentBy(bar, HookMeaning::kCorner).centreLine() > m_limits.stock + kLengthSlack) {
      return;
    }
    const Bar longest = withSpan(bar, std::ranges::max(spans));
    checkStock(subject, bentBy(longest, HookMeaning::kCorner), m_limits.stock, m_sink);
  }

  const TransferFile& m_file;
  const DetailingLimits& m_limits;
  BendingRules m_rules;
  BreachSink m_sink;
  Formwork m_formwork;
  PlaceRules m_places;
  RepeatedBars m_repeated;
};

}  // namespace

DetailingReport checkDetailing(const TransferFile& file, const DetailingLimits& limits) {
  return Detailing(file, limits).check();
}

}  // namespace quorvan::tool
