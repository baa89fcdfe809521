#include <tools/draw/labels/mark_labels.h>

#include <algorithm>

#include <tools/text/number_text.h>

namespace quorvan::tool {

namespace {

constexpr double kBubble = 2.2;         // mm, radius
constexpr double kMarkLettering = 2.0;  // mm, height of capitals
constexpr double kCharacter = 1.6;      // mm, width
constexpr double kMarkGap = 0.6;        // mm
constexpr double kAlong[] = {0.5, 0.3, 0.7, 0.15, 0.85};
constexpr double kAway[] = {5.0, -5.0, 9.0, -9.0, 14.0, -14.0};

}  // namespace

MarkLabels::MarkLabels(const TransferFile& file, const Sheet& sheet, Marks marks) : m_marks(marks) {
  if (marks == Marks::kAuto) {
    m_texts.emplace(file, sheet);
  }
}

void MarkLabels::look(const Element& element, const Bar& bar, const Sheet& sheet) {
  if (m_marks == Marks::kNone || bar.line.empty() || m_named.contains(bar.reference)) {
    return;
  }
  const bool canBeNamed = m_texts && m_texts->has(bar.reference);
  // A bar with bends is marked at its longest leg, a ring at its side.
  Labelled one{element.place, bar.reference, bar.diameter, bar.isHidden, -1.0, {}, {}};
  for (std::size_t i = 0; i < bar.line.size(); ++i) {
    const PlanePoint from = sheet.place(bar.line[i == 0 ? 0 : i - 1]);
    const PlanePoint to = sheet.place(bar.line[i]);
    if (canBeNamed && m_texts->name(bar.reference, bar.diameter, from, to)) {
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
    const auto [known, isNew] = m_places.emplace(bar.reference, m_bars.size());
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
  const bool isNamed = m_texts && m_texts->name(bar.reference, bar.diameter, from, to);
  if (isNamed) {
    m_named.insert(bar.reference);
  }
  return isNamed;
}

void MarkLabels::draw(ShapeSink& sink) {
  for (const Labelled& bar : m_bars) {
    if (!m_named.contains(bar.mark)) {
      drawOne(bar, sink);
    }
  }
}

// A bubble with the mark, the diameter beside it, and a leader to the bar.
void MarkLabels::drawOne(const Labelled& bar, ShapeSink& sink) {
  const std::string mark = std::to_string(bar.mark);
  const std::string size = "\u00D8" + rounded(bar.diameter, 2);
  const double bubble =
      std::max(kBubble, kMarkGap + kCharacter * static_cast<double>(mark.size()) / 2.0);
  const double width = 2.0 * bubble + kMarkGap + kCharacter * static_cast<double>(size.size() - 1);
  const PlanePoint across = leftOf(directionOf(bar.to - bar.from));
  PlanePoint anchor = (bar.from + bar.to) * 0.5;
  PlanePoint center = anchor + across * kAway[0];
  const auto findRoom = [&] {
    for (const double away : kAway) {
      for (const double along : kAlong) {
        anchor = bar.from + (bar.to - bar.from) * along;
        center = anchor + across * away;
        const SheetBox box{center - PlanePoint{bubble, bubble},
                           center + PlanePoint{width - bubble, bubble}};
        if (sink.taken().isFree({box})) {
          return sink.taken().take({box});
        }
      }
    }
  };
  findRoom();
  sink.begin(bar.element, bar.isHidden);
  const Style style{ink::kMarks, pen::kThin};
  Style bubbleStyle = style;
  bubbleStyle.isOnPaper = true;
  Path leader;
  leader.moveTo(anchor);
  leader.lineTo(center - directionOf(center - anchor) * bubble);
  sink.addPath(Layer::kMarks, style, std::move(leader));
  sink.addCircle(Layer::kMarks, bubbleStyle, center, bubble);
  sink.addText(Layer::kMarks, ink::kMarks,
               {mark, center, kMarkLettering, 0.0, AlignX::kCentre, AlignY::kMiddle});
  const PlanePoint beside = center + PlanePoint{bubble + kMarkGap, 0.0};
  Style sizeStyle{ink::kMarks, 0.0, true};
  sizeStyle.isOnPaper = true;
  sink.addText(Layer::kMarks, sizeStyle,
               {size, beside, kMarkLettering, 0.0, AlignX::kLeft, AlignY::kMiddle});
}

}  // namespace quorvan::tool
