// Many small drawings, opened and closed: what a program pays that looks into a folder of them.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace bench {

/// What one way of opening and closing cost, a file.
struct SmallFilesRow {
  std::string name;
  std::size_t elements = 0;  // of each file
  double seconds = 0;
};

/// Opens and closes `files` files of twenty elements, `rounds` times each way in turn: read into
/// memory by the system's calls alone, by the flat functions, by the classes. Then a fiftieth as
/// many of 500 elements, of which the classes read every element. The medians; of either size the
/// system's part comes first.
std::vector<SmallFilesRow> measureSmallFiles(std::size_t files, int rounds,
                                             const std::string& folder);

}  // namespace bench
