// A transfer file in memory, for every sub-command: the one way in which this program reads.
//
// The file is opened by the document service for reading alone and let go before anything else
// happens; no filer is opened on it, because closing one saves it back.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include <quorvan/elements/element_classes.h>

#include <tools/console/console.h>
#include <tools/files/document_tree.h>
#include <tools/files/input_file.h>
#include <tools/files/source_places.h>
#include <tools/files/source_text.h>
#include <tools/files/well_formedness.h>

namespace quorvan::tool {

/// One class element of the file.
struct Element {
  const Node* node = nullptr;
  const items::ElementSchema* schema = nullptr;  // null for a class that is not known
  std::string_view name = {};
  std::uint32_t ordinal = 0;  // from 1 among those of its name
  std::uint32_t place = 0;    // from 0 among all

  [[nodiscard]] std::string_view className() const noexcept { return name; }
  [[nodiscard]] bool is(items::ElementClass id) const noexcept {
    return schema != nullptr && schema->id == id;
  }
};

/// The file is not a well-formed document.
class NotWellFormed : public Failure {
 public:
  NotWellFormed(const std::string& file, Refusal refusal);
  [[nodiscard]] const Refusal& refusal() const noexcept { return m_refusal; }

 private:
  Refusal m_refusal;
};

/// What is read that programs on the library would not read.
enum class Tolerance : std::uint8_t { kNone, kForbiddenCharacters };

class TransferFile {
 public:
  /// Reads the file. Raises NotWellFormed, or Failure when it cannot be read at all. Elements that
  /// readers of the library would not find are warned of on `console`.
  TransferFile(const InputFile& input, Console& console, Tolerance tolerance = Tolerance::kNone);
  TransferFile(const std::string& name, Console& console, Tolerance tolerance = Tolerance::kNone)
      : TransferFile(InputFile(name), console, tolerance) {}

  /// The name as it was given.
  [[nodiscard]] const std::string& name() const noexcept { return m_name; }
  [[nodiscard]] std::uint64_t size() const noexcept { return m_size; }
  [[nodiscard]] const SourceEncoding& encoding() const noexcept { return m_encoding; }
  [[nodiscard]] const DocumentTree& tree() const noexcept { return m_tree; }
  [[nodiscard]] const std::vector<Element>& elements() const noexcept { return m_elements; }

  /// Name of the node in front of the root element that readers take for it, and find no element
  /// in; empty when there is none.
  [[nodiscard]] const std::string& nodeBeforeRoot() const noexcept { return m_nodeBeforeRoot; }

  /// Whether the source says all there is, each at its place: nothing comes out of entities or
  /// declared attributes.
  [[nodiscard]] bool isPlain() const noexcept { return m_isPlaced && !m_places.hasDeclarations; }

  /// What stands between the declaration and the root element.
  [[nodiscard]] const std::vector<StrayNode>& nodesBeforeRoot() const noexcept {
    return m_places.beforeRoot;
  }
  /// What stands below the root element and is neither element nor comment.
  [[nodiscard]] const std::vector<StrayNode>& nodesBelowRoot() const noexcept {
    return m_places.below;
  }

  /// Where characters stood that XML forbids and that were tolerated; U+FFFD is read there.
  [[nodiscard]] const std::vector<Position>& forbiddenCharacters() const noexcept {
    return m_forbiddenCharacters;
  }

  /// The text of the "index" attribute; empty without one.
  [[nodiscard]] std::string_view indexOf(const Element& element) const noexcept;

 private:
  [[nodiscard]] bool load(const std::filesystem::path& path, Progress& progress);
  [[nodiscard]] bool loadCleaned(const std::string& bytes, Progress& progress);
  void collectElements();

  std::string m_name;
  std::uint64_t m_size = 0;
  SourceEncoding m_encoding;
  SourcePlaces m_places;
  bool m_isPlaced = false;
  DocumentTree m_tree;
  std::vector<Element> m_elements;
  std::string m_nodeBeforeRoot;
  std::vector<Position> m_forbiddenCharacters;
};

/// The last drawing control record of the file; null without one.
const Element* controlRecord(const TransferFile& file);

}  // namespace quorvan::tool
