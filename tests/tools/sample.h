// A drawing with an element of every class, and files made from it with a fault at a known place.
#pragma once

#include <cstdint>
#include <string>

namespace quorvan::test {

/// The bytes of the sample as a transfer file: tests/tools/golden/sample.xml.
std::string sampleBytes();

/// The drawing JSON that it was made of.
std::string sampleDrawing();

/// Writes a file into the current folder.
void writeFile(const std::string& name, const std::string& bytes);

/// Writes the sample as "sample.xml".
void writeSample();

/// The text with the first `from` replaced by `to`. Fails the test when it is not there.
std::string replaced(const std::string& text, const std::string& from, const std::string& to);

/// Line and column, from 1, of the first `mark` in a text of one byte a character.
struct Place {
  std::uint32_t line;
  std::uint32_t column;

  friend bool operator==(const Place&, const Place&) = default;
};
Place placeOf(const std::string& text, const std::string& mark);

}  // namespace quorvan::test
