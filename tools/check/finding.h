// What a check can find, each kind under a number of its own that never changes.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <tools/files/transfer_file.h>
#include <tools/model/item_mending.h>

namespace quorvan::tool {

/// Notes are in order but worth knowing; with warnings something is read that was hardly meant;
/// with errors something is not read.
enum class Severity : std::uint8_t { kNote, kWarning, kError };

struct FindingKind {
  int number;
  Severity severity;
  std::string_view title;
  std::string_view remedy;
};

namespace findings {

inline constexpr FindingKind kNotWellFormed{
    101, Severity::kError, "not well-formed",
    "correct the file by hand at this place, or transfer the drawing again: programs that open it "
    "take it for empty"};
inline constexpr FindingKind kNodeBeforeRoot{
    102, Severity::kError, "something stands before the root element",
    "remove what stands between the declaration and the root element: readers find no element"};
inline constexpr FindingKind kRootName{103, Severity::kNote, "root element with another name",
                                       "none needed: readers do not look at the name"};
inline constexpr FindingKind kUnknownClass{
    104, Severity::kWarning, "no element class of this format",
    "none: readers pass over the element; it may come from a newer program"};
inline constexpr FindingKind kVersion{105, Severity::kNote, "element version other than 1",
                                      "none needed: readers do not look at it"};
inline constexpr FindingKind kStrayNode{
    106, Severity::kWarning, "neither an element nor a comment",
    "remove it: readers pass over it, or take it for something else"};
inline constexpr FindingKind kUnreadable{
    107, Severity::kError, "file that cannot be read",
    "give the name of a file that is there and that you have the right to read"};
inline constexpr FindingKind kMissingItem{
    201, Severity::kError, "missing item",
    "transfer the drawing again: the value is not in the file, and readers report the element as "
    "incomplete"};
inline constexpr FindingKind kMistypedItem{
    202, Severity::kError, "item of the wrong type",
    "give the attribute the name of the expected type: readers do not find the value"};
inline constexpr FindingKind kNoNumber{
    203, Severity::kError, "not a number",
    "write the number with a point and nothing else: readers take what stands before the first "
    "other character"};
inline constexpr FindingKind kNoFlag{204, Severity::kWarning, "neither True nor False",
                                     "write True or False: readers take it for False"};
inline constexpr FindingKind kUnknownItem{
    205, Severity::kWarning, "not an item of the class",
    "none: readers pass over it; it may be misspelt or come from a newer program"};
inline constexpr FindingKind kRepeatedItem{206, Severity::kWarning, "item that comes twice",
                                           "remove it: readers take the first alone"};
inline constexpr FindingKind kBlanks{207, Severity::kNote, "blanks around a value",
                                     "none needed: readers pass over them"};
inline constexpr FindingKind kCountDisagrees{
    301, Severity::kError, "count that disagrees with the entries",
    "set the count to the number of entries, and number these from 1 without a gap"};
inline constexpr FindingKind kCountOutOfRange{
    302, Severity::kError, "more entries than a count can say",
    "split the element: counts of lists have 16 bits, and readers find no entry"};
inline constexpr FindingKind kOddCount{
    303, Severity::kWarning, "formwork with a point left over",
    "remove the last point or add the other end of its segment: readers leave it out"};
inline constexpr FindingKind kIndexMissing{401, Severity::kError, "no index",
                                           "number the elements of the class from 1"};
inline constexpr FindingKind kIndexRepeated{
    402, Severity::kError, "index that another element has",
    "number the elements of the class from 1: a repartition cannot say which one it means"};
inline constexpr FindingKind kIndexGap{
    403, Severity::kNote, "indexes do not run from 1 without a gap",
    "none needed: the writer leaves such gaps behind the first hidden bar of a class"};
inline constexpr FindingKind kEqualHiddenBars{
    501, Severity::kWarning, "hidden bar that the file holds already",
    "remove it: an equal hidden bar is meant to be filed once"};
inline constexpr FindingKind kReferenceDiffers{
    502, Severity::kWarning, "different bars under one reference",
    "give the bar a reference of its own, or make the bars alike, in the producing program"};
inline constexpr FindingKind kRepartitionDangles{
    503, Severity::kError, "repartition of a bar that is not there",
    "file the repeated bar before its repartition, and point the repartition to it"};
inline constexpr FindingKind kRepartitionLists{
    504, Severity::kWarning, "lists of a repartition that do not fit together",
    "give as many top as bottom distances, and a position for each bar or each gap"};
inline constexpr FindingKind kDiameter{
    505, Severity::kWarning, "diameter that is no standard size",
    "correct the diameter in the producing program, or name your sizes with --diameters"};
inline constexpr FindingKind kNumericAdherence{
    506, Severity::kNote, "adherence as the number of older files",
    "none needed: readers take 0 for Ha and 1 for Dx, and anything else for no text"};
inline constexpr FindingKind kSeriesSeenTwice{
    507, Severity::kWarning, "repartitions of one mark that look like the same bars in two views",
    "none where both are meant; otherwise file the bars from one view alone, or count them with "
    "`quorvan bars --views once`"};
inline constexpr FindingKind kEqualBars{508, Severity::kWarning, "bar that lies on an equal one",
                                        "remove one of them in the producing program; none where "
                                        "two layers are meant, which are better "
                                        "drawn beside each other"};
inline constexpr FindingKind kDegenerateSeries{
    509, Severity::kWarning, "repartition that came out degenerate",
    "transfer the drawing again with coordinates that are equal where they should be: those of "
    "bars that differ by a hair put the line or the steps of their series anywhere"};
inline constexpr FindingKind kControlMissing{
    601, Severity::kError, "no drawing control record",
    "transfer the drawing again; --repair adds an empty record"};
inline constexpr FindingKind kControlNotLast{
    602, Severity::kNote, "drawing control record that does not close the file",
    "none needed: more was filed behind it; the last record counts"};
inline constexpr FindingKind kForbiddenCharacter{
    701, Severity::kError, "character that XML forbids",
    "remove the character: programs that open the file take it for empty"};
inline constexpr FindingKind kLostCharacter{
    702, Severity::kWarning, "character that was lost",
    "put the right character in the place of U+FFFD in the producing program"};
inline constexpr FindingKind kControlCharacter{
    703, Severity::kWarning, "control character in a text",
    "correct the text in the producing program: it was probably written as windows-1252"};

/// All kinds, by number.
inline constexpr const FindingKind* kAll[] = {&kNotWellFormed,
                                              &kNodeBeforeRoot,
                                              &kRootName,
                                              &kUnknownClass,
                                              &kVersion,
                                              &kStrayNode,
                                              &kUnreadable,
                                              &kMissingItem,
                                              &kMistypedItem,
                                              &kNoNumber,
                                              &kNoFlag,
                                              &kUnknownItem,
                                              &kRepeatedItem,
                                              &kBlanks,
                                              &kCountDisagrees,
                                              &kCountOutOfRange,
                                              &kOddCount,
                                              &kIndexMissing,
                                              &kIndexRepeated,
                                              &kIndexGap,
                                              &kEqualHiddenBars,
                                              &kReferenceDiffers,
                                              &kRepartitionDangles,
                                              &kRepartitionLists,
                                              &kDiameter,
                                              &kNumericAdherence,
                                              &kSeriesSeenTwice,
                                              &kEqualBars,
                                              &kDegenerateSeries,
                                              &kControlMissing,
                                              &kControlNotLast,
                                              &kForbiddenCharacter,
                                              &kLostCharacter,
                                              &kControlCharacter};

}  // namespace findings

/// What `--repair` does about a finding.
struct Mend {
  enum class Kind : std::uint8_t {
    kNone,
    kReplaceCharacter,  // by U+FFFD
    kRemove,            // what stands at the place of the mend: an element or another node
    kRenameRoot,
    kSetAttribute,  // of the element at the place
    kNumber,        // the elements of the class
    kLeaveOut,      // the element, which is equal to another
    kAddControl,
  };

