#include <bench/small_files.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <quorvan/quorvan.h>
#include <quorvan/reading/read.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <span>
#include <stdexcept>

#include <bench/drawing.h>
#include <bench/measure.h>
#include <bench/peers.h>

namespace bench {

namespace {

constexpr std::size_t kFew = 20;
constexpr std::size_t kMore = 500;
constexpr std::size_t kFilesOfMore = 50;  // so many fewer of them

void require(bool isDone, const std::string& path) {
  if (!isDone) {
    throw std::runtime_error("cannot open " + path);
  }
}

// What no reader can do without.
void readBySystem(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  struct stat facts = {};
  require(file >= 0 && fstat(file, &facts) == 0, path);
  std::vector<char> bytes(static_cast<std::size_t>(facts.st_size));
  require(read(file, bytes.data(), bytes.size()) == facts.st_size, path);
  close(file);
}

void openFlat(const std::string& path) {
  QuorvanFile* file = nullptr;
  require(quorvanOpenFileUtf8(path.c_str(), &file) == QUORVAN_DONE, path);
  quorvanCloseFile(file);
}

void openByClasses(const std::string& path) {
  CKtFiler filer;
  require(filer.newFiler(path.c_str()) != 0, path);
  filer.newFiler(L"");  // lets go of the file without saving it back
}

void readByClasses(const std::string& path) {
  readQuorvan(path);
}

// The same drawing many times, in a folder that is gone afterwards.
class SmallFiles {
 public:
  SmallFiles(std::size_t files, std::size_t elements, const std::string& parent)
      : m_folder(parent + "/small-files") {
    std::filesystem::create_directory(m_folder);
    const std::string first = m_folder + "/0.xml";
    writeQuorvan(makeDrawing(elements), first);
    m_paths.push_back(first);
    for (std::size_t i = 1; i < files; ++i) {
      m_paths.push_back(m_folder + "/" + std::to_string(i) + ".xml");
      std::filesystem::copy_file(first, m_paths.back());
    }
  }
  SmallFiles(const SmallFiles&) = delete;
  SmallFiles& operator=(const SmallFiles&) = delete;
  ~SmallFiles() {
    std::error_code ignored;
    std::filesystem::remove_all(m_folder, ignored);
  }

  /// Seconds a file.
  [[nodiscard]] double measure(void (*openAndClose)(const std::string& path)) const {
    const double total = seconds([&] {
      for (const std::string& path : m_paths) {
        openAndClose(path);
      }
    });
    return total / static_cast<double>(m_paths.size());
  }

 private:
  std::string m_folder;
  std::vector<std::string> m_paths;
};

struct Way {
  const char* name;
  void (*openAndClose)(const std::string& path);
};

constexpr std::array kWaysOfFew = {Way{"system alone", readBySystem}, Way{"flat reading", openFlat},
                                   Way{"classes", openByClasses}};
constexpr std::array kWaysOfMore = {Way{"system alone", readBySystem},
                                    Way{"classes, all is read", readByClasses}};

void measure(std::span<const Way> ways, std::size_t files, std::size_t elements, int rounds,
             const std::string& folder, std::vector<SmallFilesRow>& rows) {
  const SmallFiles small(files, elements, folder);
  std::vector<std::vector<double>> times(ways.size());
  for (int round = 0; round < rounds; ++round) {
    for (std::size_t i = 0; i < ways.size(); ++i) {
      times[i].push_back(small.measure(ways[i].openAndClose));
    }
  }
  for (std::size_t i = 0; i < ways.size(); ++i) {
    rows.push_back({ways[i].name, elements, median(times[i])});
  }
}

}  // namespace

std::vector<SmallFilesRow> measureSmallFiles(std::size_t files, int rounds,
                                             const std::string& folder) {
  std::vector<SmallFilesRow> rows;
  measure(kWaysOfFew, files, kFew, rounds, folder, rows);
  measure(kWaysOfMore, std::max<std::size_t>(files / kFilesOfMore, 1), kMore, rounds, folder, rows);
  return rows;
}

}  // namespace bench
