// Measures the library beside its peers in one run. See --help.
#include <algorithm>
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <CLI/CLI.hpp>

#include <bench/hidden_bars.h>
#include <bench/hosts.h>
#include <bench/measure.h>
#include <bench/peers.h>
#include <bench/program.h>
#include <bench/report.h>
#include <bench/small_files.h>

namespace {

constexpr std::size_t kSmallFiles = 10000;

struct Options {
  std::size_t elements = 200000;
  int rounds = 7;
  std::string folder = "/dev/shm";  // a memory file system: the disk is not what is measured
  std::string json;
  std::vector<std::string> only;
  std::vector<std::string> parts{"peers", "growth", "hidden", "files"};
  std::vector<std::string> hosts;
  std::string program;
  bool processorTime = false;
  bool fresh = false;  // alone
  bool warm = false;   // alone
};

bool isWanted(const Options& options, const bench::Peer& peer) {
  return options.only.empty() ||
         std::any_of(options.only.begin(), options.only.end(),
                     [&](const std::string& name) { return peer.name.starts_with(name); });
}

std::string fileOf(const Options& options, const bench::Peer& peer) {
  std::string name = peer.name;
  std::replace_if(
      name.begin(), name.end(), [](unsigned char letter) { return std::isalnum(letter) == 0; },
      '-');
  return options.folder + "/quorvan-bench-" + name + ".xml";
}

// Every reader must find in its own file what was written, and the library's reader must find it
// in every file.
void verify(const bench::Drawing& drawing, const bench::Peer& peer, const std::string& file) {
  const std::uint64_t expected = bench::checksum(drawing);
  if (peer.read(file) != expected) {
    throw std::runtime_error(peer.name + " does not read back what it wrote");
  }
  if (bench::readQuorvan(file) != expected) {
    throw std::runtime_error("the file of " + peer.name + " differs in content");
  }
}

// Before anything else ran in this process, whose children would otherwise find memory that was
// used and freed before and needs no more.
void measureMemory(const Options& options, const std::vector<bench::Peer>& peers,
                   const bench::Drawing& drawing, bench::Report& report) {
  for (const bench::Peer& peer : peers) {
    const std::string file = fileOf(options, peer);
    bench::PeerRow row;
    row.name = peer.name;
    row.writeBytes = bench::peakBytes([&] { peer.write(drawing, file); });
    row.readBytes = bench::peakBytes([&] { peer.read(file); });
    report.peers.push_back(row);
  }
}

// Runs of the peers, all of them once, then all again.
class PeerRuns {
 public:
  PeerRuns(const Options& options, const std::vector<bench::Peer>& peers,
           const bench::Drawing& drawing)
      : m_options(options), m_peers(peers), m_drawing(drawing) {}

  using Measure = double (*)(const std::function<void()>& work);

  /// The times of each peer, as `measure` takes them.
  std::vector<bench::PeerTimes> times(Measure measure) {
    std::vector<std::vector<double>> writes(m_peers.size());
    std::vector<std::vector<double>> reads(m_peers.size());
    for (int round = 0; round < m_options.rounds; ++round) {
      for (std::size_t i = 0; i < m_peers.size(); ++i) {
        const bench::Peer& peer = m_peers[i];
        const std::string file = fileOf(m_options, peer);
        std::filesystem::remove(file);
        writes[i].push_back(measure([&] { peer.write(m_drawing, file); }));
        reads[i].push_back(measure([&] { peer.read(file); }));
      }
    }
    std::vector<bench::PeerTimes> times;
    for (std::size_t i = 0; i < m_peers.size(); ++i) {
      times.push_back({bench::timing(writes[i]), bench::timing(reads[i])});
    }
    return times;
  }

  /// Writes and reads with each peer once in this process, and looks whether they agree.
  void warmUp() {
    for (const bench::Peer& peer : m_peers) {
      const std::string file = fileOf(m_options, peer);
      std::filesystem::remove(file);
      peer.write(m_drawing, file);
      verify(m_drawing, peer, file);
    }
  }

