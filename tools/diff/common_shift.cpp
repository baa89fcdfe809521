#include <tools/diff/common_shift.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <tuple>
#include <unordered_map>

#include <tools/model/bar.h>
#include <tools/text/keyed_hash.h>

namespace quorvan::tool {

namespace {

constexpr double kStep = 0.001;
constexpr double kFarthest = 1e12;
constexpr std::size_t kFewest = 2;

// A vector, to a thousandth.
using Rounded = std::tuple<double, double, double>;

Rounded roundedOf(const Coordinates& vector) {
  const auto part = [](double value) {
    return std::abs(value) < kFarthest ? std::round(value / kStep) + 0.0 : 0.0;
  };
  return {part(vector.x), part(vector.y), part(vector.z)};
}

Coordinates wayBetween(const Coordinates& from, const Coordinates& to) {
  return {to.x - from.x, to.y - from.y, to.z - from.z};
}

// An element that stands for its content.
struct Known {
  Coordinates anchor;
  std::size_t count = 0;
};

using Contents = std::unordered_map<std::uint64_t, Known>;

// The contents by a hash of what stays when an element is moved.
Contents contentsOf(const TransferFile& file, ContentReader& reader) {
  Contents contents;
  for (const Element& element : file.elements()) {
    const Content& content = reader.read(element);
    if (content.points.empty()) {
      continue;
    }
    const auto [x, y, z] = roundedOf(wayBetween(content.points.front(), content.points.back()));
    const std::string key = content.discrete + '\n' + std::to_string(x) + ' ' + std::to_string(y) +
                            ' ' + std::to_string(z);
    Known& known = contents[KeyedHash()(key)];
    known.anchor = content.points.front();
    ++known.count;
  }
  return contents;
}

}  // namespace

bool isBeyond(const Coordinates& vector, double tolerance) {
  return std::max({std::abs(vector.x), std::abs(vector.y), std::abs(vector.z)}) > tolerance;
}

std::optional<Coordinates> commonShift(const TransferFile& before, ContentReader& readBefore,
                                       const TransferFile& after, ContentReader& readAfter,
                                       double tolerance) {
  const Contents old = contentsOf(before, readBefore);
  const Contents now = contentsOf(after, readAfter);
  std::map<Rounded, Known> votes;
  std::size_t all = 0;
  for (const auto& [key, known] : old) {
    const auto other = now.find(key);
    if (known.count == 1 && other != now.end() && other->second.count == 1) {
      const Coordinates way = wayBetween(known.anchor, other->second.anchor);
      Known& vote = votes[roundedOf(way)];
      vote.anchor = way;
      ++vote.count;
      ++all;
    }
  }
  for (const auto& [way, vote] : votes) {
    if (vote.count >= kFewest && 2 * vote.count > all && isBeyond(vote.anchor, tolerance)) {
      return vote.anchor;
    }
  }
  return std::nullopt;
}

}  // namespace quorvan::tool
