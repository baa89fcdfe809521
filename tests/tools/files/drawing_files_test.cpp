// The files that arguments stand for: names, folders and patterns.
#include <tools/files/drawing_files.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>

#include <tests/tools/sample.h>
#include <tools/files/source_text.h>

namespace quorvan::tool {

namespace {

namespace fs = std::filesystem;

using Names = std::vector<std::string>;

// A job with two folders, and files of other programs beside the drawings.
class ToolDrawingFiles : public testing::Test {
 protected:
  void SetUp() override {
    fs::create_directories("names/floor/detail");
    fs::create_directories("names/empty.xml");  // a folder, whatever it is called
    for (const char* const name :
         {"names/a1.xml", "names/a2.XML", "names/b1.xml", "names/b1.json", "names/floor/c.Xml",
          "names/floor/detail/d.xml", "names/floor/d.xml.bak", "names/xml"}) {
      test::writeFile(name, "<Document/>");
    }
  }
  void TearDown() override { fs::remove_all("names"); }
};

// With slashes, as they are anywhere but on Windows.
Names slashed(Names names) {
  for (std::string& name : names) {
    std::ranges::replace(name, '\\', '/');
  }
  return names;
}

Names namedBy(const std::string& argument) {
  return slashed(filesNamedBy(argument));
}

TEST_F(ToolDrawingFiles, OfAFolderAreItsDrawingsAndThoseBelowByName) {
  EXPECT_EQ(namedBy("names"), (Names{"names/a1.xml", "names/a2.XML", "names/b1.xml",
                                     "names/floor/c.Xml", "names/floor/detail/d.xml"}));
  EXPECT_EQ(namedBy("names/floor/detail"), (Names{"names/floor/detail/d.xml"}));
}

TEST_F(ToolDrawingFiles, AreRefusedForAFolderWithoutAny) {
  const auto reasonOf = [](const std::string& folder) {
    try {
      filesNamedBy(folder);
    } catch (const Unreadable& fault) {
      return std::string(fault.what());
    }
    return std::string("taken");
  };
  EXPECT_EQ(reasonOf("names/empty.xml"), "names/empty.xml: there is no .xml file in this folder");
  EXPECT_EQ(reasonOf("names/nowhere"), "taken");  // as a name of its own
}

TEST_F(ToolDrawingFiles, OfAPatternAreThoseThatItFitsInAnyCase) {
  const std::pair<const char*, Names> cases[] = {
      {"names/*.xml", {"names/a1.xml", "names/a2.XML", "names/b1.xml"}},
      {"names/A*", {"names/a1.xml", "names/a2.XML"}},
      {"names/?1.xml", {"names/a1.xml", "names/b1.xml"}},
      {"names/*1*", {"names/a1.xml", "names/b1.json", "names/b1.xml"}},
      {"names/**1.x?l", {"names/a1.xml", "names/b1.xml"}},
      {"names/b1.*", {"names/b1.json", "names/b1.xml"}},
      {"names/*b*.*x*", {"names/b1.xml"}},
      {"names/floor/*.xml", {"names/floor/c.Xml"}},
      {"names/xm?", {"names/xml"}},
  };
  for (const auto& [pattern, names] : cases) {
    EXPECT_EQ(namedBy(pattern), names) << pattern;
  }
}

// A pattern that fits nothing is a name, which is then not found; stars in folders are no pattern.
TEST_F(ToolDrawingFiles, OfAPatternThatFitsNoneAreThePatternItself) {
  for (const char* const name : {"names/?.xml", "names/c*.xml", "names/*/d.xml", "nowhere/*.xml",
                                 "names/a1.xml?", "names/missing.xml", ""}) {
    EXPECT_EQ(filesNamedBy(name), Names{name}) << name;
  }
}

TEST_F(ToolDrawingFiles, AreTakenOnceInTheOrderOfTheirArguments) {
  std::ostringstream out;
  std::ostringstream err;
  Console console{out, err};
  EXPECT_EQ(
      slashed(drawingFiles(
          {"names/b1.xml", "names/?1.xml", "names/floor/../b1.xml", "names/missing.xml"}, console)),
      (Names{"names/b1.xml", "names/a1.xml", "names/missing.xml"}));
  std::string warnings = err.str();
  std::ranges::replace(warnings, '\\', '/');
  EXPECT_EQ(warnings,
            "names/b1.xml: warning: named twice, and taken once\n"
            "names/floor/../b1.xml: warning: named twice, and taken once\n");
  EXPECT_EQ(out.str(), "");
  EXPECT_TRUE(drawingFiles({}, console).empty());
}

}  // namespace

}  // namespace quorvan::tool