  Kind kind = Kind::kNone;
  Position place;
  AttributeMend attribute;
  const Element* element = nullptr;  // of kNumber and kLeaveOut, as long as its file lives
  const Element* equal = nullptr;    // of kLeaveOut: the one that stays
};

inline Mend mendBy(Mend::Kind kind) {
  Mend mend;
  mend.kind = kind;
  return mend;
}

/// What a rule of detailing says of a value that it finds too small or too large.
struct Breach {
  std::string clause;
  double value = 0.0;
  double limit = 0.0;
  std::string remedy;  // what would satisfy the rule, in place of that of the kind
};

/// One finding and its place. Parts that do not apply are empty.
struct Finding {
  const FindingKind* kind;
  Position position;
  std::string className;
  std::string index;
  std::string item;
  std::string found;
  std::string expected;
  Mend mend = {};
  std::optional<Breach> breach = {};  // of a rule of detailing

  [[nodiscard]] std::string_view remedy() const noexcept {
    return breach ? std::string_view(breach->remedy) : kind->remedy;
  }
  /// Whether a mended copy has it no more.
  [[nodiscard]] bool isRepairable() const noexcept { return mend.kind != Mend::Kind::kNone; }
};

/// A rule that was asked for and could not be held, or not against all that it is for.
struct NotChecked {
  const FindingKind* kind;
  std::string reason;
};

/// What was found in one file.
struct FileFindings {
  std::string file;
  std::vector<Finding> findings = {};
  std::optional<std::vector<NotChecked>> notChecked = {};  // where rules were asked for

  [[nodiscard]] std::int64_t count(Severity severity) const noexcept;
};

/// By their places; those at one place stay in their order.
void sortByPlace(std::vector<Finding>& findings);

/// "note", "warning", "error".
std::string_view severityName(Severity severity) noexcept;

}  // namespace quorvan::tool
