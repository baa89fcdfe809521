// The element classes as readers in every language have them, from the item tables.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include <quorvan/reading/read.h>

namespace quorvan::tool {

/// What a reader keeps of an item.
struct ReaderMember {
  std::string_view item;  // its name in the file; empty for the second member of one item
  std::string_view name;  // its words with capitals, "HookLength1"; each language has its spelling
  QuorvanKind kind;
};

/// An element class.
struct ReaderClass {
  std::string_view className;  // in the file: "CKtZantoLine"
  std::string_view name;       // "Line"
  std::string description;     // sentences
  bool isBar = false;
  std::vector<ReaderMember> members;  // its own, without those of all bars
};

struct ReaderClasses {
  std::vector<ReaderMember> ofBars;  // what every bar and link has
  std::vector<ReaderClass> all;      // in the order of the class numbers
};

/// The classes of the tables, described as the first lines of their headers below `sources`, the
/// folder of the project, do. Raises Failure for a header without such a line.
ReaderClasses readerClasses(const std::filesystem::path& sources);

}  // namespace quorvan::tool
