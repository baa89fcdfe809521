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

}  // namespace

void checkDocument(const TransferFile& file, FindingSink& sink) {
  const Node& root = file.tree().root();
  for (const Position& position : file.forbiddenCharacters()) {
    sink.add(findings::kForbiddenCharacter, position, "a control character", "none");
  }
  if (!file.nodeBeforeRoot().empty()) {
    sink.add(findings::kNodeBeforeRoot, root.position, '"' + file.nodeBeforeRoot() + '"',
             "the root element behind the declaration");
  }
  if (root.name != filer::kRootName.text()) {
    sink.add(findings::kRootName, root.position, '"' + std::string(root.name) + '"',
             '"' + std::string(filer::kRootName.text()) + '"');
  }
}

void checkControl(const TransferFile& file, FindingSink& sink) {
  const Element* const record = controlRecord(file);
  if (record == nullptr) {
    sink.add(findings::kControlMissing, file.tree().root().position, "none",
             std::string(items::schemaOf(items::ElementClass::kDrawingControl).className) +
                 " as the last element");
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
  const std::string_view* const version =
      m_file.tree().attribute(*element.node, filer::kVersionName.text());
  if (version == nullptr || *version != std::to_string(items::kElementVersion)) {
    m_sink.add(findings::kVersion, element, "",
               version == nullptr ? "no version" : "version=\"" + std::string(*version) + '"',
               "version=\"1\"");
  }
  Seen& seen = m_classes[element.className()];
  const std::int32_t expected = following(seen.last);
  const std::string_view* const text =
      m_file.tree().attribute(*element.node, filer::kIndexName.text());
  const auto index = text == nullptr ? std::nullopt : exactLong(*text);
  if (!index) {
    m_sink.add(findings::kIndexMissing, element, "",
               text == nullptr ? "no index" : "index=\"" + std::string(*text) + '"',
               "index=\"" + std::to_string(expected) + '"');
    seen.last = expected;
    return;
  }
  const auto [known, isNew] = seen.elements.emplace(*index, &element);
  if (!isNew) {
    m_sink.add(findings::kIndexRepeated, element, "",
               "index=\"" + std::to_string(*index) + "\" a second time",
               "index=\"" + std::to_string(expected) + '"');
  } else if (*index != expected) {
    m_sink.add(findings::kIndexGap, element, "", "index=\"" + std::to_string(*index) + '"',
               "index=\"" + std::to_string(expected) + '"');
  }
  seen.last = *index;
}

}  // namespace quorvan::tool
