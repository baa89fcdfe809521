// Results on their way to where the user wants them.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>

#include <tools/console/console.h>
#include <tools/files/temporary_folder.h>

namespace quorvan::tool {

/// Raises Failure when the output is the input, under whatever name: what is read is never changed.
void refuseSameFile(const std::string& input, const std::string& output);

/// The current folder for the time of a filing: the library keeps its scratch file there.
class CurrentFolder {
 public:
  explicit CurrentFolder(const std::filesystem::path& folder);
  CurrentFolder(const CurrentFolder&) = delete;
  CurrentFolder& operator=(const CurrentFolder&) = delete;
  ~CurrentFolder();

 private:
  std::filesystem::path m_before;
};

/// Made beside the file to be written, so that this can be put in place in one step.
class WorkFolder {
 public:
  /// `target` is the name that the user gave: of a file, of a link to one, of a device or pipe, or
  /// "-" for the output of `console`. Raises Failure when nothing can be written there.
  WorkFolder(const std::string& target, Console& console);
  WorkFolder(const WorkFolder&) = delete;
  WorkFolder& operator=(const WorkFolder&) = delete;
  ~WorkFolder() = default;

  [[nodiscard]] const std::filesystem::path& path() const noexcept { return m_folder.path(); }
  /// Where to write.
  [[nodiscard]] std::filesystem::path file() const;

  /// Brings what was written to the target: a file is replaced in one step and keeps its
  /// permissions, a device or pipe is written to. Raises Failure.
  void moveToTarget() const;

 private:
  void replaceTarget() const;
  void writeToTarget() const;

  std::string m_name;
  Console& m_console;
  std::filesystem::path m_target;  // empty for the output of the console
  bool m_isFile;                   // or nothing as yet: what is put in place in one step
  TemporaryFolder m_folder;
};

/// Writes a file beside its place and then puts it there, so that it is whole or the old one.
/// `write` is given the stream. Raises Failure.
template <class Write>
void writeFile(const std::string& name, Console& console, const Write& write) {
  const WorkFolder folder(name, console);
  std::ofstream out(folder.file(), std::ios::binary);
  write(out);
  out.close();
  if (!out) {
    throw Failure(name + ": cannot be written");
  }
  folder.moveToTarget();
}

}  // namespace quorvan::tool
