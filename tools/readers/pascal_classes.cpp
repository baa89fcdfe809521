// The classes of Delphi and Free Pascal.
#include <tools/readers/grouped_members.h>
#include <tools/readers/languages.h>
#include <tools/text/paragraph.h>

namespace quorvan::tool {

namespace {

struct PascalType {
  std::string_view name;
  std::string_view visit;  // what a visitor calls it
};

PascalType pascalType(QuorvanKind kind) {
  switch (kind) {
    case QUORVAN_KIND_LONG:
      return {"LongInt", "Whole"};
    case QUORVAN_KIND_COLOR:
      return {"LongWord", "Color"};
    case QUORVAN_KIND_DOUBLE:
      return {"Double", "Number"};
    case QUORVAN_KIND_TEXT:
      return {"UnicodeString", "Text"};
    case QUORVAN_KIND_FLAG:
      return {"Boolean", "Flag"};
    case QUORVAN_KIND_POINT:
    case QUORVAN_KIND_VECTOR:
      return {"TPoint3", "Point"};
    case QUORVAN_KIND_POINTS:
      return {"TPoints", "Points"};
    case QUORVAN_KIND_SEGMENTS:
      return {"TPoints", "Segments"};
    case QUORVAN_KIND_DOUBLES:
      return {"TNumbers", "Numbers"};
    case QUORVAN_KIND_NONE:
    case QUORVAN_KIND_LIST:
      break;  // of no item that is in a table
  }
  return {};
}

// A word of the language cannot name a member.
std::string_view pascalName(const ReaderMember& member) {
  return member.name == "Type" ? "Kind" : member.name;
}

std::string pascalMembers(const std::vector<ReaderMember>& members) {
  std::vector<MemberGroup> groups;
  for (const ReaderMember& member : members) {
    addToGroup(groups, "", pascalType(member.kind).name, std::string(pascalName(member)));
  }
  std::string lines;
  for (const MemberGroup& group : groups) {
    std::vector<std::string> words = listed(group.names, ":");
    words.push_back(std::string(group.type) + ';');
    lines += filledLines(words, kSourceColumns, "    ", "      ");
  }
  return lines + "    procedure Visit(Visitor: TItemVisitor); override;\n  end;\n";
}

std::string pascalClass(const ReaderClass& element) {
  std::vector<std::string> words = wordsOf(element.description);
  words.emplace_back("}");
  std::string text = filledLines(words, kSourceColumns, "  { ", "    ");
  text.append("  T").append(element.name);
  text.append(element.isBar ? " = class(TBar)\n  public\n" : " = class(TElement)\n  public\n");
  return text + pascalMembers(element.members) + '\n';
}

std::string knownClasses(const ReaderClasses& classes) {
  std::string text = "const\n  KnownClasses: array[0..";
  text += std::to_string(classes.all.size() - 1) + "] of TKnownClass = (\n";
  for (const ReaderClass& element : classes.all) {
    text.append("    (Name: '").append(element.className).append("'; ElementClass: T");
    text.append(element.name).append(&element == &classes.all.back() ? "));\n" : "),\n");
  }
  return text;
}

// A member without item of its own comes with the one before it.
std::string pascalVisit(std::string_view name, const std::vector<ReaderMember>& members) {
  std::string text =
      "\nprocedure T" + std::string(name) + ".Visit(Visitor: TItemVisitor);\nbegin\n";
  for (const ReaderMember& member : members) {
    if (member.item.empty()) {
      text.resize(text.size() - std::string_view(");\n").size());
    } else {
      text.append("  Visitor.").append(pascalType(member.kind).visit).append("('");
      text.append(member.item).append("'");
    }
    text.append(", ").append(pascalName(member)).append(");\n");
  }
  return text;
}

}  // namespace

std::vector<std::string> pascalParts(const ReaderClasses& classes) {
  std::string types = "\n  { What every bar and link has. }\n  TBar = class(TElement)\n  public\n";
  types += pascalMembers(classes.ofBars) + '\n';
  std::string visits = pascalVisit("Bar", classes.ofBars) + "end;\n";
  for (const ReaderClass& element : classes.all) {
    types += pascalClass(element);
    visits += pascalVisit(element.name, element.members);
    visits += element.isBar ? "  inherited Visit(Visitor);\nend;\n" : "end;\n";
  }
  return {types, '\n' + knownClasses(classes) + visits + '\n'};
}

}  // namespace quorvan::tool
