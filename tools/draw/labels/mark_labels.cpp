#include <tools/draw/labels/mark_labels.h>

#include <algorithm>

namespace quorvan::tool {

namespace {

constexpr double kAlong[] = {0.5, 0.3, 0.7, 0.15, 0.85};
constexpr double kAtSeries = 2.0;  // mm beside its bars

}  // namespace

MarkLabels::MarkLabels(const TransferFile& file, const BarsByMark& bars, const Sheet& sheet,
                       const DrawOptions& options)
    : m_marks(options.marks),
      m_hasSeries(options.shows(Layer::kRepartitions)),
      m_listed(bars),
      m_unit(sheet.unit()) {
  if (m_marks == Marks::kAuto && options.shows(Layer::kTexts)) {
    m_texts.emplace(file, sheet, bars);
  }
}

MarkLabels::Kind MarkLabels::kindOf(const Bar& bar) const {
  return {bar.reference, m_listed.find(bar)};
}

void MarkLabels::look(const Element& element, const Bar& bar, const Sheet& sheet) {
  if (m_marks == Marks::kNone || bar.line.empty() || m_named.contains(bar.reference)) {
    return;
  }
  const bool canBeNamed = m_texts && m_texts->has(bar.reference);
  // A bar with bends is marked at its longest leg, a ring at its side.
  Labelled one;
  one.element = element.place;
  one.kind = kindOf(bar);
  one.diameter = bar.diameter;
  one.isSmooth = bar.adherence == "Dx";
  one.isHidden = bar.isHidden;
  one.length = bar.hasLength() ? lengthOf(bar) : 0.0;
  for (std::size_t i = 0; i < bar.line.size(); ++i) {
    const PlanePoint from = sheet.place(bar.line[i == 0 ? 0 : i - 1]);
    const PlanePoint to = sheet.place(bar.line[i]);
    if (canBeNamed && m_texts->name(bar.reference, bar.diameter * m_unit, from, to)) {
      m_named.insert(bar.reference);
      return;
    }
    if (isFinite(from) && isFinite(to) && lengthOf(to - from) > one.size) {
      one.from = from;
      one.to = to;
      one.size = lengthOf(to - from);
    }
  }
  if (one.size < 0.0 || std::max(lengthOf(one.from), lengthOf(one.to)) > 1e6) {
    return;
  }
  if (m_marks == Marks::kAuto) {
    const auto [known, isNew] = m_places.emplace(one.kind, m_bars.size());
    if (!isNew) {
      Labelled& best = m_bars[known->second];
      const bool isBetter = best.isHidden != one.isHidden ? best.isHidden : one.size > best.size;
      if (isBetter) {
        best = one;
      }
      return;
    }
  }
  m_bars.push_back(one);
}

bool MarkLabels::lookAtSeries(const Bar& bar, PlanePoint from, PlanePoint to) {
  const bool isNamed = m_texts && m_texts->name(bar.reference, bar.diameter * m_unit, from, to);
  if (isNamed) {
    m_named.insert(bar.reference);
  }
  return isNamed;
}

void MarkLabels::noteLabel(const Bar& bar, std::uint64_t number, const SheetBox& bars) {
  Said& said = m_said[kindOf(bar)];
  said.number += number;
  said.places.push_back(bars);
}

bool MarkLabels::isSaidBySeries(const Labelled& bar) const {
  const auto said = m_said.find(bar.kind);
  if (m_marks != Marks::kAuto || !m_hasSeries || said == m_said.end() ||
      (bar.kind.second != nullptr && said->second.number < bar.kind.second->number)) {
    return false;
  }
  const PlanePoint middle = (bar.from + bar.to) * 0.5;
  return std::ranges::any_of(said->second.places, [middle](const SheetBox& place) {
    return place.grown(kAtSeries).meets({middle, middle});
  });
}

void MarkLabels::draw(ShapeSink& sink) {
  for (const Labelled& bar : m_bars) {
    if (!m_named.contains(bar.kind.first) && !isSaidBySeries(bar)) {
      drawOne(bar, sink);
    }
  }
}

// The mark in a bubble, what the bar list says of it, and a leader to the bar.
void MarkLabels::drawOne(const Labelled& bar, ShapeSink& sink) {
  const double unit = sink.sheet().unit();
  BarWords words;
  words.mark = bar.kind.first;
  words.diameter = bar.diameter * unit;
  words.isSmooth = bar.isSmooth;
  words.shortestMetres = words.longestMetres = bar.length * unit / 1000.0;
  if (const MarkedBars* const all = bar.kind.second) {
    words.number = all->number;
    words.diameter = all->diameter;
    words.isSmooth = all->adherence == "Dx";
    words.shortestMetres = all->shortestMetres;
    words.longestMetres = all->longestMetres;
    words.isLengthLeast = all->isLowerBound;
  }
  Callout callout;
  callout.color = ink::kMarks;
  callout.mark = std::to_string(bar.kind.first);
  callout.text = barText(words, sink.context().language);
  callout.element = bar.element;
  callout.isHidden = bar.isHidden;
  for (const double along : kAlong) {
    callout.anchors.push_back(bar.from + (bar.to - bar.from) * along);
  }
  sink.addCallout(std::move(callout));
}

}  // namespace quorvan::tool
