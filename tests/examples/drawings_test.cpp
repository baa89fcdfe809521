// Real drawings, from JSON through the flat functions into a file and back through the classes.

#include <gtest/gtest.h>
#include <quorvan/quorvan.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include <tests/examples/drawing_files.h>
#include <tests/examples/element_json.h>
#include <tests/support/saved_file.h>
#include <tests/tools/tool_run.h>

namespace quorvan::test {
namespace {

using Json = nlohmann::json;

class ExampleDrawing : public testing::TestWithParam<std::string> {};

INSTANTIATE_TEST_SUITE_P(Structure, ExampleDrawing,
                         testing::Values("beam-b12", "column-c3", "slab-d2"),
                         [](const testing::TestParamInfo<std::string>& drawing) {
                           return drawing.param.substr(0, drawing.param.find('-'));
                         });

TEST_P(ExampleDrawing, IsWrittenByteForByte) {
  const std::string path = writeExample(GetParam());
  EXPECT_EQ(savedBytes(path), fileBytes(goldenPath(path)));
}

TEST_P(ExampleDrawing, IsWrittenTheSameASecondTime) {
  const std::string path = writeExample(GetParam());
  const std::string first = fileBytes(path);
  writeExample(GetParam());
  EXPECT_EQ(fileBytes(path), first);
}

TEST_P(ExampleDrawing, LeavesNoOtherFile) {
  std::filesystem::create_directory("alone-" + GetParam());
  const auto here = std::filesystem::current_path();
  std::filesystem::current_path("alone-" + GetParam());
  const std::string path = writeExample(GetParam());
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(".")) {
    names.push_back(entry.path().filename().string());
  }
  std::filesystem::current_path(here);
  EXPECT_EQ(names, std::vector<std::string>{path});
}

// The elements of that class which the file must hold: a hidden bar only once, unless it is a bar
// seen end-on.
std::vector<Json> expectedElements(const Json& drawing, const std::string& className) {
  std::vector<Json> expected;
  for (const Json& element : drawing.at("elements")) {
    if (element.value("class", "") != className) {
      continue;
    }
    const bool once = element.value("Hidden", false) && className != "CKtZantoPointBar";
    if (!once || std::find(expected.begin(), expected.end(), element) == expected.end()) {
      expected.push_back(element);
    }
  }
  return expected;
}

template <class Element>
void expectReadBack(CKtFiler& filer, const Json& drawing, const std::string& className) {
  SCOPED_TRACE(className);
  std::vector<Json> found;
  Element element;
  while (element.fileIn(&filer) != 0) {
    found.push_back(toJson(element));
    element = Element();
  }
  const std::vector<Json> expected = expectedElements(drawing, className);
  ASSERT_EQ(found.size(), expected.size());
  for (std::size_t i = 0; i < found.size(); ++i) {
    EXPECT_EQ(found[i], expected[i]) << "element " << i + 1;
  }
}

TEST_P(ExampleDrawing, ReadsBackAsTheJsonSays) {
  const Json drawing = exampleJson(GetParam());
  CKtFiler filer;
  filer.newFiler(writeExample(GetParam()).c_str());
  expectReadBack<CKtZantoLine>(filer, drawing, "CKtZantoLine");
  expectReadBack<CKtZantoCircle>(filer, drawing, "CKtZantoCircle");
  expectReadBack<CKtZantoText>(filer, drawing, "CKtZantoText");
  expectReadBack<CKtFilledPolygon>(filer, drawing, "CKtFilledPolygon");
  expectReadBack<CKtZantoMesh>(filer, drawing, "CKtZantoMesh");
  expectReadBack<CKtZantoFormwork>(filer, drawing, "CKtZantoFormwork");
  expectReadBack<CKtZantoStraightBar>(filer, drawing, "CKtZantoStraightBar");
  expectReadBack<CKtZantoLBar>(filer, drawing, "CKtZantoLBar");
  expectReadBack<CKtZantoUBar>(filer, drawing, "CKtZantoUBar");
  expectReadBack<CKtZantoPin>(filer, drawing, "CKtZantoPin");
  expectReadBack<CKtZantoPointBar>(filer, drawing, "CKtZantoPointBar");
  expectReadBack<CKtZantoPolygonBar>(filer, drawing, "CKtZantoPolygonBar");
  expectReadBack<CKtZantoFrameRect>(filer, drawing, "CKtZantoFrameRect");
  expectReadBack<CKtZantoFrameCirc>(filer, drawing, "CKtZantoFrameCirc");
  expectReadBack<CKtZantoStirrup>(filer, drawing, "CKtZantoStirrup");
}

TEST_P(ExampleDrawing, NamesItselfInItsControlRecord) {
  const Json control = exampleJson(GetParam()).at("drawing");
  CKtFiler filer;
  filer.newFiler(writeExample(GetParam()).c_str());
  CKtDrawingControl record;
  ASSERT_EQ(record.fileIn(&filer), 1);
  EXPECT_EQ(record.GetDrawingName(), control.at("name").get<std::string>().c_str());
  EXPECT_EQ(record.GetZantoVersion(), control.at("version").get<std::string>().c_str());
  EXPECT_EQ(record.GetServicePack(), control.at("servicePack").get<long>());
  EXPECT_EQ(record.GetCheckSum(), control.at("checkSum").get<long>());
  EXPECT_EQ(record.fileIn(&filer), 0);
}

// What the example hosts write is an example to others.
TEST(ExampleDrawings, OfTheHostsHaveNoFindings) {
  for (const char* const file : {"beam-b7.xml", "lintel.xml"}) {
    EXPECT_EQ(runTool({"check", goldenPath(file)}).status, 0) << file;
  }
}

// Two of the three bottom bars are hidden behind the first, and the host exports them twice.
TEST(ExampleDrawings, HiddenBarsThatComeAgainAreWrittenOnce) {
  const Json drawing = exampleJson("beam-b12");
  int hiddenInJson = 0;
  for (const Json& element : drawing.at("elements")) {
    hiddenInJson += element.value("class", "") == "CKtZantoStraightBar" &&
                    element.at("Reference") == 1 && element.at("Hidden") == true;
  }
  CKtFiler filer;
  filer.newFiler(writeExample("beam-b12").c_str());
  int seen = 0;
  int hidden = 0;
  CKtZantoStraightBar bar;
  while (bar.fileIn(&filer) != 0) {
    if (bar.getReference() == 1) {
      ++(bar.getHidden() ? hidden : seen);
    }
  }
  EXPECT_EQ(hiddenInJson, 4);
  EXPECT_EQ(hidden, 2);
  EXPECT_EQ(seen, 1);
}

}  // namespace
}  // namespace quorvan::test
