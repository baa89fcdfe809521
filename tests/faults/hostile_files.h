// Files made to hurt their reader.
#pragma once

#include <cstddef>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

namespace quorvan::test {

/// A kind of hostile file.
struct HostileFile {
  const char* name;
  std::size_t size;  // of the attack, in whatever `make` counts
  bool isTaken;      // or refused, and then like no file
  std::function<void(std::ofstream& file, std::size_t size)> make;

  /// Writes one of that size.
  void write(const std::string& path, std::size_t wanted) const;
};

/// One of each kind: deep, wide, long, full of entities, in no encoding.
const std::vector<HostileFile>& hostileFiles();

/// The contents of files that name others, `where` one of them may be.
std::vector<std::string> filesThatName(const std::string& where);

}  // namespace quorvan::test
