#include <tools/files/transfer_file.h>

#include <memory>
#include <optional>
#include <unordered_map>
#include <utility>

#include <quorvan/filer/vocabulary.h>

#include <tools/console/terminal.h>
#include <tools/files/forbidden_characters.h>
#include <tools/files/plain_source.h>
#include <tools/files/refusal_wording.h>
#include <tools/files/temporary_folder.h>
#include <tools/files/tree_loader.h>
#include <tools/text/keyed_hash.h>
#include <tools/text/table.h>

namespace quorvan::tool {

namespace {

std::string whereAndWhy(const std::string& file, const Refusal& refusal) {
  std::string text = file;
  if (refusal.position.line != 0) {
    text +=
        ':' + std::to_string(refusal.position.line) + ':' + std::to_string(refusal.position.column);
  }
  return text + ": not well-formed: " + refusal.reason;
}

}  // namespace

NotWellFormed::NotWellFormed(const std::string& file, Refusal refusal)
    : Failure(whereAndWhy(file, refusal)), m_refusal(std::move(refusal)) {}

TransferFile::TransferFile(const InputFile& input, Console& console, Tolerance tolerance)
    : m_name(input.name()) {
  const std::filesystem::path& path = input.path();
  Progress progress(console, "reading " + printable(m_name));
  auto source = std::make_shared<const std::string>(readBytes(path, m_name));
  m_size = source->size();
  m_encoding = encodingOf(*source);
  if (std::optional<DocumentTree> tree = readPlainSource(source, m_encoding, progress)) {
    m_tree = *std::move(tree);
    m_isPlaced = true;
    collectElements();
    return;
  }
  m_places = findPlaces(plainText(*source, m_encoding), m_encoding.isSingleByte, progress);
  source.reset();
  if (!load(path, progress)) {
    const std::string bytes = readBytes(path, m_name);
    if (tolerance == Tolerance::kNone || !loadCleaned(bytes, progress)) {
      throw NotWellFormed(m_name, inWords(findRefusal(path, bytes), bytes));
    }
  }
  m_places.elements = {};
  collectElements();
  if (!m_nodeBeforeRoot.empty() && tolerance == Tolerance::kNone) {
    console.err << printable(m_name) << ": warning: \"" << printable(m_nodeBeforeRoot)
                << "\" stands before the root element: programs that read this file find no "
                   "element in it\n";
  }
}

bool TransferFile::load(const std::filesystem::path& path, Progress& progress) {
  DocumentLoad loaded = loadDocument(path, m_places.elements, progress);
  m_tree = std::move(loaded.tree);
  m_isPlaced = loaded.isPlaced;
  m_nodeBeforeRoot = std::move(loaded.nodeBeforeRoot);
  return loaded.isWellFormed;
}

bool TransferFile::loadCleaned(const std::string& bytes, Progress& progress) {
  CleanedText cleaned =
      withoutForbiddenCharacters(plainText(bytes, m_encoding), m_encoding.isSingleByte);
  if (cleaned.places.empty()) {
    return false;
  }
  const TemporaryFolder folder(std::filesystem::temp_directory_path());
  const std::filesystem::path copy = folder.path() / "cleaned.xml";
  writeBytes(copy, sourceBytes(cleaned.text, m_encoding));
  m_forbiddenCharacters = std::move(cleaned.places);
  return load(copy, progress);
}

void TransferFile::collectElements() {
  struct Class {
    const items::ElementSchema* schema = nullptr;
    std::uint32_t count = 0;
  };
  std::unordered_map<std::string_view, Class, KeyedHash> classes;
  for (const Node* node = m_tree.firstChild(m_tree.root()); node != nullptr;
       node = m_tree.nextSibling(*node)) {
    if (!node->isElement()) {
      continue;
    }
    const std::string_view name = m_tree.name(*node);
    Class& known = classes[name];
    if (known.count++ == 0) {
      known.schema = items::findElement(name);
    }
    m_elements.push_back(
        {node, known.schema, name, known.count, static_cast<std::uint32_t>(m_elements.size())});
  }
}

std::string_view TransferFile::indexOf(const Element& element) const noexcept {
  return m_tree.attribute(*element.node, filer::kIndexName.text()).value_or(std::string_view());
}

const Element* controlRecord(const TransferFile& file) {
  for (auto element = file.elements().rbegin(); element != file.elements().rend(); ++element) {
    if (element->is(items::ElementClass::kDrawingControl)) {
      return &*element;
    }
  }
  return nullptr;
}

}  // namespace quorvan::tool
