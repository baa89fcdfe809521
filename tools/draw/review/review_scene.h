// Two drawings over each other, with what they differ by.
#pragma once

#include <string>
#include <vector>

#include <tools/diff/difference.h>
#include <tools/draw/page/review_page.h>
#include <tools/draw/scene/draw_options.h>
#include <tools/draw/scene/scene.h>
#include <tools/files/transfer_file.h>

namespace quorvan::tool {

struct Review {
  Scene scene;                     // shapes in a cloud have its place among the notes as element
  std::vector<std::string> lines;  // of the whole: the bar list, what lies nowhere
  std::vector<PageNote> notes;     // headed by their numbers and "+", "−" or "~" for added,
                                   // deleted and other changes
};

/// The new drawing on the sheet that it would have, at the same scale and place as the old one:
/// what is the same in both pale, what went or was before dashed, what is new wide, each in a
/// colour of its own, and a numbered cloud round what lies together. A drawing that was moved as a
/// whole lies over the old one as if it had not been. Of the options, those of the sheet, plane,
/// unit, window, angles and layers count.
Review reviewOf(const TransferFile& before, const TransferFile& after,
                const std::vector<Difference>& differences, const DrawOptions& options);

/// The scene with the lines of the review beside the drawing.
Scene withList(const Review& review);

}  // namespace quorvan::tool
