#include <tests/tools/loaded_file.h>

#include <tests/support/transfer_text.h>
#include <tests/tools/sample.h>
#include <tools/model/item_reader.h>

namespace quorvan::test {

namespace {

constexpr const char* kLoadedName = "loaded.xml";

const char* writeLoaded(const std::string& bytes) {
  writeFile(kLoadedName, bytes);
  return kLoadedName;
}

}  // namespace

LoadedFile::LoadedFile(const std::string& bytes, tool::Tolerance tolerance)
    : m_file(writeLoaded(bytes), m_console, tolerance) {}

std::vector<tool::ItemValue> LoadedFile::items(std::size_t place) const {
  tool::ItemReader reader(m_file);
  return reader.read(element(place));
}

std::vector<tool::ItemProblem> LoadedFile::problems(std::size_t place) const {
  tool::ItemReader reader(m_file);
  std::vector<tool::ItemProblem> problems;
  reader.read(element(place), &problems);
  return problems;
}

LoadedFile loadedElements(const std::string& elements) {
  return LoadedFile(transferFile(elements));
}

}  // namespace quorvan::test
