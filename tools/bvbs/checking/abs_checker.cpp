#include <tools/bvbs/checking/abs_checker.h>

#include <algorithm>
#include <optional>

#include <tools/bvbs/checking/abs_findings.h>
#include <tools/bvbs/checking/record_sink.h>
#include <tools/bvbs/data_file.h>

namespace quorvan::tool::bvbs {

namespace {

const FindingKind& kindOf(RecordFaultKind fault) {
  switch (fault) {
    case RecordFaultKind::kUnknownKind:
      return findings::kNoRecord;
    case RecordFaultKind::kNoBlock:
      return findings::kNoBlock;
    case RecordFaultKind::kFieldLetter:
      return findings::kFieldLetter;
    case RecordFaultKind::kNotClosed:
      return findings::kNotClosed;
  }
  return findings::kNoRecord;
}

std::string_view expectedAt(RecordFaultKind fault) {
  switch (fault) {
    case RecordFaultKind::kUnknownKind:
      return "a kind of record and @";
    case RecordFaultKind::kNoBlock:
      return "the capital letter of a block";
    case RecordFaultKind::kFieldLetter:
      return "the small letter of a field";
    case RecordFaultKind::kNotClosed:
      return "@";
  }
  return {};
}

// What stands at a place, as far as a report needs it.
std::string excerpt(std::string_view line, std::size_t at) {
  constexpr std::size_t kMost = 12;
  if (at >= line.size()) {
    return "the end of the line";
  }
  return '"' + std::string(line.substr(at, kMost)) + '"';
}

bool isRepeatable(char block) {
  return block == 'X' || block == 'Y' || block == 'E';
}

// G and A stand in each other's place, bars in any order.
std::size_t rankOf(char block) {
  const char as = block == 'A' ? 'G' : isRepeatable(block) ? 'X' : block;
  return kBlockLetters.find(as);
}

void checkBlockOrder(const Record& record, RecordSink& sink) {
  std::size_t last = 0;
  char before = 0;
  for (const Block& block : record.blocks) {
    const std::string name(1, block.letter);
    const std::size_t rank = rankOf(block.letter);
    if (rank == std::string_view::npos) {
      sink.add(findings::kUnknownBlock, block.at, name, name, std::string(kBlockLetters));
      continue;
    }
    if (before != 0 && (rank < last || (rank == last && !isRepeatable(block.letter)))) {
      sink.add(findings::kBlockOrder, block.at, name, name + " behind " + before,
               "H, G or A, M, X Y E, P, C");
    }
    last = std::max(last, rank);
    before = block.letter;
  }
  for (const char needed : {'H', 'C'}) {
    if (record.find(needed) == nullptr) {
      sink.add(findings::kMissingBlock, 0, std::string(1, needed), "none", std::string(1, needed));
    }
  }
}

void checkSum(const Record& record, RecordSink& sink) {
  const Block* const block = record.find('C');
  if (block == nullptr) {
    return;
  }
  const std::string expected = std::to_string(checksumOf(record.line.substr(0, block->at + 1)));
  const std::optional<double> number = numberIn(block->text);
  if (!number) {
    sink.add(findings::kNoNumber, block->at, "C", '"' + std::string(block->text) + '"', expected);
  } else if (block->text != expected) {
    sink.add(findings::kChecksum, block->at, "C", std::string(block->text), expected);
  }
}

void checkCharacters(const Record& record, RecordSink& sink) {
  const auto strange = std::ranges::find_if(record.line, [](char one) {
    return static_cast<unsigned char>(one) >= 0x7F || static_cast<unsigned char>(one) < 0x20;
  });
  if (strange != record.line.end()) {
    sink.add(findings::kNotAscii, static_cast<std::size_t>(strange - record.line.begin()), {},
             "byte " + std::to_string(static_cast<unsigned char>(*strange)), "32 to 126");
  }
  if (record.line.size() > kLongestRecord) {
    sink.add(findings::kLongRecord, kLongestRecord, {},
             std::to_string(record.line.size()) + " characters",
             std::to_string(kLongestRecord) + " at the most");
  }
}

void checkRecord(const Record& record, RecordSink& sink) {
  for (const RecordFault& fault : record.faults) {
    sink.add(kindOf(fault.kind), fault.at, {}, excerpt(record.line, fault.at),
             std::string(expectedAt(fault.kind)));
  }
  checkCharacters(record, sink);
  if (record.kind == nullptr) {
    return;
  }
  checkBlockOrder(record, sink);
  checkSum(record, sink);
  for (const Block& block : record.blocks) {
    if (block.letter == 'H') {
      checkHeader(record, block, sink);
      checkMass(record, sink);
    } else if (block.letter == 'G') {
      checkGeometry(record, block, sink);
    } else if (isRepeatable(block.letter)) {
      checkBars(block, sink);
    }
  }
}

}  // namespace

std::vector<Finding> checkBendingData(std::string_view bytes) {
  std::vector<Finding> found;
  const std::vector<DataLine> lines = linesOf(bytes);
  if (lines.empty()) {
    found.push_back({&findings::kEmptyFile, {1, 1}, {}, {}, {}, "none", "a record a line"});
  }
  bool isToldOfLineEnds = false;
  for (const DataLine& line : lines) {
    const Record record = readRecord(line.text);
    RecordSink sink(record, line.number, found);
    checkRecord(record, sink);
    if (!line.hasReturn && !isToldOfLineEnds) {
      sink.add(findings::kLineEnd, line.text.size(), {}, "LF", "CRLF");
      isToldOfLineEnds = true;
    }
  }
  sortByPlace(found);
  return found;
}

}  // namespace quorvan::tool::bvbs
