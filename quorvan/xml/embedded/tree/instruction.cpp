#include <quorvan/xml/embedded/tree/instruction.h>

#include <algorithm>
#include <optional>
#include <string>

#include <quorvan/xml/embedded/tree/declaration.h>
#include <quorvan/xml/embedded/tree/value_text.h>
#include <quorvan/xml/name_rules.h>

namespace quorvan::embedded {

namespace {

// "xml" in another case is kept for the makers of the standard.
bool isReserved(std::string_view target) noexcept {
  constexpr std::string_view kXml = "xml";
  return std::equal(target.begin(), target.end(), kXml.begin(), kXml.end(),
                    [](char a, char b) { return a == b || a == b - ('a' - 'A'); });
}

}  // namespace

Ref createDeclaration(Tree& tree, const Declaration& declaration) {
  const Ref ref = tree.nodes().create(NodeType::kInstruction, kXmlName);
  const auto put = [&](NameId name, std::string_view part) {
    if (!part.empty()) {
      tree.nodes().put(ref, name, {part, true});
    }
  };
  put(kVersionName, declaration.version);
  put(kEncodingName, declaration.encoding);
  put(kStandaloneName, declaration.standalone);
  return ref;
}

Ref createInstruction(Tree& tree, const dom::Name& target, std::string_view data) {
  if (target.text() == "xml") {
    const std::optional<Declaration> declaration = parseDeclaration(data);
    if (!declaration) {
      platform::raiseComError(E_FAIL);
    }
    return createDeclaration(tree, *declaration);
  }
  if (!dom::isXmlName(target.text()) || isReserved(target.text()) ||
      data.find("?>") != std::string_view::npos) {
    platform::raiseComError(E_FAIL);
  }
  std::string text;
  appendValue(text, data);
  const NameId name = tree.nodes().names().intern(target);
  const Ref ref = tree.nodes().create(NodeType::kInstruction, name);
  tree.nodes().put(ref, kNoName, {text, isPlain(text)});
  return ref;
}

void putDeclarationPart(Tree& tree, Ref declaration, const dom::Name& name, std::string_view text) {
  if (!isDeclarationPart(name.text(), text)) {
    platform::raiseComError(E_FAIL);
  }
  tree.putAttribute(declaration, name, {text, true});
}

}  // namespace quorvan::embedded
