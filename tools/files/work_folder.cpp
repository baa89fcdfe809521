#include <tools/files/work_folder.h>

#include <cerrno>
#include <fstream>
#include <system_error>

#include <tools/console/terminal.h>
#include <tools/files/input_file.h>
#include <tools/files/source_text.h>

namespace quorvan::tool {

namespace fs = std::filesystem;

namespace {

constexpr const char* kOutputName = "drawing.xml";

[[noreturn]] void refuseOutput(const std::string& name, const std::string& why) {
  throw Failure(name + ": cannot be written: " + why);
}

// What the name means once links are followed, also those to what is not there yet.
fs::path targetOf(const std::string& name) {
  constexpr int kMostLinks = 40;
  if (name == kStandardStream) {
    return {};
  }
  std::error_code error;
  fs::path target = fs::absolute(toPath(name));
  for (int links = 0; fs::is_symlink(target, error) && links < kMostLinks; ++links) {
    const fs::path next = fs::read_symlink(target, error);
    target = next.is_absolute() ? next : target.parent_path() / next;
  }
  if (fs::is_directory(target, error)) {
    refuseOutput(name, "it is a folder");
  }
  return target;
}

bool isFile(const fs::path& target) {
  std::error_code error;
  return !target.empty() && (!fs::exists(target, error) || fs::is_regular_file(target, error));
}

// Beside the target if it can be, because only there it can be put in place in one step.
TemporaryFolder folderFor(const std::string& name, const fs::path& target, bool isFile) {
  std::error_code error;
  if (isFile) {
    if (fs::exists(target, error) && !std::ofstream(target, std::ios::binary | std::ios::app)) {
      refuseOutput(name, std::error_code(errno, std::generic_category()).message());
    }
    try {
      return TemporaryFolder(target.parent_path());
    } catch (const Failure&) {
      if (!fs::exists(target, error)) {
        throw;
      }
    }
  }
  return TemporaryFolder(fs::temp_directory_path());
}

}  // namespace

void refuseSameFile(const std::string& input, const std::string& output) {
  std::error_code ignored;
  const bool isSame = input == kStandardStream
                          ? inputIsFile(toPath(output))
                          : fs::equivalent(toPath(input), toPath(output), ignored) &&
                                fs::is_regular_file(toPath(input), ignored);
  if (isSame) {
    throw Failure(output + ": is the file itself; the output needs a name of its own");
  }
}

CurrentFolder::CurrentFolder(const fs::path& folder) : m_before(fs::current_path()) {
  fs::current_path(folder);
}

CurrentFolder::~CurrentFolder() {
  std::error_code ignored;
  fs::current_path(m_before, ignored);
}

WorkFolder::WorkFolder(const std::string& target, Console& console)
    : m_name(target),
      m_console(console),
      m_target(targetOf(target)),
      m_isFile(isFile(m_target)),
      m_folder(folderFor(target, m_target, m_isFile)) {}

fs::path WorkFolder::file() const {
  return m_folder.path() / kOutputName;
}

void WorkFolder::moveToTarget() const {
  if (m_isFile && m_folder.path().parent_path() == m_target.parent_path()) {
    replaceTarget();
  } else {
    writeToTarget();
  }
}

void WorkFolder::replaceTarget() const {
  std::error_code error;
  const fs::file_status before = fs::status(m_target, error);
  if (fs::exists(before)) {
    fs::permissions(file(), before.permissions(), error);
  }
  fs::rename(file(), m_target, error);
  if (error) {
    refuseOutput(m_name, error.message());
  }
}

void WorkFolder::writeToTarget() const {
  const std::string bytes = readBytes(file(), m_name);
  const auto size = static_cast<std::streamsize>(bytes.size());
  if (m_target.empty()) {
    m_console.out.write(bytes.data(), size);
    return;
  }
  std::ofstream out(m_target,
                    std::ios::binary | (m_isFile ? std::ios::trunc : std::ios::openmode()));
  out.write(bytes.data(), size);
  out.close();
  if (!out) {
    refuseOutput(m_name, std::error_code(errno, std::generic_category()).message());
  }
}

}  // namespace quorvan::tool
