#include <tools/files/drawing_files.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <system_error>

#include <tools/console/terminal.h>
#include <tools/files/source_text.h>
#include <tools/text/table.h>

namespace quorvan::tool {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kEveryDrawing = "*.xml";

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

bool isFileThatFits(const fs::directory_entry& entry, std::string_view pattern) {
  std::error_code error;
  return fits(pattern, toUtf8(entry.path().filename())) && entry.is_regular_file(error);
}

std::vector<std::string> filesIn(const std::string& folder) {
  std::vector<std::string> files;
  try {
    for (const auto& entry : fs::recursive_directory_iterator(toPath(folder))) {
      if (isFileThatFits(entry, kEveryDrawing)) {
        files.push_back(toUtf8(entry.path()));
      }
    }
  } catch (const fs::filesystem_error& error) {
    throw Unreadable(folder, "cannot be read: " + error.code().message());
  }
  if (files.empty()) {
    throw Unreadable(folder, "there is no .xml file in this folder");
  }
  std::ranges::sort(files);
  return files;
}

std::vector<std::string> filesThatFit(const fs::path& pattern) {
  const fs::path folder = pattern.parent_path();
  const std::string name = toUtf8(pattern.filename());
  std::vector<std::string> files;
  std::error_code error;
  for (fs::directory_iterator at(folder.empty() ? fs::path(".") : folder, error), end;
       !error && at != end; at.increment(error)) {
    if (isFileThatFits(*at, name)) {
      files.push_back(toUtf8(folder / at->path().filename()));
    }
  }
  std::ranges::sort(files);
  return files;
}

}  // namespace

std::vector<std::string> filesNamedBy(const std::string& argument) {
  const fs::path path = toPath(argument);
  std::error_code error;
  if (fs::is_directory(path, error)) {
    return filesIn(argument);
  }
  if (argument.find_first_of("*?") != std::string::npos && !fs::exists(path, error)) {
    std::vector<std::string> files = filesThatFit(path);
    if (!files.empty()) {
      return files;
    }
  }
  return {argument};
}

std::vector<std::string> drawingFiles(const std::vector<std::string>& names, Console& console) {
  std::vector<std::string> files;
  std::set<fs::path> seen;
  for (const std::string& argument : names) {
    for (std::string& name : filesNamedBy(argument)) {
      std::error_code error;
      const fs::path whole = fs::weakly_canonical(toPath(name), error);
      if (!error && !seen.insert(whole).second) {
        console.err << printable(name) << ": warning: named twice, and taken once\n";
      } else {
        files.push_back(std::move(name));
      }
    }
  }
  return files;
}

}  // namespace quorvan::tool
