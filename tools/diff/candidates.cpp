#include <tools/diff/candidates.h>
#include <tools/text/keyed_hash.h>

#include <algorithm>
#include <bit>
#include <cmath>

namespace quorvan::tool {

namespace {

constexpr double kCellsPerTolerance = 16.0;
constexpr double kLeastCell = 1e-6;

std::uint64_t mixed(std::uint64_t key, std::uint64_t value) {
  key ^= value + 0x9E3779B97F4A7C15ULL + (key << 6U) + (key >> 2U);
  return key * 0xFF51AFD7ED558CCDULL;
}

std::uint64_t hashOf(double value) {
  return KeyedHash()(std::bit_cast<std::int64_t>(value));
}

}  // namespace

Candidates::Candidates(double tolerance)
    : m_tolerance(tolerance), m_cell(std::max(kLeastCell, kCellsPerTolerance * tolerance)) {}

void Candidates::add(const std::string& text, const Coordinates& point, std::uint32_t place) {
  m_places[keyOf(KeyedHash()(std::string_view(text)), point.x, point.y, point.z)].places.push_back(
      place);
}

std::uint64_t Candidates::keyOf(std::uint64_t text, double x, double y, double z) const {
  std::uint64_t key = text;
  // Under a tolerance without bound all places are one.
  if (!std::isfinite(m_cell)) {
    return key;
  }
  for (const double value : {x, y, z}) {
    key = mixed(key, hashOf(std::floor(value / m_cell) + 0.0));
  }
  return key;
}

std::vector<std::uint64_t> Candidates::keysNear(const std::string& text,
                                                const Coordinates& point) const {
  const std::uint64_t textKey = KeyedHash()(std::string_view(text));
  // The point's own cell comes first, so that of equal elements each finds itself.
  std::vector<std::uint64_t> keys{keyOf(textKey, point.x, point.y, point.z)};
  for (const double dx : {-m_tolerance, m_tolerance}) {
    for (const double dy : {-m_tolerance, m_tolerance}) {
      for (const double dz : {-m_tolerance, m_tolerance}) {
        const std::uint64_t key = keyOf(textKey, point.x + dx, point.y + dy, point.z + dz);
        if (std::ranges::find(keys, key) == keys.end()) {
          keys.push_back(key);
        }
      }
    }
  }
  return keys;
}

}  // namespace quorvan::tool
