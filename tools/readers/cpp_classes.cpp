// The structs of C++.
#include <tools/readers/languages.h>
#include <tools/readers/spelling.h>
#include <tools/text/paragraph.h>

namespace quorvan::tool {

namespace {

constexpr std::string_view kVariantComment =
    "/// Any element. The alternatives stand in the order of the class numbers, see "
    "quorvanClassName.\n";
constexpr std::string_view kWalkComment =
    "// eachItem(element, use) calls use(name, member) for every item in the order of the file; "
    "the\n"
    "// points and bulges of one item come as use(name, points, bulges).\n";

std::string_view cppType(const ReaderMember& member) {
  switch (member.kind) {
    case QUORVAN_KIND_LONG:
      return "std::int32_t";
    case QUORVAN_KIND_COLOR:
      return "std::uint32_t";
    case QUORVAN_KIND_DOUBLE:
      return "double";
    case QUORVAN_KIND_TEXT:
      return "std::string";
    case QUORVAN_KIND_FLAG:
      return "bool";
    case QUORVAN_KIND_POINT:
      return "Point";
    case QUORVAN_KIND_VECTOR:
      return "Vector";
    case QUORVAN_KIND_POINTS:
      return "std::vector<Point>";
    case QUORVAN_KIND_SEGMENTS:
      return member.item.empty() ? "std::vector<Vector>" : "std::vector<Point>";
    case QUORVAN_KIND_DOUBLES:
      return "std::vector<double>";
    case QUORVAN_KIND_NONE:
    case QUORVAN_KIND_LIST:
      break;  // of no item that is in a table
  }
  return {};
}

// What else would be undefined in a new struct is 0.
std::string_view cppDefault(QuorvanKind kind) {
  switch (kind) {
    case QUORVAN_KIND_LONG:
    case QUORVAN_KIND_COLOR:
    case QUORVAN_KIND_DOUBLE:
      return " = 0";
    case QUORVAN_KIND_FLAG:
      return " = false";
    case QUORVAN_KIND_TEXT:
    case QUORVAN_KIND_POINT:
    case QUORVAN_KIND_VECTOR:
    case QUORVAN_KIND_POINTS:
    case QUORVAN_KIND_SEGMENTS:
    case QUORVAN_KIND_DOUBLES:
    case QUORVAN_KIND_NONE:
    case QUORVAN_KIND_LIST:
      break;
  }
  return {};
}

std::string cppMembers(const std::vector<ReaderMember>& members) {
  std::string lines;
  for (const ReaderMember& member : members) {
    lines.append("  ").append(cppType(member)).append(" ").append(camelCase(member.name));
    lines.append(cppDefault(member.kind)).append(";\n");
  }
  return lines;
}

std::string structOf(const ReaderClass& element) {
  std::string text = filledLines(wordsOf(element.description), kSourceColumns, "/// ", "/// ");
  text.append("struct ").append(element.name);
  text.append(element.isBar ? " : BarBase {\n" : " : ElementBase {\n");
  text.append("  static constexpr const char* kClassName = \"").append(element.className);
  return text + "\";\n" + cppMembers(element.members) + "};\n\n";
}

std::string variantOf(const ReaderClasses& classes) {
  constexpr std::string_view kStart = "using Element = std::variant<";
  std::vector<std::string> words;
  for (const ReaderClass& element : classes.all) {
    words.push_back(std::string(element.name) + ',');
  }
  words.emplace_back("Other>;");
  return filledLines(words, kSourceColumns, kStart, std::string(kStart.size(), ' '));
}

// A member without item of its own comes with the one before it.
std::string uses(const std::vector<ReaderMember>& members) {
  std::string lines;
  for (const ReaderMember& member : members) {
    if (!member.item.empty()) {
      lines.append(lines.empty() ? "" : ");\n").append("  use(\"").append(member.item).append("\"");
    }
    lines.append(", e.").append(camelCase(member.name));
  }
  return lines + ");\n";
}

std::string walkOf(const ReaderClass& element) {
  std::string text = "template <class Use>\nvoid eachItem(";
  text.append(element.name).append("& e, Use&& use) {\n").append(uses(element.members));
  return text + (element.isBar ? "  eachBarItem(e, use);\n}\n\n" : "}\n\n");
}

}  // namespace

std::vector<std::string> cppParts(const ReaderClasses& classes) {
  std::string part = "\n/// What every bar and link has.\nstruct BarBase : ElementBase {\n";
  part += cppMembers(classes.ofBars) + "};\n\n";
  for (const ReaderClass& element : classes.all) {
    part += structOf(element);
  }
  part.append(kVariantComment).append(variantOf(classes)).append("\n").append(kWalkComment);
  part += "\ntemplate <class Bar, class Use>\nvoid eachBarItem(Bar& e, Use&& use) {\n";
  part += uses(classes.ofBars) + "}\n\n";
  for (const ReaderClass& element : classes.all) {
    part += walkOf(element);
  }
  return {part};
}

}  // namespace quorvan::tool