 private:
  const Options& m_options;
  const std::vector<bench::Peer>& m_peers;
  const bench::Drawing& m_drawing;
};

// The fresh processes come first: they are children of this one, and what was used and freed here
// would be there for them.
void measurePeers(const Options& options, const bench::Drawing& drawing, bench::Report& report) {
  std::vector<bench::Peer> peers;
  for (const bench::Peer& peer : bench::peers()) {
    if (isWanted(options, peer)) {
      peers.push_back(peer);
    }
  }
  measureMemory(options, peers, drawing, report);
  PeerRuns runs(options, peers, drawing);
  if (!options.warm) {
    const std::vector<bench::PeerTimes> times = runs.times(bench::secondsInFreshProcess);
    for (std::size_t i = 0; i < peers.size(); ++i) {
      report.peers[i].fresh = times[i];
    }
  }
  runs.warmUp();
  if (!options.fresh) {
    const std::vector<bench::PeerTimes> times = runs.times(bench::seconds);
    for (std::size_t i = 0; i < peers.size(); ++i) {
      report.peers[i].warm = times[i];
    }
  }
  for (std::size_t i = 0; i < peers.size(); ++i) {
    const std::string file = fileOf(options, peers[i]);
    report.peers[i].fileBytes = static_cast<double>(std::filesystem::file_size(file));
    std::filesystem::remove(file);
  }
}

void measureGrowth(const Options& options, bench::Report& report) {
  const std::string file = options.folder + "/quorvan-bench-growth.xml";
  for (std::size_t elements = options.elements / 8; elements <= options.elements * 2;
       elements *= 2) {
    const bench::Drawing drawing = bench::makeDrawing(elements);
    std::vector<double> writes;
    std::vector<double> reads;
    for (int round = 0; round < std::min(options.rounds, 3); ++round) {
      writes.push_back(bench::seconds([&] { bench::writeQuorvan(drawing, file); }));
      reads.push_back(bench::seconds([&] { bench::readQuorvan(file); }));
    }
    report.growth.push_back(
        {static_cast<double>(elements), bench::median(writes), bench::median(reads)});
  }
  std::filesystem::remove(file);
}

void measureHidden(const Options& options, bench::Report& report) {
  const std::size_t most = options.elements >= 200000 ? 64000 : 4000;
  for (std::size_t bars = 1000; bars <= most; bars *= 2) {
    const auto times = bench::measureHiddenBars(bars, 0, options.folder);
    report.hidden.push_back({static_cast<double>(bars), 0, times.searchSeconds, times.exportSeconds,
                             bench::measureHashSet(bars)});
  }
  const auto times = bench::measureHiddenBars(most, options.elements, options.folder);
  report.hidden.push_back({static_cast<double>(most), static_cast<double>(options.elements),
                           times.searchSeconds, times.exportSeconds, bench::measureHashSet(most)});
}

Options parse(int argc, char** argv) {
  Options options;
  CLI::App app("Times writing, reading and searching transfer files beside other XML libraries.");
  app.add_option("--elements", options.elements, "elements of the drawing")->capture_default_str();
  app.add_option("--rounds", options.rounds, "interleaved rounds")->capture_default_str();
  app.add_option("--folder", options.folder, "where the files are written")->capture_default_str();
  app.add_option("--json", options.json, "also write the results to this file");
  app.add_option("--only", options.only, "measure only the peers whose names begin so");
  app.add_option("--part", options.parts,
                 "measure only these of: peers, growth, hidden, files; program and windows, for "
                 "which scripts/bench builds what it takes")
      ->check(CLI::IsMember({"peers", "growth", "hidden", "files", "program", "windows"}));
  app.add_option("--host", options.hosts,
                 "for the part windows: NAME=COMMAND of a quorvan-bench-host");
  app.add_option("--program", options.program, "for the part program: its path");
  app.add_flag("--processor-time", options.processorTime,
               "measure processor time: for a machine that does other work as well");
  CLI::Option* const fresh =
      app.add_flag("--fresh", options.fresh, "peers only in fresh processes, one for each run");
  app.add_flag("--warm", options.warm, "peers only in one process that has written and read before")
      ->excludes(fresh);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    std::exit(app.exit(error));
  }
  return options;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const Options options = parse(argc, argv);
    if (options.processorTime) {
      bench::measureProcessorTime();
    }
    bench::Report report;
    report.elements = static_cast<double>(options.elements);
    report.rounds = options.rounds;
    const auto isWantedPart = [&](const char* part) {
      return std::find(options.parts.begin(), options.parts.end(), part) != options.parts.end();
    };
    if (isWantedPart("peers")) {
      measurePeers(options, bench::makeDrawing(options.elements), report);
    }
    if (isWantedPart("growth")) {
      measureGrowth(options, report);
    }
    if (isWantedPart("hidden")) {
      measureHidden(options, report);
    }
    if (isWantedPart("files")) {
      const std::size_t files = std::min<std::size_t>(kSmallFiles, options.elements);
      report.smallFiles = bench::measureSmallFiles(files, options.rounds, options.folder);
    }
    if (isWantedPart("program")) {
      report.program =
          bench::measureProgram(options.program, options.elements, options.rounds, options.folder);
    }
    if (isWantedPart("windows")) {
      report.hosts = bench::measureHosts(options.hosts, options.rounds, options.folder);
    }
    bench::printTable(report);
    if (!options.json.empty()) {
      bench::writeJson(report, options.json);
    }
  } catch (const std::exception& error) {
    std::fprintf(stderr, "quorvan-bench: %s\n", error.what());
    return 1;
  }
  return 0;
}
