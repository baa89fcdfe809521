#include <quorvan/export/series/frame_grouping.h>

#include <algorithm>
#include <functional>
#include <unordered_map>

#include <quorvan/export/series/held_frames.h>

namespace quorvan {

namespace {

struct SeriesKey {
  int reference;
  int viewPoint;
  int keyC;
  double value3;

  // Numbers that are equal make one series: 0 and -0 do, and nothing equals a NaN.
  bool operator==(const SeriesKey&) const = default;
};

struct SeriesHash {
  std::size_t operator()(const SeriesKey& key) const noexcept {
    const double value = key.value3 == 0.0 ? 0.0 : key.value3;  // -0 hashes as 0
    std::size_t hash = std::hash<double>{}(value);
    for (const int part : {key.reference, key.viewPoint, key.keyC}) {
      hash = hash * 1000003U + std::hash<int>{}(part);
    }
    return hash;
  }
};

SeriesKey keyOf(const PendingFrame& frame) {
  return {frame.reference, frame.viewPoint, frame.keyC, frame.value3};
}

// The pending frames' places by series: the series in the order of their first frames, and the
// frames of each in the order of the pushes. One pass with a table instead of a scan for each
// series; the groups and their order are the same.
std::vector<std::vector<std::size_t>> findSeries() {
  std::unordered_map<SeriesKey, std::size_t, SeriesHash> known;
  std::vector<std::vector<std::size_t>> series;
  for (std::size_t i = 0; i < pendingFrames.size(); ++i) {
    // A key with a NaN is never found again: such a frame is a series of its own.
    const auto [found, isNew] = known.try_emplace(keyOf(*pendingFrames[i]), series.size());
    if (isNew) {
      series.emplace_back();
    }
    series[found->second].push_back(i);
  }
  return series;
}

void dropHiddenOfMixed(FrameGroup& group) {
  const auto isHidden = [](const std::unique_ptr<PendingFrame>& frame) { return frame->hidden; };
  if (!std::all_of(group.begin(), group.end(), isHidden)) {
    std::erase_if(group, isHidden);
  }
}

// Makes room for `more` groups without giving up growth in steps.
void reserveGroups(std::size_t more) {
  const std::size_t needed = groupedFrames.size() + more;
  if (needed > groupedFrames.capacity()) {
    groupedFrames.reserve(std::max(needed, 2 * groupedFrames.capacity()));
  }
}

}  // namespace

void groupPendingFrames() {
  const auto series = findSeries();
  std::vector<FrameGroup> groups(series.size());
  for (std::size_t i = 0; i < series.size(); ++i) {
    groups[i].reserve(series[i].size());
  }
  reserveGroups(series.size());
  // All memory is there: from here on nothing can fail, so that no frame is ever lost half-way.
  for (std::size_t i = 0; i < series.size(); ++i) {
    groupInProgress = std::move(groups[i]);
    for (const std::size_t place : series[i]) {
      groupInProgress.push_back(std::move(pendingFrames[place]));
    }
    dropHiddenOfMixed(groupInProgress);
    groupedFrames.push_back(std::move(groupInProgress));
    groupInProgress.clear();
  }
  pendingFrames.clear();
}

}  // namespace quorvan
