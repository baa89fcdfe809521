// Whole drawings of every class, as files, as listings and as files again.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <map>
#include <random>

#include <tests/support/saved_file.h>
#include <tests/support/transfer_text.h>
#include <tests/tools/item_samples.h>
#include <tests/tools/sample.h>
#include <tests/tools/tool_run.h>

namespace quorvan::tool {

namespace {

using nlohmann::json;
using test::runTool;

// Elements of classes at random, each with its index, and the record that closes the drawing.
std::string chanceElements(std::mt19937& random, int count, std::vector<std::string>& classes) {
  const auto& schemas = items::allElements();
  std::map<std::string, int> indexes;
  std::string elements;
  const auto add = [&](const items::ElementSchema& schema) {
    const std::string name(schema.className);
    classes.push_back(name);
    elements += test::elementText(schema, test::randomItems(schema, random), ++indexes[name]);
  };
  const items::ElementSchema* control = nullptr;
  for (int i = 0; i < count; ++i) {
    const items::ElementSchema& schema = schemas[random() % std::size(schemas)];
    if (schema.id == items::ElementClass::kDrawingControl) {
      control = &schema;
    } else {
      add(schema);
    }
  }
  if (control != nullptr) {
    add(*control);
  }
  return elements;
}

std::string listingOf(const std::string& file) {
  const auto run = runTool({"list", "--json", file});
  EXPECT_EQ(run.status, 0) << run.err;
  return run.out;
}

TEST(ToolRoundTrip, KeepsEveryElementInItsOrder) {
  std::mt19937 random(441);
  for (int round = 0; round < 12; ++round) {
    std::vector<std::string> classes;
    test::writeFile("first.xml",
                    test::transferFile(chanceElements(random, 5 + 5 * round, classes)));
    const std::string listing = listingOf("first.xml");
    const json drawing = json::parse(listing);
    std::vector<std::string> listed;
    for (const json& element : drawing["elements"]) {
      listed.push_back(element["class"]);
    }
    if (!drawing["drawing"].is_null()) {
      listed.emplace_back("CKtDrawingControl");
    }
    EXPECT_EQ(listed, classes);
    test::writeFile("first.json", listing);
    const auto written = runTool({"write", "first.json", "-o", "second.xml"});
    ASSERT_EQ(written.status, 0) << written.err;
    EXPECT_EQ(listingOf("second.xml"), listing);
    // What the program wrote itself it writes again byte for byte.
    ASSERT_EQ(runTool({"write", "first.json", "-o", "third.xml"}).status, 0);
    EXPECT_EQ(test::fileBytes("third.xml"), test::fileBytes("second.xml"));
  }
}

// The layout of the JSON is nothing to the file.
TEST(ToolRoundTrip, IsTheSameFromJsonOnOneLineAndWithItsMembersInAnotherOrder) {
  test::writeFile("laid-out.json", test::sampleDrawing());
  const json drawing = json::parse(test::sampleDrawing());  // members by name
  test::writeFile("one-line.json", drawing.dump());
  test::writeFile("indented.json", drawing.dump(7));
  for (const std::string name : {"laid-out", "one-line", "indented"}) {
    ASSERT_EQ(runTool({"write", name + ".json", "-o", name + ".xml"}).status, 0);
    EXPECT_EQ(test::savedBytes(name + ".xml"), test::sampleBytes()) << name;
  }
}

TEST(ToolRoundTrip, KeepsADrawingOfNothing) {
  test::writeFile("nothing.json", R"({"drawing": null, "elements": []})");
  ASSERT_EQ(runTool({"write", "nothing.json", "-o", "nothing.xml"}).status, 0);
  const json drawing = json::parse(listingOf("nothing.xml"));
  EXPECT_TRUE(drawing["drawing"].is_null());
  EXPECT_TRUE(drawing["elements"].empty());
}

}  // namespace

}  // namespace quorvan::tool
