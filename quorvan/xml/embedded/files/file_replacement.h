// Replacing a file in one step: whatever happens, its path leads to the whole old file or to the
// whole new one.
//
// The new file is written beside the old one under a name that follows from it, brought to the
// disk (unless it is a scratch file) and then put into its place. It takes over permissions and, as
// far as allowed, owner and group; where the group cannot be kept it lets nobody in whom the old
// file kept out. Hard links and extended attributes stay with the old file. A symbolic link is
// followed, and stays. A target that is no file (a device, a pipe) is written to as it is.
//
// A scratch file is made at its own path where there is nothing. It stands in a folder that others
// may write too: a link, a device or a pipe in its place is replaced itself, and nothing that it
// leads to is touched. One that only passes is deleted when it is complete.
//
//   class FileReplacement
//     FileReplacement(const SystemPath& path, dom::Durability durability)
//       Begins a new file for the path. Raises when there cannot be one; a new file that a killed
//       process left behind is taken away, one that another process is writing raises the error
//       for a file in use.
//     ~FileReplacement()
//       Takes the new file away again, unless it has replaced the old one.
//     void write(std::string_view bytes)
//       Appends to the new file. Raises when it cannot all be written.
//     void commit()
//       Puts the new file in place of the old one. Raises when that fails; the old file is then as
//       it was.
//     static void clearLeftOver(const SystemPath& path) noexcept
//       Takes away the new file that a killed process left behind for the path, if there is one.
#pragma once

#ifdef _WIN32
#include <quorvan/xml/embedded/files/file_replacement_windows.h>
#else
#include <quorvan/xml/embedded/files/file_replacement_posix.h>
#endif
