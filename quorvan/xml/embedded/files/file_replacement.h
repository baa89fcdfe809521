// Replacing a file in one step: whatever happens, its path leads to the whole old file or to the
// whole new one.
//
// The new file is written beside the old one under a name that follows from it, brought to the
// disk (unless it is a scratch file) and then put into its place. It takes over permissions and, as
// far as allowed, owner and group; where the group cannot be kept it lets nobody in whom the old
// file kept out. Hard links and extended attributes stay with the old file. A symbolic link is
// followed, and stays. A target that is no file (a device, a pipe) is written to as it is.
//
// A scratch file stands in a folder that others may write too: a link, a device or a pipe in its
// place is replaced itself, and nothing that it leads to is touched.
#pragma once

#include <sys/stat.h>

#include <optional>
#include <string>
#include <string_view>

#include <quorvan/xml/dom.h>

namespace quorvan::embedded {

class FileReplacement {
 public:
  /// Begins a new file for the path. Raises when there cannot be one; a new file that a killed
  /// process left behind is taken away, one that another process is writing raises the error for
  /// a file in use.
  FileReplacement(const std::string& path, dom::Durability durability);
  FileReplacement(const FileReplacement&) = delete;
  FileReplacement& operator=(const FileReplacement&) = delete;
  /// Takes the new file away again, unless it has replaced the old one.
  ~FileReplacement();

  /// Appends to the new file. Raises when it cannot all be written.
  void write(std::string_view bytes);

  /// Puts the new file in place of the old one. Raises when that fails; the old file is then as
  /// it was.
  void commit();

  /// Takes away the new file that a killed process left behind for the path, if there is one.
  static void clearLeftOver(const std::string& path) noexcept;

 private:
  void begin();
  void openInPlace();
  void createBeside(const std::optional<struct stat>& former);
  bool tryCreate(mode_t mode);
  void takeOver(const struct stat& former) const;
  void bringToDisk() const;
  void bringFolderToDisk() const noexcept;
  void abandon() noexcept;

  std::string m_target;
  std::string m_folder;
  std::string m_beside;  // empty when the target is written in place
  dom::Durability m_durability;
  int m_file = -1;
};

}  // namespace quorvan::embedded
