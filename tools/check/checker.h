// Holds a transfer file against the format and against what a drawing makes sense with.
#pragma once

#include <string>
#include <vector>

#include <tools/check/finding.h>
#include <tools/files/transfer_file.h>

namespace quorvan::tool {

/// The sizes in which bars are made, in the unit of the drawing.
struct StandardSizes {
  std::vector<double> diameters;
};

/// Those of EN 10080, in mm.
StandardSizes europeanSizes();

/// All findings in the file, in the order of their places.
std::vector<Finding> checkFile(const TransferFile& file, const StandardSizes& sizes,
                               Console& console);

/// The one finding of a file that cannot be read, or not as a document.
Finding findingOf(const Unreadable& fault);
Finding findingOf(const NotWellFormed& fault);

}  // namespace quorvan::tool
