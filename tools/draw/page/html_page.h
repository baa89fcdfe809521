// A scene as one page that needs nothing else: to move about in, with layers, a search by
// reference, the items of each element and the bar list.
#pragma once

#include <ostream>

#include <tools/draw/scene/scene.h>
#include <tools/files/transfer_file.h>
#include <tools/schedule/bar_list.h>

namespace quorvan::tool {

/// Writes well-formed XHTML that is HTML as well. It loads nothing from anywhere, and forbids
/// itself to. The list is that of the file, in the drawing's unit; `unitsPerMillimetre` is what a
/// millimetre of the sheet is in it.
void writeHtmlPage(const TransferFile& file, const BarList& list, const Scene& scene,
                   double unitsPerMillimetre, std::ostream& out);

}  // namespace quorvan::tool
