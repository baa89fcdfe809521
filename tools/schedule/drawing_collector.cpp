#include <tools/schedule/drawing_collector.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include <tools/bending/bent_form.h>
#include <tools/model/repeated_bars.h>
#include <tools/model/series_spans.h>
#include <tools/model/view_twins.h>
#include <tools/schedule/row_elements.h>

namespace quorvan::tool {

namespace {

constexpr double kOneStep = 1.01;  // lengths that differ by a step of the list are rounded apart
constexpr std::int64_t kNoIndex = -1;

BendingRules bendingOf(const TransferFile& file, const ListOptions& options) {
  BendingRules rules = options.bending;
  rules.angles = options.angles ? *options.angles : guessAngleUnit(file).unit;
  return rules;
}

bool isAsFiled(const ListOptions& options) {
  return options.cutting.schedule == Schedule::kAxis && options.cutting.lengthStep == 0.0 &&
         options.bending.hooks == HookMeaning::kCorner && options.bending.ring == RingRadius::kAxis;
}

}  // namespace

DrawingCollector::DrawingCollector(const TransferFile& file, BarList& list)
    : m_file(file),
      m_list(list),
      m_unit(*list.options.unit),
      m_drawing(list.drawings.size() - 1),
      m_reader(file),
      m_bending(bendingOf(file, list.options)),
      m_isAsFiled(isAsFiled(list.options)) {
  list.drawings.back().angles = m_bending.angles;
}

void DrawingCollector::collect() {
  collectSeries();
  for (const Element& element : m_file.elements()) {
    if (const auto shape = barShapeOf(element)) {
      addBar(element, *shape);
    } else if (element.is(items::ElementClass::kMesh)) {
      addMesh(element);
    }
  }
  // Each goes as it is settled: there may be as many as bars.
  m_settled.reserve(m_rows.size());
  while (!m_rows.empty()) {
    addOrMerge(std::move(m_rows.extract(m_rows.begin()).mapped()));
  }
  settleEndOn();
  if (m_list.rows.empty()) {
    m_list.rows = std::move(m_settled);
  } else {
    std::ranges::move(m_settled, std::back_inserter(m_list.rows));
  }
  for (auto& [key, mesh] : m_meshes) {
    m_list.meshes.push_back(std::move(mesh));
  }
  std::ranges::stable_sort(m_list.leftOut, [](const LeftOut& a, const LeftOut& b) {
    return std::pair(a.drawing, a.element->place) < std::pair(b.drawing, b.element->place);
  });
}

void DrawingCollector::collectSeries() {
  ViewTwins twins;
  RepeatedBars bars(m_file);
  for (const Element& element : m_file.elements()) {
    if (!element.is(items::ElementClass::kRepartition)) {
      continue;
    }
    const Repartition series = toRepartition(m_reader.read(element));
    const auto shape = barShapeOf(series.className);
    const Element* const target = shape && series.index != kNoIndex
                                      ? bars.index().find(series.className, series.index)
                                      : nullptr;
    if (target == nullptr || series.number() == 0) {
      leaveOut(element, series.number(),
               target == nullptr ? LeftOutReason::kBarNotThere : LeftOutReason::kNoBars);
      continue;
    }
    const Bar& bar = *bars.find(series);
    twins.add(element, series, bar.reference);
    const double step = std::pow(10.0, -m_unit.decimals);
    Use use{&element, series.number(), differingSpans(series, bar, kOneStep * step)};
    m_usesOf[target].push_back(m_uses.size());
    m_uses.push_back(std::move(use));
  }
  markTwins(twins.groups());
}

void DrawingCollector::markTwins(const std::vector<TwinGroup>& groups) {
  std::unordered_map<const Element*, Use*> uses;
  for (Use& use : m_uses) {
    uses.emplace(use.element, &use);
  }
  for (const TwinGroup& group : groups) {
    const std::int64_t view = group.mainView();
    const auto first = std::ranges::find(group.members, view, &TwinGroup::Member::viewPoint);
    std::vector<const Element*> all;
    for (const TwinGroup::Member& member : group.members) {
      Use& use = *uses.at(member.element);
      use.twins = m_twins.size();
      all.push_back(member.element);
      if (m_list.options.twins == TwinSeries::kOnce && member.viewPoint != view) {
        use.sameBars = first->element;
      }
    }
    m_twins.push_back(std::move(all));
  }
}

void DrawingCollector::addBar(const Element& element, BarShape shape) {
  m_problems.clear();
  const Bar bar = toBar(shape, m_reader.read(element, &m_problems, Strangers::kPassedOver));
  if (std::string item = unreadItem(m_problems); !item.empty()) {
    return leaveOut(element, numberOf(element), LeftOutReason::kItemUnread, std::move(item));
  }
  if (!isReckonable(m_unit.metres(bar.diameter))) {
    return leaveOut(element, numberOf(element), LeftOutReason::kNoDiameter);
  }
  const Measured drawn = measure(bar);
  if (bar.hasLength() && !isReckonable(m_unit.metres(drawn.length))) {
    return leaveOut(element, numberOf(element), LeftOutReason::kNoLength);
  }
  const auto uses = m_usesOf.find(&element);
  if (uses == m_usesOf.end()) {
    BarRow& row = rowOf(drawn, drawn.length);
    addElement(row, element, bar, false);
    ++row.number;
    row.totalLength += drawn.length;
    return;
  }
  for (const std::size_t place : uses->second) {
    const Use& use = m_uses[place];
    if (!use.spans.empty() && use.sameBars == nullptr) {
      addVaryingSeries(element, bar, use);
      continue;
    }
    BarRow& row = rowOf(drawn, drawn.length);
    addElement(row, element, bar, true);
    addShare(row, use, use.number, static_cast<double>(use.number) * drawn.length);
  }
}

// One row for all lengths, or one for each.
void DrawingCollector::addVaryingSeries(const Element& element, const Bar& bar, const Use& use) {
  std::vector<double> spans;
  for (const double span : use.spans) {
    if (isReckonable(m_unit.metres(measure(withSpan(bar, span)).length))) {
      spans.push_back(span);
    }
  }
  if (spans.size() != use.spans.size()) {
    leaveOut(*use.element, use.spans.size() - spans.size(), LeftOutReason::kNoLength);
  }
  if (spans.empty()) {
    return;
  }
  if (m_list.options.byLength) {
    return addEachLength(element, bar, use, spans);
  }
  double total = 0.0;
  for (const double span : spans) {
    total += measure(withSpan(bar, span)).length;
  }
  const auto [least, most] = std::ranges::minmax_element(spans);
  const Bar longest = withSpan(bar, *most);
  BarRow& row = rowOf(measure(longest), measure(withSpan(bar, *least)).length);
  addElement(row, element, bar, true);
  addShare(row, use, spans.size(), total);
}

void DrawingCollector::addEachLength(const Element& element, const Bar& bar, const Use& use,
                                     const std::vector<double>& spans) {
  for (const double span : spans) {
    const Bar one = withSpan(bar, span);
    const Measured measured = measure(one);
    BarRow& row = rowOf(measured, measured.length);
    addElement(row, element, bar, true);
    addShare(row, use, 1, measured.length);
  }
}

void DrawingCollector::addMesh(const Element& element) {
  const std::vector<ItemValue>& items = m_reader.read(element);
  const auto number = [&items](std::string_view name) { return findItem(items, name)->number; };
  MeshRow mesh;
  mesh.drawing = m_drawing;
  mesh.reference = findItem(items, "Reference")->text;
  mesh.type = findItem(items, "Type")->text;
  mesh.width = stepped(number("ExtensionX"));
  mesh.height = stepped(number("ExtensionY"));
  if (!isReckonable(m_unit.metres(mesh.width)) || !isReckonable(m_unit.metres(mesh.height))) {
    return leaveOut(element, 1, LeftOutReason::kNoLength);
  }
  leaveOut(element, 1, LeftOutReason::kMesh);
  MeshRow& row = m_meshes.emplace(MeshKey(mesh.reference, mesh.type, mesh.width, mesh.height), mesh)
                     .first->second;
  ++row.number;
  row.elements.push_back(&element);
}

void DrawingCollector::leaveOut(const Element& element, std::uint64_t number, LeftOutReason reason,
                                std::string item) {
  m_list.leftOut.push_back({m_drawing, &element, number, reason, std::move(item)});
}

DrawingCollector::Measured DrawingCollector::measure(const Bar& bar) const {
  const double filed = bar.hasLength() ? lengthOf(bar) : 0.0;
  if (m_isAsFiled || !std::isfinite(filed)) {
    return {bar, std::isfinite(filed) ? stepped(filed) : filed};
  }
  Measured measured{bar, 0.0, bend(bar, m_unit, m_bending)};
  measured.length =
      stepped(m_unit.ofMillimetres(cut(measured.bent, m_list.options.cutting).length));
  return measured;
}

BarRow& DrawingCollector::rowOf(const Measured& longest, double shortest) {
  const Bar& bar = longest.bar;
  std::vector<std::int64_t> form;
  if (m_list.options.cutting.schedule != Schedule::kAxis) {
    form = formOf(longest.bent);
  }
  const double diameter = listedDiameter(m_unit, bar.diameter);
  const auto [known, isNew] =
      m_rows.try_emplace(RowKey(bar.reference, diameter, bar.grade, bar.adherence, bar.shape,
                                shortest, longest.length, std::move(form)));
  if (isNew) {
    known->second = newRow(longest, shortest);
  }
  return known->second;
}

BarRow DrawingCollector::newRow(const Measured& longest, double shortest) const {
  const Bar& bar = longest.bar;
  BarRow row;
  row.drawing = m_drawing;
  row.mark = bar.reference;
  row.grade = bar.grade;
  row.adherence = bar.adherence;
  row.diameter = listedDiameter(m_unit, bar.diameter);
  row.shape = bar.shape;
  row.hasLength = bar.hasLength();
  row.isLowerBound = bar.shape == BarShape::kStirrup;
  row.shortest = shortest;
  row.longest = longest.length;
  if (!m_isAsFiled || m_list.options.hasShapes) {
    row.bent = m_isAsFiled ? bend(bar, m_unit, m_bending) : longest.bent;
    row.cutting = cut(row.bent, m_list.options.cutting);
  }
  return row;
}

void DrawingCollector::addElement(BarRow& row, const Element& element, const Bar& bar,
                                  bool isRepeated) {
  const bool isThere = std::ranges::any_of(row.sources, [&element](const SourceElements& source) {
    return source.className == element.className() && source.elements.back() == &element;
  });
  if (isThere) {
    return;
  }
  row.hidden += bar.isHidden ? 1U : 0U;
  ++row.drawn;
  row.repeated += isRepeated ? 1U : 0U;
  addSource(row, element);
}

void DrawingCollector::addShare(BarRow& row, const Use& use, std::uint64_t number,
                                double totalLength) {
  if (row.series.empty() || row.series.back().element != use.element) {
    row.series.push_back({use.element, 0, use.sameBars});
    addSource(row, *use.element);
    if (use.twins != kNoTwins && use.sameBars == nullptr &&
        m_list.options.twins == TwinSeries::kAll && m_remarked.emplace(&row, use.twins).second) {
      row.twins.push_back(m_twins[use.twins]);
    }
  }
  row.series.back().number += number;
  if (use.sameBars == nullptr) {
    row.number += number;
    row.totalLength += totalLength;
  }
}

std::uint64_t DrawingCollector::numberOf(const Element& element) const {
  const auto uses = m_usesOf.find(&element);
  if (uses == m_usesOf.end()) {
    return 1;
  }
  std::uint64_t number = 0;
  for (const std::size_t place : uses->second) {
    number += m_uses[place].sameBars == nullptr ? m_uses[place].number : 0;
  }
  return number;
}

double DrawingCollector::stepped(double length) const {
  const double steps = std::pow(10.0, m_unit.decimals);
  return std::round(length * steps) / steps;
}

// Rows whose lengths differ by one step of the list are one: the drawing's own rounding parts
// them.
void DrawingCollector::addOrMerge(BarRow row) {
  if (m_settled.empty() || !areAlike(m_settled.back(), row)) {
    m_settled.push_back(std::move(row));
    return;
  }
  BarRow& last = m_settled.back();
  last.number += row.number;
  last.totalLength = static_cast<double>(last.number) * last.longest;
  addElementsOf(row, last, m_reader);
}

bool DrawingCollector::areAlike(const BarRow& a, const BarRow& b) const {
  const double step = std::pow(10.0, -m_unit.decimals);
  return m_list.options.cutting.schedule == Schedule::kAxis && !a.varies() && !b.varies() &&
         a.mark == b.mark && a.grade == b.grade && a.adherence == b.adherence &&
         a.diameter == b.diameter && a.shape == b.shape &&
         std::abs(a.longest - b.longest) < kOneStep * step;
}

// Bars seen end-on go to another row of their mark, diameter and grade, where there is one.
void DrawingCollector::settleEndOn() {
  using Steel = std::tuple<std::int64_t, double, std::string>;
  std::map<Steel, BarRow*> firstOf;
  for (BarRow& row : m_settled) {
    if (row.hasLength) {
      firstOf.emplace(Steel(row.mark, row.diameter, row.grade), &row);
    }
  }
  for (BarRow& row : m_settled) {
    const auto first = firstOf.find(Steel(row.mark, row.diameter, row.grade));
    if (row.hasLength) {
      continue;
    }
    if (first == firstOf.end()) {
      for (const Element* const element : row.sources.front().elements) {
        leaveOut(*element, numberOf(*element), LeftOutReason::kSeenEndOn);
      }
      continue;
    }
    const std::vector<const Element*>& elements = row.sources.front().elements;
    first->second->endOn.insert(first->second->endOn.end(), elements.begin(), elements.end());
    row.sources.clear();
  }
  std::erase_if(m_settled, [](const BarRow& row) { return row.sources.empty(); });
  for (const BarRow& row : m_settled) {
    if (row.isLowerBound) {
      for (const Element* const element : row.sources.front().elements) {
        leaveOut(*element, numberOf(*element), LeftOutReason::kWidthUnknown);
      }
    }
  }
}

}  // namespace quorvan::tool
