// The sample with one fault each, seeded at a known place.
#pragma once

#include <iosfwd>
#include <span>
#include <string>

namespace quorvan::test {

struct SeededFault {
  int code;               // of the finding
  std::string severity;   // its severity
  std::string from;       // what stands in the sample
  std::string to;         // what is put there
  std::string mark;       // where the finding is to be: the beginning of this text
  std::string className;  // what it is to be about
  std::string index;
  std::string item;
  std::string found;  // what it is to say
  std::string expected;
  bool isMended;  // whether --repair leaves nothing of it
};

/// Names the fault by its number and its place.
void PrintTo(const SeededFault& fault, std::ostream* out);

/// At least one for each kind of finding.
std::span<const SeededFault> seededFaults();

/// The sample with the fault in it.
std::string fileWith(const SeededFault& fault);

}  // namespace quorvan::test
