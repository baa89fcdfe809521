// A bar list on sheets of paper.
#pragma once

#include <vector>

#include <tools/draw/scene/scene.h>
#include <tools/schedule/bar_list.h>
#include <tools/schedule/list_writers.h>

namespace quorvan::tool {

/// A4 across, as many as it takes: conventions, the bars with a dimensioned sketch each, then the
/// sums and the other tables. Texts that are wider than their column go on in the next line.
std::vector<Scene> listSheets(const BarList& list, const ListWriting& writing);

}  // namespace quorvan::tool
