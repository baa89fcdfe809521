#include <tools/model/series_spans.h>

#include <cmath>

namespace quorvan::tool {

namespace {

constexpr double kLeastSlope = 0.0175;  // the sine of a degree
constexpr std::int64_t kSectionView = 1;

struct Direction {
  double x;
  double y;
};

// Of the line that the bars are spread along; straight bars file it as the axis.
Direction lineOf(const Repartition& series) {
  if (series.axis.x != 0.0 || series.axis.y != 0.0) {
    return {series.axis.x, series.axis.y};
  }
  return {series.end.x - series.start.x, series.end.y - series.start.y};
}

// The share of a bar's length that lies across the line.
double shareAcross(const Repartition& series, const Bar& repeated) {
  const Direction line = lineOf(series);
  const double length = std::hypot(line.x, line.y);
  const double bar = distance(repeated.line.front(), repeated.line.back());
  if (!(length > 0.0) || !(bar > 0.0)) {
    return 1.0;
  }
  const double dx = repeated.line.back().x - repeated.line.front().x;
  const double dy = repeated.line.back().y - repeated.line.front().y;
  const double share = std::abs(line.x * dy - line.y * dx) / (length * bar);
  return share < kLeastSlope ? 1.0 : share;
}

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
  const double share = shareAcross(series, repeated);
  spans.reserve(series.top.size());
  for (std::size_t i = 0; i < series.top.size(); ++i) {
    spans.push_back(std::abs(series.top[i] - series.bottom[i]) / share);
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
