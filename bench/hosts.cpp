#include <bench/hosts.h>

#include <cstdio>
#include <filesystem>
#include <map>
#include <sstream>
#include <stdexcept>
#include <utility>

#include <bench/measure.h>

namespace bench {

namespace {

struct Figures {
  std::vector<double> seconds;
  std::vector<double> shares;
};

// By the host, what it does, and for how many elements, each in the order in which it came.
using Measured = std::map<std::pair<std::string, double>, Figures>;

std::string output(const std::string& command) {
  std::FILE* const pipe = ::popen(command.c_str(), "r");
  if (pipe == nullptr) {
    throw std::runtime_error("cannot run " + command);
  }
  std::string text;
  char block[4096];
  for (std::size_t count = 1; count > 0;) {
    count = std::fread(block, 1, sizeof block, pipe);
    text.append(block, count);
  }
  if (::pclose(pipe) != 0) {
    throw std::runtime_error("failed: " + command);
  }
  return text;
}

void runOnce(const std::string& command, const std::string& folder, Measured& measured) {
  std::istringstream lines(output("cd '" + folder + "' && " + command));
  std::string name;
  double elements = 0;
  double seconds = 0;
  double share = 0;
  while (lines >> name >> elements >> seconds >> share) {
    Figures& figures = measured[{name, elements}];
    figures.seconds.push_back(seconds);
    figures.shares.push_back(share);
  }
}

}  // namespace

std::vector<HostRow> measureHosts(const std::vector<std::string>& hosts, int rounds,
                                  const std::string& folder) {
  const std::string work = folder + "/quorvan-bench-host";
  std::filesystem::create_directories(work);
  std::map<std::string, Measured> measured;
  for (int round = 0; round < rounds; ++round) {
    for (const std::string& host : hosts) {
      const std::size_t end = host.find('=');
      runOnce(host.substr(end + 1), work, measured[host.substr(0, end)]);
    }
  }
  std::filesystem::remove_all(work);
  std::vector<HostRow> rows;
  for (const auto& [host, figures] : measured) {
    for (const auto& [what, values] : figures) {
      rows.push_back({host, what.first, what.second, median(values.seconds) / what.second,
                      median(values.shares)});
    }
  }
  return rows;
}

}  // namespace bench
