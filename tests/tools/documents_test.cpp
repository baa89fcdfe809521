// The documents, the schemas and the completions say what the program does.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <array>
#include <regex>
#include <set>
#include <utility>

#include <quorvan/elements/element_classes.h>

#include <tests/support/saved_file.h>
#include <tests/support/test_data.h>
#include <tests/tools/tool_run.h>
#include <tools/check/finding.h>
#include <tools/model/item_value.h>

namespace {

using nlohmann::json;
using quorvan::test::runTool;
namespace items = quorvan::items;

const char* const kCommands[] = {"info", "list", "bars", "check", "draw", "diff", "write"};

std::string projectFile(const std::string& name) {
  const std::string text = quorvan::test::fileBytes(quorvan::test::dataPath("../") + name);
  EXPECT_NE(text, "") << name;
  return text;
}

// The long options in the help of a command.
std::set<std::string> optionsOf(const std::string& command) {
  const std::string help = runTool({command, "--help"}).out;
  const std::string listed = help.substr(0, help.find("Example"));
  std::set<std::string> options;
  const std::regex option("--[a-z]+");
  for (std::sregex_iterator at(listed.begin(), listed.end(), option), end; at != end; ++at) {
    options.insert(at->str());
  }
  return options;
}

TEST(ToolDocuments, NameEveryOption) {
  const std::string bash = projectFile("tools/completion/quorvan.bash");
  const std::string zsh = projectFile("tools/completion/_quorvan");
  const std::string fish = projectFile("tools/completion/quorvan.fish");
  std::string manual = projectFile("docs/man/quorvan.1");
  manual = std::regex_replace(manual, std::regex("\\\\-"), "-");
  for (const char* const command : kCommands) {
    for (const std::string& option : optionsOf(command)) {
      EXPECT_NE(bash.find(option), std::string::npos) << option;
      EXPECT_NE(zsh.find(option), std::string::npos) << option;
      EXPECT_NE(fish.find("-l " + option.substr(2)), std::string::npos) << option;
      EXPECT_NE(manual.find(option), std::string::npos) << option;
    }
    for (const std::string* const text : std::array{&bash, &zsh, &fish, &std::as_const(manual)}) {
      EXPECT_NE(text->find(command), std::string::npos) << command;
    }
  }
}

TEST(ToolDocuments, ListEveryFindingWithItsSeverity) {
  const std::string document = projectFile("docs/tool.md");
  for (const auto* const kind : quorvan::tool::findings::kAll) {
    const std::string row = "| " + std::to_string(kind->number) + " | " +
                            std::string(severityName(kind->severity)) + " | " +
                            std::string(kind->title);
    const std::size_t at = document.find(row);
    ASSERT_NE(at, std::string::npos) << row;
    const std::string line = document.substr(at, document.find('\n', at) - at);
    EXPECT_EQ(line.ends_with("| \u2013 |"), !kind->isRepairable) << line;
  }
}

// What the schema calls the type of a member.
std::string typeIn(const json& member) {
  if (member.contains("$ref")) {
    return member["$ref"].get<std::string>().substr(std::string("#/$defs/").size());
  }
  return member["type"];
}

std::string typeOf(items::Kind kind) {
  switch (kind) {
    case items::Kind::kPoint:
    case items::Kind::kVector:
      return "point";
    case items::Kind::kDouble:
      return "number";
    case items::Kind::kLong:
      return "long";
    case items::Kind::kColor:
      return "color";
    case items::Kind::kString:
    case items::Kind::kAdherence:
      return "string";
    case items::Kind::kFlag:
    case items::Kind::kNumericFlag:
      return "boolean";
    case items::Kind::kPointList:
    case items::Kind::kNumberedPoints:
      return "points";
    case items::Kind::kSegmentList:
      return "segments";
    case items::Kind::kDoubleList:
      return "numbers";
  }
  return {};
}

TEST(ToolDocuments, TheDrawingSchemaFollowsTheItemTables) {
  const json schema = json::parse(projectFile("docs/schema/drawing.schema.json"));
  const json& classes = schema["$defs"];
  for (const items::ElementSchema& element : items::allElements()) {
    const std::string name(element.className);
    ASSERT_TRUE(classes.contains(name)) << name;
    const json& members = classes[name]["properties"];
    const std::set<std::string> required = classes[name]["required"];
    EXPECT_EQ(members.size(), element.items.size() + 1) << name;
    for (const items::ItemSchema& item : element.items) {
      const std::string member(quorvan::tool::displayName(item));
      ASSERT_TRUE(members.contains(member)) << name << ' ' << member;
      EXPECT_EQ(typeIn(members[member]), typeOf(item.kind)) << name << ' ' << member;
      EXPECT_EQ(required.contains(member), !item.optional || quorvan::tool::isList(item.kind))
          << member;
    }
  }
}

}  // namespace
