// FileReplacement where the system is POSIX; see file_replacement.h.
#pragma once

#include <sys/stat.h>

#include <optional>
#include <string>
#include <string_view>

#include <quorvan/xml/dom.h>
#include <quorvan/xml/embedded/files/file_calls.h>

namespace quorvan::embedded {

class FileReplacement {
 public:
  FileReplacement(const SystemPath& path, dom::Durability durability);
  FileReplacement(const FileReplacement&) = delete;
  FileReplacement& operator=(const FileReplacement&) = delete;
  ~FileReplacement();

  void write(std::string_view bytes);
  void commit();

  static void clearLeftOver(const SystemPath& path) noexcept;

 private:
  void begin();
  void putInPlace();
  bool tryCreateAtTarget();
  void openInPlace();
  void createBeside(const std::optional<struct stat>& former);
  bool tryCreate(mode_t mode);
  void takeOver(const struct stat& former) const;
  void bringToDisk() const;
  void bringFolderToDisk() const noexcept;
  void abandon() noexcept;

  std::string m_target;
  std::string m_folder;
  std::string m_beside;  // the new file; empty when a target that is no file is written to
  dom::Durability m_durability;
  int m_file = -1;
};

}  // namespace quorvan::embedded
