#include <bench/report.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <nlohmann/json.hpp>

namespace bench {

namespace {

const PeerRow* find(const Report& report, const std::string& name) {
  const auto found = std::find_if(report.peers.begin(), report.peers.end(),
                                  [&](const PeerRow& row) { return row.name == name; });
  return found != report.peers.end() ? &*found : nullptr;
}

using TimesOf = std::optional<PeerTimes> PeerRow::*;

void printTiming(const Timing& timing, const Timing* base, double elements) {
  std::printf(" %10.2f %8.3f %8.2f", timing.median / elements * 1e6,
              base != nullptr ? timing.median / base->median : 0.0, timing.spread());
}

void printPeers(const Report& report, const char* processes, TimesOf times) {
  if (!(report.peers.front().*times)) {
    return;
  }
  const PeerRow* const base = find(report, "pugixml");
  const PeerTimes* const baseTimes = base != nullptr ? &*(base->*times) : nullptr;
  std::printf("%s\n%-16s %10s %8s %8s %10s %8s %8s %10s %10s %10s\n", processes, "", "write", "",
              "", "read", "", "", "write", "read", "file");
  std::printf("%-16s %10s %8s %8s %10s %8s %8s %10s %10s %10s\n", "", "us/elem", "ratio", "spread",
              "us/elem", "ratio", "spread", "peak B/el", "peak B/el", "B/elem");
  for (const PeerRow& row : report.peers) {
    std::printf("%-16s", row.name.c_str());
    const PeerTimes& own = *(row.*times);
    printTiming(own.write, baseTimes != nullptr ? &baseTimes->write : nullptr, report.elements);
    printTiming(own.read, baseTimes != nullptr ? &baseTimes->read : nullptr, report.elements);
    std::printf(" %10.0f %10.0f %10.0f\n", row.writeBytes / report.elements,
                row.readBytes / report.elements, row.fileBytes / report.elements);
  }
  std::printf("\n");
}

void printPeers(const Report& report) {
  std::printf("%.0f elements, medians of %d interleaved rounds\n\n", report.elements,
              report.rounds);
  printPeers(report, "Each run in a fresh process", &PeerRow::fresh);
  printPeers(report, "In one process that has written and read before", &PeerRow::warm);
  std::printf("ratio: median against pugixml's in the same run; spread: median against best\n");
}

nlohmann::ordered_json jsonOf(const std::optional<PeerTimes>& times) {
  if (!times) {
    return nullptr;
  }
  return {{"writeSeconds", times->write.median},  {"writeBestSeconds", times->write.best},
          {"writeSpread", times->write.spread()}, {"readSeconds", times->read.median},
          {"readBestSeconds", times->read.best},  {"readSpread", times->read.spread()}};
}

void printGrowth(const Report& report) {
  std::printf("\nGrowth of the library itself\n%10s %14s %14s\n", "elements", "write us/elem",
              "read us/elem");
  for (const GrowthRow& row : report.growth) {
    std::printf("%10.0f %14.2f %14.2f\n", row.elements, row.writeSeconds / row.elements * 1e6,
                row.readSeconds / row.elements * 1e6);
  }
}

void printHidden(const Report& report) {
  std::printf("\nHidden bars, every second a repetition\n%10s %10s %14s %10s %14s %14s\n", "bars",
              "others", "search us/bar", "growth", "export us/bar", "hash us/bar");
  double before = 0;
  for (const HiddenRow& row : report.hidden) {
    std::printf("%10.0f %10.0f %14.2f ", row.bars, row.others, row.searchSeconds / row.bars * 1e6);
    if (before > 0) {
      std::printf("%9.2fx ", row.searchSeconds / before);
    } else {
      std::printf("%10s ", "");
    }
    std::printf("%14.2f %14.2f\n", row.exportSeconds / row.bars * 1e6,
                row.hashSetSeconds / row.bars * 1e6);
    before = row.searchSeconds;
  }
}

// What reading the bytes of the same file takes, which comes first.
double systemSeconds(const Report& report, const SmallFilesRow& like) {
  const auto found =
      std::find_if(report.smallFiles.begin(), report.smallFiles.end(),
                   [&](const SmallFilesRow& row) { return row.elements == like.elements; });
  return found->seconds;
}

void printSmallFiles(const Report& report) {
  std::printf("\nSmall files, opened and closed\n%-22s %8s %10s %14s\n", "", "elements", "us/file",
              "beyond system");
  for (const SmallFilesRow& row : report.smallFiles) {
    std::printf("%-22s %8zu %10.2f %14.2f\n", row.name.c_str(), row.elements, row.seconds * 1e6,
                (row.seconds - systemSeconds(report, row)) * 1e6);
  }
}

const HostRow* find(const Report& report, const std::string& host, const HostRow& like) {
  const auto found =
      std::find_if(report.hosts.begin(), report.hosts.end(), [&](const HostRow& row) {
        return row.host == host && row.work == like.work && row.elements == like.elements;
      });
  return found != report.hosts.end() ? &*found : nullptr;
}

void printHosts(const Report& report) {
  std::printf(
      "\nHosts, us an element and against the portable library\n%-12s %-16s %8s %10s %8s %10s\n",
      "", "", "elements", "us/elem", "ratio", "service");
  for (const HostRow& row : report.hosts) {
    const HostRow* const base = find(report, "portable", row);
    std::printf("%-12s %-16s %8.0f %10.2f", row.host.c_str(), row.work.c_str(), row.elements,
                row.seconds * 1e6);
    std::printf(" %7.2fx", base != nullptr ? row.seconds / base->seconds : 0.0);
    if (row.serviceShare >= 0) {
      std::printf(" %8.0f %%", row.serviceShare * 100);
    }
    std::printf("\n");
  }
  std::printf("\nservice: the part of the time inside Windows' document service\n");
}

void printProgram(const Report& report) {
  const ProgramRow& library = report.program.front();
  std::printf("\nThe program, processor time and peak memory\n%-16s %10s %8s %14s\n", "", "seconds",
              "ratio", "B/B of file");
  for (const ProgramRow& row : report.program) {
    std::printf("%-16s %10.3f %8.2f %14.2f\n", row.name.c_str(), row.seconds,
                row.seconds / library.seconds, row.peakBytes / row.fileBytes);
  }
  std::printf("\nratio: time against that of the library's own reading\n");
}

}  // namespace

void printTable(const Report& report) {
  if (!report.peers.empty()) {
    printPeers(report);
  }
  if (!report.growth.empty()) {
    printGrowth(report);
  }
  if (!report.hidden.empty()) {
    printHidden(report);
  }
  if (!report.smallFiles.empty()) {
    printSmallFiles(report);
  }
  if (!report.hosts.empty()) {
    printHosts(report);
  }
  if (!report.program.empty()) {
    printProgram(report);
  }
}

void writeJson(const Report& report, const std::string& path) {
  nlohmann::ordered_json json;
  json["elements"] = report.elements;
  json["rounds"] = report.rounds;
  for (const PeerRow& row : report.peers) {
    json["peers"].push_back({{"name", row.name},
                             {"fresh", jsonOf(row.fresh)},
                             {"warm", jsonOf(row.warm)},
                             {"writePeakBytes", row.writeBytes},
                             {"readPeakBytes", row.readBytes},
                             {"fileBytes", row.fileBytes}});
  }
  for (const GrowthRow& row : report.growth) {
    json["growth"].push_back({{"elements", row.elements},
                              {"writeSeconds", row.writeSeconds},
                              {"readSeconds", row.readSeconds}});
  }
  for (const HiddenRow& row : report.hidden) {
    json["hiddenBars"].push_back({{"bars", row.bars},
                                  {"others", row.others},
                                  {"searchSeconds", row.searchSeconds},
                                  {"exportSeconds", row.exportSeconds},
                                  {"hashSetSeconds", row.hashSetSeconds}});
  }
  for (const SmallFilesRow& row : report.smallFiles) {
    json["smallFiles"].push_back(
        {{"name", row.name}, {"elements", row.elements}, {"secondsAFile", row.seconds}});
  }
  for (const HostRow& row : report.hosts) {
    json["hosts"].push_back({{"host", row.host},
                             {"work", row.work},
                             {"elements", row.elements},
                             {"secondsAnElement", row.seconds},
                             {"serviceShare", row.serviceShare}});
  }
  for (const ProgramRow& row : report.program) {
    json["program"].push_back({{"command", row.name},
                               {"seconds", row.seconds},
                               {"peakBytes", row.peakBytes},
                               {"fileBytes", row.fileBytes}});
  }
  std::ofstream(path) << json.dump(2) << '\n';
}

}  // namespace bench
