#include <tools/files/drawing_files.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <system_error>

#include <tools/console/terminal.h>

namespace quorvan::tool {

namespace {

bool isDrawing(const std::filesystem::directory_entry& entry) {
  std::string ending = toUtf8(entry.path().extension());
  std::ranges::transform(ending, ending.begin(), [](char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A')) : letter;
  });
  std::error_code error;
  return ending == ".xml" && entry.is_regular_file(error);
}

std::vector<std::string> filesIn(const std::string& folder) {
  std::vector<std::string> files;
  try {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(toPath(folder))) {
      if (isDrawing(entry)) {
        files.push_back(toUtf8(entry.path()));
      }
    }
  } catch (const std::filesystem::filesystem_error& error) {
    throw Failure(folder + ": cannot be read: " + error.code().message());
  }
  if (files.empty()) {
    throw Failure(folder + ": there is no .xml file in this folder");
  }
  std::ranges::sort(files);
  return files;
}

}  // namespace

std::vector<std::string> drawingFiles(const std::vector<std::string>& names, Console& console) {
  std::vector<std::string> all;
  for (const std::string& name : names) {
    std::error_code error;
    if (std::filesystem::is_directory(toPath(name), error)) {
      std::ranges::move(filesIn(name), std::back_inserter(all));
    } else {
      all.push_back(name);
    }
  }
  std::vector<std::string> files;
  std::set<std::filesystem::path> seen;
  for (std::string& name : all) {
    std::error_code error;
    const std::filesystem::path whole = std::filesystem::weakly_canonical(toPath(name), error);
    if (!error && !seen.insert(whole).second) {
      console.err << name << ": warning: named twice, and taken once\n";
    } else {
      files.push_back(std::move(name));
    }
  }
  return files;
}

}  // namespace quorvan::tool
