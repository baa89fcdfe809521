#include <tools/bvbs/record.h>

#include <algorithm>
#include <string>

#include <quorvan/text/numbers.h>

namespace quorvan::tool::bvbs {

namespace {

constexpr std::size_t kKindLength = 4;

bool isCapital(char letter) {
  return letter >= 'A' && letter <= 'Z';
}

bool isSmall(char letter) {
  return letter >= 'a' && letter <= 'z';
}

// The @ that closes the block whose text begins at `begin`; the line's end without one.
std::size_t endOfBlock(std::string_view line, std::size_t begin) {
  std::size_t at = line.find('@', begin);
  while (at != std::string_view::npos && at + 1 < line.size() && !isCapital(line[at + 1])) {
    at = line.find('@', at + 1);
  }
  return std::min(at, line.size());
}

void readFields(Block& block, std::size_t begin, std::vector<RecordFault>& faults) {
  std::size_t at = 0;
  while (at <= block.text.size()) {
    const std::size_t end = std::min(block.text.find('@', at), block.text.size());
    const std::string_view field = block.text.substr(at, end - at);
    if (field.empty() || !isSmall(field.front())) {
      faults.push_back({RecordFaultKind::kFieldLetter, begin + at});
    } else {
      block.fields.push_back({field.front(), field.substr(1), begin + at});
    }
    at = end + 1;
  }
}

// The geometry of a mesh says which bars are bent, where a field follows at once.
bool hasDirection(const Record& record, char letter, std::string_view text) {
  return letter == 'G' && record.kind->geometry == GeometryForm::kMesh && text.size() > 1 &&
         (text[0] == 'x' || text[0] == 'y') && isSmall(text[1]);
}

void readBlock(Record& record, std::size_t at, std::size_t end) {
  Block block{record.line[at], 0, at, record.line.substr(at + 1, end - at - 1)};
  std::size_t begin = at + 1;
  if (hasDirection(record, block.letter, block.text)) {
    block.direction = block.text.front();
    block.text.remove_prefix(1);
    ++begin;
  }
  if (block.letter != 'P' && block.letter != 'C') {
    readFields(block, begin, record.faults);
  }
  record.blocks.push_back(std::move(block));
}

}  // namespace

const Field* Block::find(char wanted) const noexcept {
  const auto found = std::ranges::find(fields, wanted, &Field::letter);
  return found == fields.end() ? nullptr : &*found;
}

const Block* Record::find(char letter) const noexcept {
  const auto found = std::ranges::find(blocks, letter, &Block::letter);
  return found == blocks.end() ? nullptr : &*found;
}

std::string_view Record::header(char letter) const noexcept {
  const Block* const block = find('H');
  const Field* const field = block == nullptr ? nullptr : block->find(letter);
  return field == nullptr ? std::string_view() : field->value;
}

Record readRecord(std::string_view line) {
  Record record;
  record.line = line;
  record.kind = recordKindNamed(line.substr(0, kKindLength));
  if (record.kind == nullptr || line.size() == kKindLength || line[kKindLength] != '@') {
    record.kind = nullptr;
    record.faults.push_back({RecordFaultKind::kUnknownKind, 0});
    return record;
  }
  std::size_t at = kKindLength + 1;
  while (at < line.size()) {
    const std::size_t end = endOfBlock(line, at);
    if (isCapital(line[at])) {
      readBlock(record, at, end);
    } else {
      record.faults.push_back({RecordFaultKind::kNoBlock, at});
    }
    at = end + 1;
  }
  if (line.back() != '@') {
    record.faults.push_back({RecordFaultKind::kNotClosed, line.size()});
  }
  return record;
}

std::optional<double> numberIn(std::string_view value) {
  std::string text(value);
  std::ranges::replace(text, ',', '.');
  const std::size_t first = text.starts_with('-') ? 1 : 0;
  const std::size_t point = text.find('.');
  const bool isNumber =
      text.size() > first && text.size() < 20 &&
      text.find_first_not_of("0123456789.", first) == std::string::npos &&
      (point == std::string::npos || (point > first && point + 1 < text.size() &&
                                      text.find('.', point + 1) == std::string::npos));
  return isNumber ? std::optional(parseDouble(text)) : std::nullopt;
}

}  // namespace quorvan::tool::bvbs
