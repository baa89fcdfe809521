// Where the rules for a record put what they find.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include <tools/bvbs/record.h>
#include <tools/check/finding.h>

namespace quorvan::tool::bvbs {

class RecordSink {
 public:
  RecordSink(const Record& record, std::uint32_t line, std::vector<Finding>& findings)
      : m_record(record), m_line(line), m_findings(findings) {}

  /// About what stands at a place of the line, in bytes from 0. `item` is the block and, behind a
  /// blank, the field: "H l".
  void add(const FindingKind& kind, std::size_t at, std::string item, std::string found,
           std::string expected) {
    m_findings.push_back({&kind,
                          {m_line, static_cast<std::uint32_t>(at) + 1},
                          std::string(m_record.kind == nullptr ? "" : m_record.kind->name),
                          std::string(m_record.header('p')),
                          std::move(item),
                          std::move(found),
                          std::move(expected)});
  }

 private:
  const Record& m_record;
  std::uint32_t m_line;
  std::vector<Finding>& m_findings;
};

/// The header: fields, their order and their numbers.
void checkHeader(const Record& record, const Block& header, RecordSink& sink);

/// The geometry, and whether it can be bent and fits the header.
void checkGeometry(const Record& record, const Block& geometry, RecordSink& sink);

/// The mass of a bar against its length and diameter.
void checkMass(const Record& record, RecordSink& sink);

/// The bars of a mesh or girder.
void checkBars(const Block& bars, RecordSink& sink);

}  // namespace quorvan::tool::bvbs
