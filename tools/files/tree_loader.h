// Brings a file from the document service into a tree of its own.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include <tools/console/progress.h>
#include <tools/files/document_tree.h>

namespace quorvan::tool {

struct DocumentLoad {
  bool isWellFormed = false;
  bool isPlaced = false;  // every element has its place in the source
  DocumentTree tree;
  std::string nodeBeforeRoot;  // that readers take for the root element; empty when there is none
};

/// Loads the document, without ever saving it. `positions` are those of its start tags; they are
/// left out where their number is not that of the elements. Raises Failure when the service fails.
DocumentLoad loadDocument(const std::filesystem::path& path, const std::vector<Position>& positions,
                          Progress& progress);

}  // namespace quorvan::tool
