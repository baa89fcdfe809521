// The results, as a table for people and as JSON for programs.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <bench/measure.h>
#include <bench/small_files.h>

namespace bench {

// In one kind of process.
struct PeerTimes {
  Timing write;
  Timing read;
};

struct PeerRow {
  std::string name;
  std::optional<PeerTimes> fresh;  // each run in a process of its own
  std::optional<PeerTimes> warm;   // in one process that has written and read before
  double writeBytes = 0;           // peak memory
  double readBytes = 0;
  double fileBytes = 0;
};

struct GrowthRow {
  double elements = 0;
  double writeSeconds = 0;
  double readSeconds = 0;
};

struct HiddenRow {
  double bars = 0;
  double others = 0;
  double searchSeconds = 0;
  double exportSeconds = 0;
  double hashSetSeconds = 0;
};

// What a host did, and what each element cost it.
struct HostRow {
  std::string host;
  std::string work;
  double elements = 0;
  double seconds = 0;
  double serviceShare =
      -1;  // of the time, inside Windows' document service; -1 where there is none
};

// A command of the program, or the library's own reading of the same file.
struct ProgramRow {
  std::string name;
  double seconds = 0;    // of the processor
  double peakBytes = 0;  // of the whole process
  double fileBytes = 0;
};

struct Report {
  double elements = 0;
  int rounds = 0;
  std::vector<PeerRow> peers;
  std::vector<GrowthRow> growth;
  std::vector<HiddenRow> hidden;
  std::vector<SmallFilesRow> smallFiles;
  std::vector<HostRow> hosts;
  std::vector<ProgramRow> program;  // the library first
};

void printTable(const Report& report);
void writeJson(const Report& report, const std::string& path);

}  // namespace bench
