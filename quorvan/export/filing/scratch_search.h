// Searching the open file for an element, by way of a scratch file. Not installed.
#pragma once

#include <functional>

#include <quorvan/filer/pattern_filer.h>

namespace quorvan {

/// Fills a pattern filer with the element to look for.
using WritePattern = std::function<void(CKtPatternFiler&)>;

/// The index of the first element of the open file that equals the one which `writePattern` files,
/// or -1. The pattern is filed through the scratch file "TempFiler.xml" in the current directory,
/// which is deleted before and after, also when an error passes through.
int indexInFile(const WritePattern& writePattern);

/// Takes away what a process that was killed in the middle of such a search left in the current
/// directory.
void clearLeftOverSearch() noexcept;

}  // namespace quorvan
