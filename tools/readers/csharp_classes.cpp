// The classes of C#.
#include <tools/readers/grouped_members.h>
#include <tools/readers/languages.h>
#include <tools/text/paragraph.h>

namespace quorvan::tool {

namespace {

constexpr std::string_view kTypesStart =
    "    // The class of each class name.\n"
    "    internal static class ElementClasses\n"
    "    {\n"
    "        internal static readonly Dictionary<string, Type> Types = new Dictionary<string, "
    "Type>\n"
    "        {\n";
constexpr std::string_view kTypesEnd = "        };\n    }\n\n";

std::string_view csharpType(QuorvanKind kind) {
  switch (kind) {
    case QUORVAN_KIND_LONG:
      return "int";
    case QUORVAN_KIND_COLOR:
      return "uint";
    case QUORVAN_KIND_DOUBLE:
      return "double";
    case QUORVAN_KIND_TEXT:
      return "string";
    case QUORVAN_KIND_FLAG:
      return "bool";
    case QUORVAN_KIND_POINT:
    case QUORVAN_KIND_VECTOR:
      return "Point";
    case QUORVAN_KIND_POINTS:
    case QUORVAN_KIND_SEGMENTS:
      return "Point[]";
    case QUORVAN_KIND_DOUBLES:
      return "double[]";
    case QUORVAN_KIND_NONE:
    case QUORVAN_KIND_LIST:
      break;  // of no item that is in a table
  }
  return {};
}

// What else would be null in a new object is empty.
std::string_view csharpDefault(std::string_view type) {
  if (type == "string") {
    return " = \"\"";
  }
  return type.ends_with("[]") ? " = { }" : "";
}

// One whose item has another name stands alone, behind that name.
std::string csharpMembers(const std::vector<ReaderMember>& members) {
  std::vector<MemberGroup> groups;
  for (const ReaderMember& member : members) {
    const std::string_view type = csharpType(member.kind);
    const bool isNamed = member.item.empty() || member.item == member.name;
    addToGroup(groups, isNamed ? "" : "[Item(\"" + std::string(member.item) + "\")] ", type,
               std::string(member.name).append(csharpDefault(type)));
  }
  std::string lines;
  for (const MemberGroup& group : groups) {
    const std::string start = "        " + group.before + "public " + std::string(group.type) + ' ';
    lines += filledLines(listed(group.names, ";"), kSourceColumns, start, "            ");
  }
  return lines;
}

std::string csharpClass(const ReaderClass& element) {
  std::string text =
      filledLines(wordsOf(element.description), kSourceColumns, "    // ", "    // ");
  text.append("    public sealed class ").append(element.name);
  text.append(element.isBar ? " : Bar\n    {\n" : " : Element\n    {\n");
  return text + csharpMembers(element.members) + "    }\n\n";
}

}  // namespace

std::vector<std::string> csharpParts(const ReaderClasses& classes) {
  std::string part =
      "\n    // What every bar and link has.\n    public abstract class Bar : Element\n    {\n";
  part += csharpMembers(classes.ofBars) + "    }\n\n";
  for (const ReaderClass& element : classes.all) {
    part += csharpClass(element);
  }
  part += kTypesStart;
  for (const ReaderClass& element : classes.all) {
    part.append("            { \"").append(element.className).append("\", typeof(");
    part.append(element.name).append(") },\n");
  }
  part += kTypesEnd;
  return {part};
}

}  // namespace quorvan::tool
