// The kinds of records in a file of bending data (BVBS, ending ".abs").
#pragma once

#include <cstdint>
#include <string_view>

namespace quorvan::tool::bvbs {

/// How the geometry block of a kind says a shape.
enum class GeometryForm : std::uint8_t {
  kNone,    // the header says it all
  kLegs,    // plane: legs or arcs, each with the bend behind it
  kPoints,  // in space: from corner to corner
  kTurns,   // a helix: the plane shape of a turn, then turns and pitches
  kMesh,    // bent bars of one direction
};

struct RecordKind {
  std::string_view name;      // "BF2D"
  std::string_view header;    // letters of its header fields, in their order
  std::string_view optional;  // letters that may follow them
  GeometryForm geometry;
};

inline constexpr RecordKind kRecordKinds[] = {
    {"BF2D", "jriplnedgsv", "atc", GeometryForm::kLegs},
    {"BF3D", "jriplnedgsv", "", GeometryForm::kPoints},
    {"BFWE", "jriplnedgsv", "", GeometryForm::kTurns},
    {"BFMA", "jriplnegsmbv", "", GeometryForm::kMesh},
    {"BFGT", "jriplnegmhv", "a", GeometryForm::kNone},
    {"BFAU", "jriplnemh", "", GeometryForm::kNone},
};

/// Null for a name that is not one of them.
constexpr const RecordKind* recordKindNamed(std::string_view name) noexcept {
  for (const RecordKind& kind : kRecordKinds) {
    if (kind.name == name) {
      return &kind;
    }
  }
  return nullptr;
}

/// The letters of the blocks of a record, in their order: header, geometry or spacer, coupler, bars
/// across, along and askew in any order, private, checksum. G and A stand in each other's place.
inline constexpr std::string_view kBlockLetters = "HGAMXYEPC";

/// A record is meant to have no more characters.
inline constexpr std::size_t kLongestRecord = 1000;

/// The number behind the C that closes a record: 65 to 96. `text` goes from the first character up
/// to and including that C.
constexpr int checksumOf(std::string_view text) noexcept {
  constexpr unsigned kModulus = 32;
  constexpr int kHighest = 96;
  unsigned sum = 0;
  for (const char one : text) {
    sum += static_cast<unsigned char>(one);
  }
  return kHighest - static_cast<int>(sum % kModulus);
}

}  // namespace quorvan::tool::bvbs
