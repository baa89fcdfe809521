#include <tools/files/work_folder.h>

#include <system_error>

#include <tools/console/console.h>
#include <tools/console/terminal.h>

namespace quorvan::tool {

namespace fs = std::filesystem;

void refuseSameFile(const std::string& input, const std::string& output) {
  std::error_code ignored;
  if (fs::equivalent(toPath(input), toPath(output), ignored)) {
    throw Failure(output + ": is the file itself; the output needs a name of its own");
  }
}

WorkFolder::WorkFolder(const fs::path& target)
    : m_target(fs::absolute(target)),
      m_folder(m_target.parent_path()),
      m_before(fs::current_path()) {
  fs::current_path(m_folder.path());
}

WorkFolder::~WorkFolder() {
  std::error_code ignored;
  fs::current_path(m_before, ignored);
}

fs::path WorkFolder::file() const {
  return m_folder.path() / "drawing.xml";
}

void WorkFolder::moveToTarget() const {
  std::error_code error;
  fs::rename(file(), m_target, error);
  if (error) {
    throw Failure(toUtf8(m_target) + ": cannot be written: " + error.message());
  }
}

}  // namespace quorvan::tool
