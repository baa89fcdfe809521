// A whole drawing through the flat reading functions, without memory of its own.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include <quorvan/reading/read.h>

namespace quorvan::test {

/// What was found, as one number, and how many calls found memory run out.
struct FlatReading {
  std::uint64_t sum = 14695981039346656037U;
  int outOfMemory = 0;
  int elements = 0;
  bool isAsPromised = true;  // no result came that the function does not give

  void take(std::string_view bytes) noexcept {
    for (const char byte : bytes) {
      sum = (sum ^ static_cast<unsigned char>(byte)) * 1099511628211U;
    }
  }
  void take(std::uint64_t number) noexcept { sum = (sum ^ number) * 1099511628211U; }

  /// Whether the call was done; `result` is what it gave.
  bool isDone(int result) noexcept {
    outOfMemory += result == QUORVAN_OUT_OF_MEMORY ? 1 : 0;
    isAsPromised = isAsPromised && (result == QUORVAN_DONE || result == QUORVAN_OUT_OF_MEMORY ||
                                    result == QUORVAN_OTHER_KIND || result == QUORVAN_INCOMPLETE ||
                                    result == QUORVAN_NO_ROOM || result == QUORVAN_NO_MORE);
    take(static_cast<std::uint64_t>(result));
    return result == QUORVAN_DONE;
  }
};

/// Reads the item by every function.
inline void readItem(const QuorvanItem* item, FlatReading& reading) noexcept {
  std::array<double, 48> numbers{};
  std::int32_t number = 0;
  std::uint32_t color = 0;
  int flag = 0;
  const char* text = "";
  const wchar_t* wide = L"";
  std::size_t count = 0;
  reading.take(quorvanItemName(item));
  reading.take(static_cast<std::uint64_t>(quorvanItemKind(item)));
  if (reading.isDone(quorvanReadLong(item, &number)) &&
      reading.isDone(quorvanReadColor(item, &color))) {
    reading.take(static_cast<std::uint32_t>(number) ^ (std::uint64_t{color} << 32U));
  }
  if (reading.isDone(quorvanReadFlag(item, &flag))) {
    reading.take(static_cast<std::uint64_t>(flag));
  }
  if (reading.isDone(quorvanReadText(item, &text, &count))) {
    reading.take(std::string_view(text, count));
  }
  if (reading.isDone(quorvanReadWideText(item, &wide, &count))) {
    reading.take(count);
  }
  reading.isDone(quorvanReadDouble(item, numbers.data()));
  reading.isDone(quorvanReadPoint(item, numbers.data() + 1));
  reading.isDone(quorvanReadSize(item, &number));
  reading.isDone(quorvanReadPoints(item, numbers.data() + 4, 10, &count));
  reading.isDone(quorvanReadBulges(item, numbers.data() + 34, 2, &count));
  reading.isDone(quorvanReadDoubles(item, numbers.data() + 40, 8, &count));
  for (const double value : numbers) {
    reading.take(std::bit_cast<std::uint64_t>(value));
  }
}

/// Walks all elements; where memory runs out on the way, the same step is tried again.
inline void readFlat(QuorvanFile* file, FlatReading& reading) noexcept {
  QuorvanElement* element = nullptr;
  for (int tries = 0; tries < 100;) {
    const int result = quorvanNextElement(file, nullptr, &element);
    if (result == QUORVAN_OUT_OF_MEMORY) {
      ++reading.outOfMemory;
      ++tries;
      continue;
    }
    if (!reading.isDone(result)) {
      return;
    }
    ++reading.elements;
    reading.take(quorvanElementClass(element));
    reading.take(static_cast<std::uint32_t>(quorvanElementIndex(element)));
    reading.take(static_cast<std::uint32_t>(quorvanElementVersion(element)));
    reading.take(quorvanElementPlace(element));
    for (std::size_t i = 0; i < quorvanItemCount(element); ++i) {
      readItem(quorvanItemAt(element, i), reading);
    }
  }
}

}  // namespace quorvan::test
