// The guide, the schemas, the manual page and the completions say what the program does.
#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <fstream>
#include <regex>
#include <set>

#include <tests/support/saved_file.h>
#include <tests/support/test_data.h>
#include <tests/tools/tool_run.h>
#include <tools/check/finding.h>
#include <tools/commands/command_table.h>
#include <tools/detailing/detailing_findings.h>
#include <tools/documents/documents.h>
#include <tools/documents/drawing_documents.h>

namespace {

using quorvan::test::runTool;
using quorvan::tool::Command;
using quorvan::tool::ProgramArguments;

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

// The file holds what is made of it; with QUORVAN_UPDATE_GOLDEN set it is written instead.
void expectMade(const std::string& name, const std::string& found, const std::string& made) {
  if (std::getenv("QUORVAN_UPDATE_GOLDEN") != nullptr) {
    std::ofstream(quorvan::test::dataPath("../") + name, std::ios::binary) << made;
    return;
  }
  EXPECT_EQ(found, made) << name;
}

TEST(ToolDocuments, TheGuideHasTheCommandsOfTheTable) {
  const std::string guide = projectFile("docs/tool.md");
  const std::size_t start = guide.find("| command | shows |");
  ASSERT_NE(start, std::string::npos);
  expectMade("docs/tool.md", guide,
             guide.substr(0, start) + commandChapter(quorvan::tool::collectArguments()));
}

TEST(ToolDocuments, TheDrawingSchemaFollowsTheItemTables) {
  const std::string schema = projectFile("docs/schema/drawing.schema.json");
  expectMade("docs/schema/drawing.schema.json", schema, quorvan::tool::drawingSchema(schema));
}

TEST(ToolDocuments, TheClassesInJsonFollowTheItemTables) {
  const std::string document = projectFile("docs/drawing-json.md");
  const std::size_t start = document.find("| class | items |");
  ASSERT_NE(start, std::string::npos);
  expectMade("docs/drawing-json.md", document,
             document.substr(0, start) + quorvan::tool::classTable() +
                 document.substr(document.find("\n\n", start) + 1));
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

}  // namespace
