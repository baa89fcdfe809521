#include <tools/files/file_arguments.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

#include <tools/console/console.h>
#include <tools/console/terminal.h>

namespace quorvan::tool {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kEveryXml = "*.xml";

char lowerCase(char unit) {
  return unit >= 'A' && unit <= 'Z' ? static_cast<char>(unit + ('a' - 'A')) : unit;
}

// Whether the pattern fits the name, whatever the case of its letters.
bool fits(std::string_view pattern, std::string_view name) {
  std::size_t at = 0;
  std::size_t star = std::string_view::npos;
  std::size_t behindStar = 0;
  std::size_t next = 0;
  while (next < name.size()) {
    if (at < pattern.size() && pattern[at] == '*') {
      star = at++;
      behindStar = next;
    } else if (at < pattern.size() &&
               (pattern[at] == '?' || lowerCase(pattern[at]) == lowerCase(name[next]))) {
      ++at;
      ++next;
    } else if (star != std::string_view::npos) {
      at = star + 1;
      next = ++behindStar;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', at) == std::string_view::npos;
}

std::vector<std::string> fitting(const fs::path& folder, std::string_view pattern) {
  std::vector<std::string> names;
  std::error_code error;
  const fs::path here = folder.empty() ? fs::path(".") : folder;
  for (fs::directory_iterator at(here, error), end; !error && at != end; at.increment(error)) {
    std::error_code ignored;
    if (fs::is_regular_file(at->path(), ignored) && fits(pattern, toUtf8(at->path().filename()))) {
      names.push_back(toUtf8(folder / at->path().filename()));
    }
  }
  std::ranges::sort(names);
  return names;
}

std::vector<std::string> filesOf(const std::string& argument) {
  const fs::path path = toPath(argument);
  std::error_code error;
  if (fs::is_directory(path, error)) {
    std::vector<std::string> names = fitting(path, kEveryXml);
    if (names.empty()) {
      throw Failure(argument + ": is a folder without any .xml file");
    }
    return names;
  }
  if (argument.find_first_of("*?") != std::string::npos && !fs::exists(path, error)) {
    std::vector<std::string> names = fitting(path.parent_path(), toUtf8(path.filename()));
    if (!names.empty()) {
      return names;
    }
  }
  return {argument};
}

}  // namespace

std::vector<std::string> namedFiles(const std::vector<std::string>& arguments) {
  std::vector<std::string> files;
  for (const std::string& argument : arguments) {
    std::ranges::move(filesOf(argument), std::back_inserter(files));
  }
  return files;
}

}  // namespace quorvan::tool
