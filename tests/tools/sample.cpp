#include <tests/support/test_data.h>
#include <tests/tools/sample.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include <tests/support/saved_file.h>

namespace quorvan::test {

std::string sampleBytes() {
  return fileBytes(quorvan::test::dataPath("tools/golden/sample.xml"));
}

std::string sampleDrawing() {
  return fileBytes(quorvan::test::dataPath("tools/data/sample.json"));
}

void writeFile(const std::string& name, const std::string& bytes) {
  std::ofstream(name, std::ios::binary) << bytes;
}

void writeSample() {
  writeFile("sample.xml", sampleBytes());
}

std::string replaced(const std::string& text, const std::string& from, const std::string& to) {
  const std::size_t at = text.find(from);
  EXPECT_NE(at, std::string::npos) << from;
  if (at == std::string::npos) {
    return text;
  }
  return text.substr(0, at) + to + text.substr(at + from.size());
}

Place placeOf(const std::string& text, const std::string& mark) {
  const std::size_t at = text.find(mark);
  EXPECT_NE(at, std::string::npos) << mark;
  const std::string before = text.substr(0, std::min(at, text.size()));
  const auto lines = static_cast<std::uint32_t>(std::count(before.begin(), before.end(), '\n'));
  const std::size_t lineBegin = before.rfind('\n') + 1;
  return {lines + 1, static_cast<std::uint32_t>(before.size() - lineBegin + 1)};
}

}  // namespace quorvan::test
