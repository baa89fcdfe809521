// The forms of the documents: what each shell, roff and Markdown would take for its own is kept
// from it, and each kind of argument has its line.
#include <tools/documents/documents.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace quorvan::tool {

namespace {

const Command kTold{"show",
                    "what is 'in' [a] file: all|none",
                    ".shows it, by-and-by with a \\ and `code`.",
                    "quorvan show a.xml  all of it\nquorvan show -o b.txt a.xml\n",
                    {"done", "found", "failed"},
                    nullptr};
const Command kPlain{"make", "a file", "Makes it.", "quorvan make\n", {}, nullptr};

Argument option(const std::string& name, Argument::Value value = Argument::Value::kNone,
                const std::string& description = "How") {
  Argument one;
  one.name = name;
  one.description = description;
  one.value = value;
  if (value != Argument::Value::kNone) {
    one.valueName = name.substr(2);
    std::ranges::transform(one.valueName, one.valueName.begin(),
                           [](char letter) { return static_cast<char>(letter - ('a' - 'A')); });
  }
  return one;
}

ProgramArguments toldProgram() {
  Argument unit = option("--unit", Argument::Value::kWord, "Unit: it's [mm]");
  unit.words = {"mm", "cm"};
  unit.standard = "mm";
  Argument output = option("--output", Argument::Value::kFile, "File to write");
  output.shortName = "-o";
  output.isRequired = true;
  Argument csv = option("--csv");
  csv.excludes = {"--json"};
  Argument files;
  files.name = "FILE";
  files.description = "Files";
  files.value = Argument::Value::kFile;
  files.valueName = "FILE";
  files.isRequired = true;
  files.takesMany = true;
  Argument kind = files;
  kind.name = kind.valueName = "CLASS";
  kind.value = Argument::Value::kWord;
  kind.words = {"Line", "Text"};
  kind.isRequired = kind.takesMany = false;
  ProgramArguments program;
  program.version = "quorvan 1-2";
  program.options = {option("--version")};
  program.commands = {
      {&kTold,
       {option("--help"), unit, output, csv, option("--scale", Argument::Value::kNumber)},
       {files}},
      {&kPlain, {}, {kind}}};
  return program;
}

void expectParts(const std::string& text, std::initializer_list<std::string_view> parts) {
  std::size_t at = 0;
  for (const std::string_view part : parts) {
    const std::size_t found = text.find(part, at);
    ASSERT_NE(found, std::string::npos) << "lacks, or has elsewhere: " << part << '\n' << text;
    at = found + part.size();
  }
}

TEST(ToolDocumentUsage, NamesArgumentsAsTheyAreTyped) {
  const ProgramArguments program = toldProgram();
  const auto& options = program.commands[0].options;
  EXPECT_EQ(options[1].usage(), "--unit UNIT");
  EXPECT_EQ(options[2].usage(), "-o, --output OUTPUT");
  EXPECT_EQ(options[3].usage(), "--csv");
  EXPECT_EQ(program.commands[0].positionals[0].usage(), "FILE...");
  EXPECT_EQ(program.commands[1].positionals[0].usage(), "CLASS");
  EXPECT_EQ(program.commands[0].synopsis(), "quorvan show [OPTION]... -o OUTPUT FILE...");
  EXPECT_EQ(program.commands[1].synopsis(), "quorvan make [OPTION]... [CLASS]");
}

TEST(ToolManualPage, KeepsRoffFromItsTexts) {
  const std::string page = manualPage(toldProgram());
  expectParts(page, {".TH QUORVAN 1 \"\" \"quorvan 1\\-2\" \"Quorvan\"\n", ".SH SYNOPSIS\n.nf\n",
                     "quorvan show [OPTION]... \\-o OUTPUT FILE...\n", "\\fB\\-\\-version\\fR\n",
                     ".SS show\n\\&.shows it, by\\-and\\-by with a \\e and \\(gacode\\(ga.\n",
                     "\\fIFILE...\\fR\nFiles.\n",
                     "\\fB\\-\\-unit\\fR \\fIUNIT\\fR\nUnit: it's [mm]; mm unless given.\n",
                     "\\fB\\-o\\fR, \\fB\\-\\-output\\fR \\fIOUTPUT\\fR\nFile to write.\n",
                     "Exit code: 0 done, 1 found, 2 failed.\n", ".SS make\n", ".SH EXAMPLES\n",
                     "quorvan show a.xml  all of it\n"});
  // Every command has help, and one without findings no exit code 1.
  EXPECT_EQ(page.find("\\-\\-help"), std::string::npos);
  EXPECT_EQ(page.find("Exit code", page.find(".SS make")), std::string::npos);
}

TEST(ToolGuideChapter, KeepsBarsFromItsTables) {
  const std::string chapter = commandChapter(toldProgram());
  expectParts(
      chapter,
      {"| `quorvan show` | what is 'in' [a] file: all\\|none |\n",
       "| `show` | done | found | failed |\n", "| `make` | done | \u2013 | could not be done |\n",
       "### `quorvan show [OPTION]... -o OUTPUT FILE...`\n", "| `FILE...` | Files |\n",
       "| `--unit UNIT` | Unit: it's [mm]; `mm` unless given |\n",
       "```sh\nquorvan show a.xml  # all of it\nquorvan show -o b.txt a.xml\n```\n",
       "### `quorvan make [OPTION]... [CLASS]`\n"});
}

TEST(ToolZshCompletion, KeepsItsSignsFromTheTexts) {
  const std::string zsh = zshCompletion(toldProgram());
  expectParts(
      zsh, {"#compdef quorvan\n", "'--version[How]'",
            "'show:what is '\\''in'\\'' \\[a\\] file\\: all|none'\n", "show)\n",
            "'--unit=[Unit\\: it'\\''s \\[mm\\]]:UNIT:(mm cm)'",
            "'(-o --output)'{-o,--output=}'[File to write]:OUTPUT:_files'", "'(--json)--csv[How]'",
            "'--scale=[How]:SCALE: '", "'*:FILE:_files'\n", "make)\n", "'1::CLASS:(Line Text)'\n"});
}

TEST(ToolFishCompletion, QuotesItsTexts) {
  const std::string fish = fishCompletion(toldProgram());
  expectParts(
      fish,
      {"complete -c quorvan -n __fish_use_subcommand -l version -d 'How'\n",
       "-n __fish_use_subcommand -f -a show -d 'what is \\'in\\' [a] file: all|none'\n",
       "-n '__fish_seen_subcommand_from show' -l unit -x -a 'mm cm' -d 'Unit: it\\'s [mm]'\n",
       " -s o -l output -r -F -d 'File to write'\n", " -l scale -x -d 'How'\n",
       ("-n '__fish_seen_subcommand_from make; and test (count (commandline -opc)) -ge 2' -f -a "
        "'Line Text' -d 'Files'\n")});
}

TEST(ToolBashCompletion, KnowsWhichOptionsHaveValues) {
  const std::string bash = bashCompletion(toldProgram());
  expectParts(bash, {"      'show --unit' | 'show -o' | 'show --output' | 'show --scale')\n",
                     "    'show --scale') return ;;\n",
                     "    'show --unit')\n      _quorvan_offer 'mm cm' \"$word\"\n",
                     "    'show -o' | 'show --output')\n      _quorvan_files \"$word\"\n",
                     "      '') _quorvan_offer '--version' \"$word\" ;;\n",
                     "      show) _quorvan_offer '--help --unit --output --csv --scale' ",
                     "    ' 0') _quorvan_offer 'show make' \"$word\" ;;\n",
                     "    'show '*) _quorvan_files \"$word\" ;;\n",
                     "    'make 0') _quorvan_offer 'Line Text' \"$word\" ;;\n"});
}

}  // namespace

}  // namespace quorvan::tool
