#include <tools/model/series_spans.h>

#include <algorithm>
#include <cmath>

#include <tools/model/base_line.h>

namespace quorvan::tool {

namespace {

constexpr std::int64_t kSectionView = 1;

}  // namespace

bool measuresEnds(const Repartition& series) {
  return barShapeOf(series.className) == BarShape::kStraight && series.viewPoint != kSectionView &&
         series.hasLine() && series.bottom.size() == series.top.size();
}

std::vector<double> seriesSpans(const Repartition& series, const Bar& repeated) {
  std::vector<double> spans;
  if (!measuresEnds(series) || repeated.line.size() != 2) {
    return spans;
  }
  const Coordinates& from = repeated.line.front();
  const Coordinates& to = repeated.line.back();
  const auto slope = BaseLine(series).slopeOf({to.x - from.x, to.y - from.y, to.z - from.z});
  spans.reserve(series.top.size());
  for (std::size_t i = 0; i < series.top.size(); ++i) {
    spans.push_back(std::abs(series.top[i] - series.bottom[i]) * (slope ? slope->length : 1.0));
  }
  return spans;
}

std::vector<double> differingSpans(const Repartition& series, const Bar& repeated, double least) {
  std::vector<double> spans = seriesSpans(series, repeated);
  const auto [shortest, longest] = std::ranges::minmax_element(spans);
  if (!spans.empty() && *longest - *shortest < least) {
    spans.clear();
  }
  return spans;
}

Bar withSpan(const Bar& bar, double span) {
  Bar result = bar;
  const Coordinates& first = bar.line.front();
  Coordinates& last = result.line.back();
  const double length = distance(first, last);
  if (length > 0.0) {
    const double factor = span / length;
    last = {first.x + (last.x - first.x) * factor, first.y + (last.y - first.y) * factor,
            first.z + (last.z - first.z) * factor};
  } else {
    last = {first.x + span, first.y, first.z};
  }
  return result;
}

}  // namespace quorvan::tool
