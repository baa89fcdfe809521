// The words of a bar list, a table a language.
#pragma once

#include <array>
#include <initializer_list>
#include <string>
#include <string_view>

#include <tools/model/bar.h>
#include <tools/schedule/left_out.h>

namespace quorvan::tool {

/// Texts with {0}, {1} have places to be filled.
struct ListWording {
  std::string_view language;  // of ISO 639
  std::string_view name;      // of the language, in it
  char decimalMark;

  std::array<std::string_view, 9> shapes;   // by BarShape
  std::array<std::string_view, 8> reasons;  // by LeftOutReason; {0} is the item

  struct Titles {
    std::string_view list;       // {0}: the files
    std::string_view ofDrawing;  // {0}: its name
    std::string_view bars;
    std::string_view sums;
    std::string_view drawings;
    std::string_view meshes;
    std::string_view leftOut;
    std::string_view explanations;
    std::string_view sketches;
    std::string_view conventions;
  } titles;

  struct Columns {
    std::string_view drawing;
    std::string_view file;
    std::string_view mark;
    std::string_view code;
    std::string_view shape;
    std::string_view grade;
    std::string_view adherence;
    std::string_view diameter;
    std::string_view roller;
    std::string_view number;
    std::string_view length;
    std::string_view longest;
    std::string_view total;
    std::string_view totalLength;
    std::string_view mass;
    std::string_view dimensions;
    std::string_view elements;
    std::string_view remarks;
    std::string_view explanation;
    std::string_view reference;
    std::string_view type;
    std::string_view pieces;
    std::string_view width;
    std::string_view height;
    std::string_view area;
    std::string_view totalArea;
    std::string_view className;
    std::string_view index;
    std::string_view reason;
  } columns;

  struct Conventions {
    std::string_view axis;
    std::string_view iso;
    std::string_view british;
    std::string_view sketchCode;
    std::string_view noDeduction;  // of the sum of the outside dimensions
    std::string_view deduction;    // {0}: a bend
    std::string_view rollers;      // where they are the usual ones
    std::string_view givenRoller;  // {0}
    std::string_view hooksFromCorner;
    std::string_view hooksStraight;
    std::string_view ringAxis;
    std::string_view ringInner;
    std::string_view roundedNearest;  // {0} lengths, {1} dimensions
    std::string_view roundedUp;
    std::string_view degrees;
    std::string_view radians;
    std::string_view number;
    std::string_view twinsOnce;
    std::string_view units;  // {0} of lengths, {1} density
  } conventions;

  struct Remarks {
    std::string_view twins;     // {0}: series
    std::string_view sameBars;  // {0}: the series, {1}: the one that counts
    std::string_view lowerBound;
    std::string_view tooShort;
    std::string_view endOn;   // {0}: elements
    std::string_view hidden;  // {0}: how many
  } remarks;

  struct Explanations {
    std::string_view drawn;     // {0}: how many
    std::string_view repeated;  // {0}: how many, {1}: by which series
    std::string_view share;     // {0}: series, {1}: bars
    std::string_view result;    // {0}: how, {1}: the number
  } explanations;

  std::string_view range;  // {0}, {1}
  std::string_view noBars;
  std::string_view totalMass;  // {0}
  std::string_view page;       // {0}, {1}
};

extern const ListWording kEnglishList;
extern const ListWording kFrenchList;

/// All of them. A language is added here and by its table.
inline constexpr const ListWording* kListWordings[] = {&kEnglishList, &kFrenchList};

/// The text with {0}, {1} replaced.
std::string filled(std::string_view text, std::initializer_list<std::string_view> values);

inline std::string_view shapeName(const ListWording& words, BarShape shape) noexcept {
  return words.shapes[static_cast<std::size_t>(shape)];
}

/// Why it is left out.
std::string reasonText(const ListWording& words, const LeftOut& one);

}  // namespace quorvan::tool
