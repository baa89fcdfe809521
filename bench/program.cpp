#include <bench/program.h>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <stdexcept>

#include <bench/job_drawing.h>
#include <bench/measure.h>
#include <quorvan/quorvan.h>

namespace bench {

namespace {

struct Cost {
  double seconds = 0;  // of the processor
  double bytes = 0;    // at the peak
};

double secondsOf(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

// Takes what the child gives as its exit code; findings of a check are no failure.
Cost costOf(const std::function<int()>& child) {
  const pid_t process = fork();
  if (process == 0) {
    _exit(child());
  }
  int status = 0;
  rusage usage = {};
  if (process < 0 || wait4(process, &status, 0, &usage) != process || !WIFEXITED(status) ||
      WEXITSTATUS(status) > 2) {
    throw std::runtime_error("a measured process failed");
  }
  return {secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime),
          static_cast<double>(usage.ru_maxrss) * 1024};
}

template <class Element>
void readEach(CKtFiler& filer) {
  Element element;
  while (element.fileIn(&filer) != 0) {}
}

int readAll(const std::string& file) {
  CKtFiler filer;
  if (filer.newFiler(std::filesystem::path(file).wstring().c_str()) == 0) {
    return 3;
  }
  readEach<CKtZantoLine>(filer);
  readEach<CKtZantoCircle>(filer);
  readEach<CKtZantoText>(filer);
  readEach<CKtFilledPolygon>(filer);
  readEach<CKtZantoStraightBar>(filer);
  readEach<CKtZantoLBar>(filer);
  readEach<CKtZantoUBar>(filer);
  readEach<CKtZantoStirrup>(filer);
  readEach<CKtZantoFrameRect>(filer);
  readEach<CKtZantoRepartition>(filer);
  readEach<CKtDrawingControl>(filer);
  filer.newFiler(L"");  // nothing to save
  return 0;
}

int runCommand(const std::string& program, const std::vector<std::string>& command,
               const std::string& file) {
  const int nowhere = open("/dev/null", O_WRONLY);
  dup2(nowhere, STDOUT_FILENO);
  std::vector<std::string> words{program, command.front(), file};
  words.insert(words.end(), command.begin() + 1, command.end());
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string& word : words) {
    arguments.push_back(word.data());
  }
  arguments.push_back(nullptr);
  execv(program.c_str(), arguments.data());
  return 3;
}

}  // namespace

std::vector<ProgramRow> measureProgram(const std::string& program, std::size_t elements, int rounds,
                                       const std::string& folder) {
  static const std::vector<std::string> kCommands[] = {
      {"info"},  {"info", "--json"},  {"list"}, {"list", "--json"}, {"list", "--csv"},
      {"check"}, {"check", "--json"}, {"bars"}, {"bars", "--csv"},  {"bars", "--json"}};
  const std::string file = folder + "/quorvan-bench-job.xml";
  writeJobDrawing(elements, file);
  const auto fileBytes = static_cast<double>(std::filesystem::file_size(file));
  std::vector<ProgramRow> rows{{"library reads", 0, 0, fileBytes}};
  for (const std::vector<std::string>& command : kCommands) {
    rows.push_back(
        {command.front() + (command.size() > 1 ? ' ' + command[1] : ""), 0, 0, fileBytes});
  }
  std::vector<std::vector<double>> seconds(rows.size());
  for (int round = 0; round < rounds; ++round) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
      const Cost cost = costOf(
          [&] { return i == 0 ? readAll(file) : runCommand(program, kCommands[i - 1], file); });
      seconds[i].push_back(cost.seconds);
      rows[i].peakBytes = std::max(rows[i].peakBytes, cost.bytes);
    }
  }
  for (std::size_t i = 0; i < rows.size(); ++i) {
    rows[i].seconds = median(seconds[i]);
  }
  std::filesystem::remove(file);
  return rows;
}

}  // namespace bench
