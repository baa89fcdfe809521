// The scratch file of a hidden bar without the bar: what is the file system's part.
#pragma once

namespace bench {

/// In the current folder: deletes the file, which is not there, makes it, writes as much as a bar
/// takes and deletes it again.
void passScratchFile();

}  // namespace bench
