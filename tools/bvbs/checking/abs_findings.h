// What a check of bending data can find, each kind under a number of its own that never changes.
#pragma once

#include <tools/check/finding.h>

namespace quorvan::tool::bvbs {

namespace findings {

inline constexpr FindingKind kNoRecord{
    901, Severity::kError, "no record of bending data",
    "begin each line with BF2D@, BF3D@, BFWE@, BFMA@, BFGT@ or BFAU@"};
inline constexpr FindingKind kNoBlock{
    902, Severity::kError, "no block where one begins",
    "begin each block with a capital letter, and have no @ in texts"};
inline constexpr FindingKind kFieldLetter{
    903, Severity::kError, "field without a letter",
    "begin each field with a small letter, and have no @ in texts"};
inline constexpr FindingKind kNotClosed{904, Severity::kError, "record that is not closed",
                                        "close the last field with @"};
inline constexpr FindingKind kBlockOrder{
    905, Severity::kError, "block out of order",
    "write header, geometry or spacer, coupler, bars, private block and checksum in this order, "
    "each but the bars once"};
inline constexpr FindingKind kUnknownBlock{906, Severity::kError, "unknown block",
                                           "blocks are H, G, A, M, X, Y, E, P and C"};
inline constexpr FindingKind kMissingBlock{907, Severity::kError, "missing block",
                                           "every record has a header H and a checksum C"};
inline constexpr FindingKind kFieldOrder{908, Severity::kError, "header field out of order",
                                         "write each field of the header once, in its order"};
inline constexpr FindingKind kStrangeField{
    909, Severity::kWarning, "field that the header of this kind does not have", "leave it out"};
inline constexpr FindingKind kMissingField{
    910, Severity::kNote, "missing header field",
    "none where the reader takes it; strictly, an empty field keeps its letter"};
inline constexpr FindingKind kNoNumber{911, Severity::kError, "not a number",
                                       "write digits and, where it has decimals, a point"};
inline constexpr FindingKind kDecimalComma{
    912, Severity::kNote, "decimal comma",
    "none where the reader takes it; strictly, decimals have a point"};
inline constexpr FindingKind kNotWhole{913, Severity::kNote, "length with decimals",
                                       "none needed: lengths are meant to be whole millimetres"};
inline constexpr FindingKind kOutOfRange{914, Severity::kError, "value out of its range",
                                         "give a value above 0; coordinates are not below 0"};
inline constexpr FindingKind kChecksum{
    915, Severity::kError, "checksum that does not fit",
    "look for what was changed, or write the record again: readers refuse it"};
inline constexpr FindingKind kShape{
    916, Severity::kError, "shape that cannot be read",
    "give each leg its l, or each arc its r and opening, then the bend behind it as w, and w0 at "
    "the end; each offset its x, y and z"};
inline constexpr FindingKind kRadius{
    917, Severity::kWarning, "radius that the roller cannot bend",
    "give a radius of half the roller at least, or a smaller roller"};
inline constexpr FindingKind kNoRoom{918, Severity::kWarning, "leg that is too short for its bends",
                                     "make the leg longer, or the roller smaller"};
inline constexpr FindingKind kLength{
    919, Severity::kWarning, "length that does not fit the shape",
    "write the sum of the legs, or the length along the centre line"};
inline constexpr FindingKind kMass{920, Severity::kWarning,
                                   "mass that does not fit length and diameter",
                                   "write the mass of one piece in kg"};
inline constexpr FindingKind kLongRecord{
    921, Severity::kNote, "record of more than 1,000 characters",
    "none where the machine takes it; shorten texts otherwise"};
inline constexpr FindingKind kNotAscii{922, Severity::kNote, "character outside ASCII",
                                       "none where the reader takes it; strictly, texts are ASCII"};
inline constexpr FindingKind kLineEnd{923, Severity::kNote, "line end other than CRLF",
                                      "none where the reader takes it"};
inline constexpr FindingKind kEmptyFile{924, Severity::kError, "no record in the file",
                                        "write the bending data again"};

/// All kinds, by number.
inline constexpr const FindingKind* kAll[] = {
    &kNoRecord,     &kNoBlock,    &kFieldLetter,  &kNotClosed,    &kBlockOrder, &kUnknownBlock,
    &kMissingBlock, &kFieldOrder, &kStrangeField, &kMissingField, &kNoNumber,   &kDecimalComma,
    &kNotWhole,     &kOutOfRange, &kChecksum,     &kShape,        &kRadius,     &kNoRoom,
    &kLength,       &kMass,       &kLongRecord,   &kNotAscii,     &kLineEnd,    &kEmptyFile};

}  // namespace findings

}  // namespace quorvan::tool::bvbs
