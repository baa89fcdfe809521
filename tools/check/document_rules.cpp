#include <algorithm>

#include <quorvan/elements/items/item_words.h>
#include <quorvan/filer/vocabulary.h>
#include <quorvan/text/numbers.h>

#include <tools/check/rules.h>
#include <tools/model/control_members.h>
#include <tools/model/item_text.h>

namespace quorvan::tool {

namespace {

// The index behind `index`, with the 16 bits in which it is filed.
std::int32_t following(std::int32_t index) {
  return static_cast<std::int16_t>(static_cast<std::uint16_t>(index + 1));
}

constexpr std::uint32_t kMostIndexes = 65536;  // that 16 bits can tell apart

Mend versionMend(bool isThere) {
  Mend mend = mendBy(Mend::Kind::kSetAttribute);
  const std::string name(filer::kVersionName.text());
  mend.attribute = {isThere ? name : "", name, std::to_string(items::kElementVersion)};
  return mend;
}

Mend numbering(const Element& element) {
  Mend mend = mendBy(Mend::Kind::kNumber);
  mend.element = &element;
  return mend;
}

// Whether the node stands where the format has its say: what is in elements or items that it does
// not know is theirs.
bool isOfTheFormat(const StrayNode& node) {
  if (node.className.empty()) {
    return true;
  }
  const items::ElementSchema* const schema = items::findElement(node.className);
  return schema != nullptr &&
         (node.item.empty() || std::ranges::any_of(schema->items, [&](const auto& item) {
            return item.name == node.item || (item.kind == items::Kind::kNumberedPoints &&
                                              entryNumber(node.item, item.stem).has_value());
          }));
}

}  // namespace

void checkDocument(const TransferFile& file, FindingSink& sink) {
  const Node& root = file.tree().root();
  const std::string rootName(file.tree().name(root));
  for (const Position& position : file.forbiddenCharacters()) {
    sink.add(findings::kForbiddenCharacter, position, "a control character", "none",
             mendBy(Mend::Kind::kReplaceCharacter));
  }
  for (const StrayNode& node : file.nodesBeforeRoot()) {
    sink.add(findings::kNodeBeforeRoot, node, "the root element behind the declaration",
             mendBy(Mend::Kind::kRemove));
  }
  if (rootName != filer::kRootName.text()) {
    sink.add(findings::kRootName, file.tree().position(root), '"' + rootName + '"',
             '"' + std::string(filer::kRootName.text()) + '"', mendBy(Mend::Kind::kRenameRoot));
  }
  for (const StrayNode& node : file.nodesBelowRoot()) {
    if (isOfTheFormat(node)) {
      sink.add(findings::kStrayNode, node, "elements and comments alone",
               mendBy(Mend::Kind::kRemove));
    }
  }
}

void checkControl(const TransferFile& file, FindingSink& sink) {
  const Element* const record = controlRecord(file);
  if (record == nullptr) {
    sink.add(findings::kControlMissing, file.tree().position(file.tree().root()), "none",
             std::string(items::schemaOf(items::ElementClass::kDrawingControl).className) +
                 " as the last element",
             mendBy(Mend::Kind::kAddControl));
    return;
  }
  for (const Element& element : file.elements()) {
    if (element.is(items::ElementClass::kDrawingControl) && &element != &file.elements().back()) {
      sink.add(findings::kControlNotLast, element, "",
               std::to_string(file.elements().size() - 1 - element.place) + " elements behind it",
               "none");
    }
  }
}

void IndexRule::look(const Element& element) {
  const auto version = m_file.tree().attribute(*element.node, filer::kVersionName.text());
  if (!version || *version != std::to_string(items::kElementVersion)) {
    m_sink.add(findings::kVersion, element, "",
               version ? "version=\"" + std::string(*version) + '"' : "no version", "version=\"1\"",
               nullptr, versionMend(version.has_value()));
  }
  Seen& seen = m_classes[element.className()];
  const std::int32_t expected = following(seen.last);
  const auto text = m_file.tree().attribute(*element.node, filer::kIndexName.text());
  const auto index = text ? exactLong(*text) : std::nullopt;
  if (!index) {
    m_sink.add(findings::kIndexMissing, element, "",
               text ? "index=\"" + std::string(*text) + '"' : "no index",
               "index=\"" + std::to_string(expected) + '"', nullptr, numbering(element));
    seen.last = expected;
    return;
  }
  if (!seen.indexes.add(*index)) {
    m_sink.add(findings::kIndexRepeated, element, "",
               "index=\"" + std::to_string(*index) + "\" a second time",
               "index=\"" + std::to_string(expected) + '"', nullptr,
               element.ordinal > kMostIndexes ? Mend() : numbering(element));
  } else if (*index != expected) {
    m_sink.add(findings::kIndexGap, element, "", "index=\"" + std::to_string(*index) + '"',
               "index=\"" + std::to_string(expected) + '"', nullptr, numbering(element));
  }
  seen.last = *index;
}

}  // namespace quorvan::tool
