#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <set>

#include <quorvan/elements/element_classes.h>

#include <tools/console/console.h>
#include <tools/model/class_names.h>

namespace {

using quorvan::tool::Failure;
using quorvan::tool::fullClassName;
using quorvan::tool::shortClassName;
using quorvan::tool::shortClassNames;
namespace items = quorvan::items;

std::string inCase(std::string text, int (*change)(int)) {
  std::ranges::transform(text, text.begin(),
                         [change](char unit) { return static_cast<char>(change(unit)); });
  return text;
}

TEST(ToolClassNames, AreTakenShortOrFullInAnyCase) {
  for (const items::ElementSchema& schema : items::allElements()) {
    const std::string full(schema.className);
    const std::string brief(shortClassName(full));
    for (const std::string& name : {full, brief}) {
      EXPECT_EQ(fullClassName(name), full);
      EXPECT_EQ(fullClassName(inCase(name, std::tolower)), full);
      EXPECT_EQ(fullClassName(inCase(name, std::toupper)), full);
    }
  }
}

TEST(ToolClassNames, AreShortWithoutTheirPrefix) {
  EXPECT_EQ(shortClassName("CKtZantoStraightBar"), "StraightBar");
  EXPECT_EQ(shortClassName("CKtFilledPolygon"), "FilledPolygon");
  EXPECT_EQ(shortClassName("CKtZanto"), "");
  EXPECT_EQ(shortClassName("Other"), "Other");
  EXPECT_EQ(shortClassName(""), "");
}

TEST(ToolClassNames, DifferAlsoWhenTheyAreShort) {
  const std::vector<std::string> names = shortClassNames();
  EXPECT_EQ(names.size(), items::allElements().size());
  EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), names.size());
}

TEST(ToolClassNames, AreListedWhereOneIsUnknown) {
  for (const char* const name : {"", "bar", "straight bar", "StraightBa", "CKtZantoStraightBars",
                                 "ZantoLine", " Line", "L\u00EDne"}) {
    try {
      fullClassName(name);
      FAIL() << name;
    } catch (const Failure& failure) {
      const std::string said = failure.what();
      EXPECT_TRUE(said.starts_with('"' + std::string(name) + "\" is not an element class;"));
      for (const std::string& known : shortClassNames()) {
        EXPECT_NE(said.find(known), std::string::npos) << said;
      }
    }
  }
}

}  // namespace
