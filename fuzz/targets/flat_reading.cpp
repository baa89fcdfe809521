// Any bytes in memory, read by every flat reading function; the same once more gives the same.
#include <string_view>

#include <fuzz/memory_files.h>
#include <fuzz/target.h>
#include <tests/support/read_flat.h>

namespace {

std::uint64_t readOnce(const std::uint8_t* data, std::size_t size) {
  using quorvan::fuzz::require;
  QuorvanFile* file = nullptr;
  const int opened = quorvanOpenMemory(data, size, &file);
  require((opened == QUORVAN_DONE) == (file != nullptr), "a file is open or a reason is given");
  if (file == nullptr) {
    require(opened == QUORVAN_NOT_WELL_FORMED || opened == QUORVAN_BAD_ENCODING ||
                opened == QUORVAN_OVER_LIMIT,
            "the reason is one of bytes");
    require(opened == quorvanLastError() && *quorvanLastErrorText() != '\0', "the reason is kept");
    return 0;
  }
  quorvan::test::FlatReading reading;
  readFlat(file, reading);
  require(reading.isAsPromised, "every result is one that the function gives");
  // Elements are found again by their class, at their places.
  QuorvanElement* first = nullptr;
  if (quorvanNextElement(file, nullptr, &first) == QUORVAN_DONE) {
    QuorvanElement* same = nullptr;
    require(quorvanNextElement(file, quorvanElementClass(first), &same) == QUORVAN_DONE &&
                quorvanElementPlace(same) == 0,
            "the first element is the first of its class");
    for (std::size_t i = quorvanItemCount(first); i > 0; --i) {
      const QuorvanItem* const item = quorvanItemAt(first, i - 1);
      const QuorvanItem* const found = quorvanItem(first, quorvanItemName(item));
      require(found != nullptr && std::string_view(quorvanItemName(found)) == quorvanItemName(item),
              "an item is found by its name");
    }
  }
  quorvanCloseFile(file);
  return reading.sum;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto first = readOnce(data, size);
  const auto second = readOnce(data, size);
  quorvan::fuzz::require(first == second, "reading has no memory");
  return 0;
}
