#include <algorithm>
#include <cmath>
#include <optional>

#include <tools/bvbs/checking/abs_findings.h>
#include <tools/bvbs/checking/record_sink.h>

namespace quorvan::tool::bvbs {

namespace {

constexpr std::string_view kNumbers = "lnedsbhat";  // fields that are numbers
constexpr std::string_view kWhole = "lbh";          // in whole millimetres
constexpr std::string_view kAboveZero = "lnedsbh";

std::string itemOf(char letter) {
  return std::string("H ") + letter;
}

void checkValue(const Field& field, RecordSink& sink) {
  if (field.value.empty() || kNumbers.find(field.letter) == std::string_view::npos) {
    return;
  }
  const std::string text(field.value);
  const std::optional<double> number = numberIn(field.value);
  const bool isCount = field.letter == 'n';
  if (!number || (isCount && *number != std::floor(*number))) {
    return sink.add(findings::kNoNumber, field.at, itemOf(field.letter), '"' + text + '"',
                    isCount ? "a whole number" : "a number");
  }
  if (text.find(',') != std::string::npos) {
    sink.add(findings::kDecimalComma, field.at, itemOf(field.letter), text, "a point");
  }
  if (kAboveZero.find(field.letter) != std::string_view::npos && !(*number > 0.0)) {
    sink.add(findings::kOutOfRange, field.at, itemOf(field.letter), text, "more than 0");
  } else if (kWhole.find(field.letter) != std::string_view::npos &&
             *number != std::floor(*number)) {
    sink.add(findings::kNotWhole, field.at, itemOf(field.letter), text, "whole millimetres");
  }
}

void checkOrder(const Record& record, const Block& header, RecordSink& sink) {
  const std::string letters = std::string(record.kind->header) + std::string(record.kind->optional);
  std::size_t next = 0;
  for (const Field& field : header.fields) {
    const std::size_t place = letters.find(field.letter);
    if (place == std::string::npos) {
      sink.add(findings::kStrangeField, field.at, itemOf(field.letter),
               std::string(1, field.letter) + std::string(field.value), "one of " + letters);
      continue;
    }
    if (place < next) {
      sink.add(findings::kFieldOrder, field.at, itemOf(field.letter),
               std::string(1, field.letter) + " behind " + letters[next - 1], letters);
    }
    next = std::max(next, place + 1);
  }
}

}  // namespace

void checkHeader(const Record& record, const Block& header, RecordSink& sink) {
  checkOrder(record, header, sink);
  for (const char letter : record.kind->header) {
    if (header.find(letter) == nullptr) {
      sink.add(findings::kMissingField, header.at, itemOf(letter), "none",
               std::string(1, letter) + '@');
    }
  }
  for (const Field& field : header.fields) {
    checkValue(field, sink);
  }
}

void checkBars(const Block& bars, RecordSink& sink) {
  constexpr std::string_view kPlaces = "xyl";
  for (const Field& field : bars.fields) {
    if (kPlaces.find(field.letter) == std::string_view::npos) {
      continue;
    }
    const std::string item = std::string(1, bars.letter) + ' ' + field.letter;
    const std::optional<double> number = numberIn(field.value);
    if (!number) {
      sink.add(findings::kNoNumber, field.at, item, '"' + std::string(field.value) + '"',
               "a number");
    } else if (*number < 0.0) {
      sink.add(findings::kOutOfRange, field.at, item, std::string(field.value), "0 or more");
    }
  }
}

}  // namespace quorvan::tool::bvbs
