// What two drawings differ by as a page that needs nothing else: the drawings over each other, and
// a list beside them whose notes lead to the clouds and back.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include <tools/draw/scene/scene.h>

namespace quorvan::tool {

/// A cloud's heading and lines; those of an item begin with blanks.
struct PageNote {
  std::string heading;
  std::vector<std::string> lines;
};

/// Writes well-formed XHTML that is HTML as well. The shapes of a note have its place as element.
void writeReviewPage(const Scene& scene, const std::vector<std::string>& lines,
                     const std::vector<PageNote>& notes, std::ostream& out);

}  // namespace quorvan::tool
