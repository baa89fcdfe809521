// The guide, the schemas, the manual page and the completions say what the program does.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <array>
#include <cstdlib>
#include <fstream>
#include <regex>
#include <set>

#include <quorvan/elements/element_classes.h>

#include <tests/support/saved_file.h>
#include <tests/support/test_data.h>
#include <tests/tools/tool_run.h>
#include <tools/check/finding.h>
#include <tools/commands/command_table.h>
#include <tools/detailing/detailing_findings.h>
#include <tools/documents/documents.h>
#include <tools/model/item_value.h>

namespace {

using nlohmann::json;
using quorvan::test::runTool;
using quorvan::tool::Command;
using quorvan::tool::ProgramArguments;
namespace items = quorvan::items;

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

TEST(ToolDocuments, NameEveryCommandWithItsOptions) {
  const ProgramArguments program = quorvan::tool::collectArguments();
  const std::string bash = bashCompletion(program);
  const std::string zsh = zshCompletion(program);
  const std::string fish = fishCompletion(program);
  const std::string manual = std::regex_replace(manualPage(program), std::regex("\\\\-"), "-");
  for (const Command* const command : quorvan::tool::allCommands()) {
    const std::string name(command->name);
    for (const std::string* const text : std::array{&bash, &zsh, &fish, &manual}) {
      EXPECT_NE(text->find(name), std::string::npos) << name;
    }
    for (const std::string& option : optionsOf(name)) {
      EXPECT_NE(bash.find(option), std::string::npos) << option;
      EXPECT_NE(zsh.find(option), std::string::npos) << option;
      EXPECT_NE(fish.find("-l " + option.substr(2)), std::string::npos) << option;
      EXPECT_NE(manual.find(option), std::string::npos) << option;
    }
  }
}

TEST(ToolDocuments, TellShortNamesValuesAndWhatDoesNotGoTogether) {
  const ProgramArguments program = quorvan::tool::collectArguments();
  EXPECT_NE(zshCompletion(program).find("'(--json)--csv[As CSV"), std::string::npos);
  EXPECT_NE(fishCompletion(program).find("-s o -l output -r -F"), std::string::npos);
  EXPECT_NE(bashCompletion(program).find("'draw -o' | 'draw --output'"), std::string::npos);
  const std::string manual = manualPage(program);
  EXPECT_NE(manual.find("quorvan draw [OPTION]... \\-o OUTPUT FILE\n"), std::string::npos);
  EXPECT_NE(manual.find("quorvan list [OPTION]... FILE [CLASS]\n"), std::string::npos);
  EXPECT_NE(manual.find("\\fB\\-\\-tolerance\\fR \\fITOLERANCE\\fR\nNumbers that differ by no more "
                        "are equal; 0.001 unless given.\n"),
            std::string::npos);
  EXPECT_NE(manual.find("Exit code: 0 equal, 1 different, 2 "), std::string::npos);
}

// With QUORVAN_UPDATE_GOLDEN set the chapter is written instead.
TEST(ToolDocuments, TheGuideHasTheCommandsOfTheTable) {
  const std::string guide = projectFile("docs/tool.md");
  const std::size_t start = guide.find("| command | shows |");
  ASSERT_NE(start, std::string::npos);
  const std::string chapter = commandChapter(quorvan::tool::collectArguments());
  if (std::getenv("QUORVAN_UPDATE_GOLDEN") != nullptr) {
    std::ofstream(quorvan::test::dataPath("../docs/tool.md"), std::ios::binary)
        << guide.substr(0, start) << chapter;
    return;
  }
  EXPECT_EQ(guide.substr(start), chapter);
}

TEST(ToolDocuments, ListEveryFindingWithItsSeverity) {
  const std::string document = projectFile("docs/tool.md");
  std::vector<const quorvan::tool::FindingKind*> kinds(std::begin(quorvan::tool::findings::kAll),
                                                       std::end(quorvan::tool::findings::kAll));
  kinds.insert(kinds.end(), std::begin(quorvan::tool::findings::kDetailing),
               std::end(quorvan::tool::findings::kDetailing));
  for (const auto* const kind : kinds) {
    const std::string row = "| " + std::to_string(kind->number) + " | " +
                            std::string(severityName(kind->severity)) + " | " +
                            std::string(kind->title);
    EXPECT_NE(document.find(row), std::string::npos) << row;
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

TEST(ToolDocuments, TheDrawingSchemaHasNoOtherClass) {
  const json schema = json::parse(projectFile("docs/schema/drawing.schema.json"));
  std::vector<std::string> expected;
  for (const items::ElementSchema& element : items::allElements()) {
    expected.emplace_back(element.className);
  }
  std::vector<std::string> offered;
  for (const json& element : schema["properties"]["elements"]["items"]["anyOf"]) {
    offered.push_back(typeIn(element));
  }
  std::vector<std::string> inFile = expected;
  inFile.emplace_back("series");
  EXPECT_EQ(offered, inFile);
  std::size_t described = 0;
  for (const auto& type : schema["$defs"].items()) {
    described += type.key().starts_with("CKt") ? 1U : 0U;
  }
  EXPECT_EQ(described, expected.size());
}

}  // namespace
