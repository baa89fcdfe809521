// FileReplacement on Windows; see file_replacement.h.
#pragma once

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
  bool tryCreateAtTarget();
  void createBeside();
  void bringToDisk() const;
  void close();
  void abandon() noexcept;

  SystemPath m_target;
  SystemPath m_beside;  // the new file; empty when the target is a device
  dom::Durability m_durability;
  SystemFile m_file = kNoFile;
};

}  // namespace quorvan::embedded
