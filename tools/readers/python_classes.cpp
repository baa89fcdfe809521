// The dataclasses of Python.
#include <tools/readers/languages.h>
#include <tools/readers/spelling.h>
#include <tools/text/paragraph.h>

namespace quorvan::tool {

namespace {

struct PythonType {
  std::string_view name;
  std::string_view value;  // of a new object
};

PythonType pythonType(QuorvanKind kind) {
  switch (kind) {
    case QUORVAN_KIND_LONG:
    case QUORVAN_KIND_COLOR:
      return {"int", "0"};
    case QUORVAN_KIND_DOUBLE:
      return {"float", "0.0"};
    case QUORVAN_KIND_TEXT:
      return {"str", "\"\""};
    case QUORVAN_KIND_FLAG:
      return {"bool", "False"};
    case QUORVAN_KIND_POINT:
    case QUORVAN_KIND_VECTOR:
      return {"Point", "ORIGIN"};
    case QUORVAN_KIND_POINTS:
    case QUORVAN_KIND_SEGMENTS:
      return {"list[Point]", "[]"};
    case QUORVAN_KIND_DOUBLES:
      return {"list[float]", "[]"};
    case QUORVAN_KIND_NONE:
    case QUORVAN_KIND_LIST:
      break;  // of no item that is in a table
  }
  return {};
}

std::string pythonMembers(const std::vector<ReaderMember>& members) {
  std::string lines;
  for (const ReaderMember& member : members) {
    const PythonType type = pythonType(member.kind);
    lines.append("    ").append(snakeCase(member.name)).append(": ").append(type.name);
    if (member.item.empty()) {
      lines.append(" = field(default_factory=list)\n");
    } else {
      lines.append(" = item(\"").append(member.item).append("\", ");
      lines.append(type.value).append(")\n");
    }
  }
  return lines;
}

std::string dataclass(const ReaderClass& element) {
  std::vector<std::string> words = wordsOf(element.description);
  words.back() += "\"\"\"";
  std::string text = "@dataclass\nclass ";
  text.append(element.name).append(element.isBar ? "(Bar):\n" : "(Element):\n");
  text += filledLines(words, kSourceColumns, "    \"\"\"", "    ");
  text.append("\n    CLASS_NAME: ClassVar[str] = \"").append(element.className).append("\"\n\n");
  return text + pythonMembers(element.members) + "\n\n";
}

std::string listOfKinds(const ReaderClasses& classes) {
  std::vector<std::string> words;
  for (const ReaderClass& element : classes.all) {
    words.push_back(std::string(element.name) + ',');
  }
  return "_KINDS: tuple[type[Element], ...] = (\n" +
         filledLines(words, kSourceColumns, "    ", "    ") + ")\n";
}

}  // namespace

std::vector<std::string> pythonParts(const ReaderClasses& classes) {
  std::string part =
      "\n\n@dataclass\nclass Bar(Element):\n    \"\"\"What every bar and link has.\"\"\"\n\n";
  part += pythonMembers(classes.ofBars) + "\n\n";
  for (const ReaderClass& element : classes.all) {
    part += dataclass(element);
  }
  return {part + listOfKinds(classes) + "\n"};
}

}  // namespace quorvan::tool
