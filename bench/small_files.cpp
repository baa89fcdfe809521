#include <bench/small_files.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <quorvan/quorvan.h>
#include <quorvan/reading/read.h>

#include <array>
#include <filesystem>
#include <stdexcept>

#include <bench/drawing.h>
#include <bench/measure.h>
#include <bench/peers.h>

namespace bench {

namespace {

constexpr std::size_t kElements = 20;

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

// The same drawing many times, in a folder that is gone afterwards.
class SmallFiles {
 public:
  SmallFiles(std::size_t files, const std::string& parent) : m_folder(parent + "/small-files") {
    std::filesystem::create_directory(m_folder);
    const std::string first = m_folder + "/0.xml";
    writeQuorvan(makeDrawing(kElements), first);
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

constexpr std::array kWays = {Way{"system alone", readBySystem}, Way{"flat reading", openFlat},
                              Way{"classes", openByClasses}};

}  // namespace

std::vector<SmallFilesRow> measureSmallFiles(std::size_t files, int rounds,
                                             const std::string& folder) {
  const SmallFiles small(files, folder);
  std::array<std::vector<double>, kWays.size()> times;
  for (int round = 0; round < rounds; ++round) {
    for (std::size_t i = 0; i < kWays.size(); ++i) {
      times[i].push_back(small.measure(kWays[i].openAndClose));
    }
  }
  std::vector<SmallFilesRow> rows;
  for (std::size_t i = 0; i < kWays.size(); ++i) {
    rows.push_back({kWays[i].name, median(times[i])});
  }
  return rows;
}

}  // namespace bench
