// One of two drawings that lie over each other, and what becomes of each of its elements.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include <tools/diff/difference.h>
#include <tools/draw/drawing_survey.h>
#include <tools/draw/review/review_states.h>
#include <tools/draw/scene/draw_options.h>
#include <tools/draw/scene/scene.h>
#include <tools/draw/scene/sheet.h>
#include <tools/files/transfer_file.h>

namespace quorvan::tool {

/// Refers to the file and the options, which outlive it.
class ReviewSide {
 public:
  ReviewSide(const TransferFile& file, const DrawOptions& options);

  [[nodiscard]] const SheetContents& contents() const { return m_survey.contents; }

  /// What became of an element, by which difference; nothing for no element.
  void note(const Element* element, ReviewState state, std::size_t difference, DifferenceKind kind);

  /// The shapes, with the number of the difference in the place of that of the element: those of
  /// what is the same, left out where there is no place for them, and all others.
  void draw(const Sheet& sheet, std::vector<Shape>* same, std::vector<Shape>& different);

 private:
  const TransferFile& m_file;
  const DrawOptions& m_options;
  AngleUnit m_angles;
  RepeatedBars m_repeated;
  DrawingSurvey m_survey;
  std::vector<ReviewState> m_states;
  std::vector<bool> m_isReplaced;  // by the same element with other contents
  std::vector<std::uint32_t> m_differences;
};

}  // namespace quorvan::tool
