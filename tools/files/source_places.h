// Where the nodes of a document stand in its source.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <tools/console/progress.h>
#include <tools/files/position.h>

namespace quorvan::tool {

/// A node that no reader expects where it stands.
struct StrayNode {
  Position position;
  std::string text;       // its beginning, as it stands in the source
  std::string className;  // of the class element around it; empty directly below the root
  std::string item;       // of the item around it; empty outside of items
};

struct SourcePlaces {
  std::vector<Position> elements;     // of the start tags, in the order of the file
  std::vector<StrayNode> beforeRoot;  // behind the declaration: all of them
  std::vector<StrayNode> below;       // the root: all that is neither element nor comment
  bool hasDeclarations = false;       // of entities or attributes, in a document type
};

/// Looks for the places in a well-formed document. `text` comes from plainText().
SourcePlaces findPlaces(std::string_view text, bool isSingleByte, Progress& progress);

}  // namespace quorvan::tool
