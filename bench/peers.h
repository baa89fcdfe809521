// The libraries measured side by side. Each does the same work: writes the drawing as a transfer
// file from the elements' values, and reads it back by looking up every item of every element by
// name, class after class.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <bench/drawing.h>

namespace bench {

struct Peer {
  std::string name;
  void (*write)(const Drawing& drawing, const std::string& path);
  std::uint64_t (*read)(const std::string& path);  // gives the checksum of what was read
};

void writeQuorvan(const Drawing& drawing, const std::string& path);
std::uint64_t readQuorvan(const std::string& path);
/// The same through the flat reading functions.
std::uint64_t readFlat(const std::string& path);
void writePugixml(const Drawing& drawing, const std::string& path);
std::uint64_t readPugixml(const std::string& path);
void writeTinyxml2(const Drawing& drawing, const std::string& path);
std::uint64_t readTinyxml2(const std::string& path);
void writeLibxml2(const Drawing& drawing, const std::string& path);
std::uint64_t readLibxml2(const std::string& path);
/// The same with its reader, which holds one element at a time.
std::uint64_t readLibxml2Reader(const std::string& path);
void writeXerces(const Drawing& drawing, const std::string& path);
std::uint64_t readXerces(const std::string& path);

/// No tree at all: the values straight into one buffer, and a scan that takes them in the order of
/// the file. What no general reader or writer can reach.
void writeLimit(const Drawing& drawing, const std::string& path);
std::uint64_t readLimit(const std::string& path);

const std::vector<Peer>& peers();

}  // namespace bench
