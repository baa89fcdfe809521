// What the program takes from a transfer file, sound or not.
#include <gtest/gtest.h>

#include <set>

#include <tests/support/saved_file.h>
#include <tests/support/transfer_text.h>
#include <tests/tools/loaded_file.h>
#include <tests/tools/sample.h>

namespace {

using quorvan::test::classElement;
using quorvan::test::loadedElements;
using quorvan::test::LoadedFile;
using quorvan::test::transferFile;
using quorvan::tool::Element;
using quorvan::tool::NotWellFormed;
using quorvan::tool::Tolerance;
namespace items = quorvan::items;

std::string oneOfEveryClass() {
  std::string elements;
  for (const items::ElementSchema& schema : items::allElements()) {
    elements += classElement(schema.className, 1, "");
  }
  return elements;
}

TEST(ToolFile, KnowsTheElementsOfEveryClass) {
  const LoadedFile loaded = loadedElements(oneOfEveryClass());
  const auto& elements = loaded.file().elements();
  ASSERT_EQ(elements.size(), items::allElements().size());
  for (std::size_t i = 0; i < elements.size(); ++i) {
    const items::ElementSchema& schema = items::allElements()[i];
    EXPECT_EQ(elements[i].className(), schema.className);
    EXPECT_EQ(elements[i].schema, &schema);
    EXPECT_TRUE(elements[i].is(schema.id));
    EXPECT_EQ(elements[i].ordinal, 1U);
    EXPECT_EQ(elements[i].place, i);
  }
}

TEST(ToolFile, IsOfOneClassAlone) {
  const LoadedFile loaded = loadedElements(oneOfEveryClass());
  for (const Element& element : loaded.file().elements()) {
    std::set<items::ElementClass> classes;
    for (const items::ElementSchema& schema : items::allElements()) {
      if (element.is(schema.id)) {
        classes.insert(schema.id);
      }
    }
    EXPECT_EQ(classes.size(), 1U) << element.className();
  }
}

TEST(ToolFile, NumbersElementsWithinTheirClass) {
  const LoadedFile loaded = loadedElements(
      "<CKtZantoLine index='9'/><CKtZantoText/><CKtZantoLine index='9'/><Other/><CKtZantoText/>");
  std::string told;
  for (const Element& element : loaded.file().elements()) {
    told += std::string(element.className()) + ' ' + std::to_string(element.ordinal) + ' ' +
            std::to_string(element.place) + '\n';
  }
  EXPECT_EQ(told,
            "CKtZantoLine 1 0\nCKtZantoText 1 1\nCKtZantoLine 2 2\nOther 1 3\nCKtZantoText 2 4\n");
}

TEST(ToolFile, TellsUnknownClassesApartByTheirWholeName) {
  for (const char* const name :
       {"Other", "cktzantoline", "CKtZantoLin", "CKtZantoLines", "Line", "CKtLine"}) {
    const LoadedFile loaded = loadedElements('<' + std::string(name) + "/>");
    ASSERT_EQ(loaded.file().elements().size(), 1U) << name;
    EXPECT_EQ(loaded.element(0).schema, nullptr) << name;
    EXPECT_EQ(loaded.element(0).className(), name);
    EXPECT_FALSE(loaded.element(0).is(items::ElementClass::kLine)) << name;
  }
}

TEST(ToolFile, TakesOnlyElementsBelowTheRootForOnes) {
  const LoadedFile loaded =
      loadedElements("text<!-- <CKtZantoLine/> --><CKtZantoLine><CKtZantoText/></CKtZantoLine>");
  ASSERT_EQ(loaded.file().elements().size(), 1U);
  EXPECT_EQ(loaded.element(0).className(), "CKtZantoLine");
}

TEST(ToolFile, MayBeWithoutElements) {
  for (const char* const bytes : {"<Document/>", "<Document></Document>", "<Anything/>"}) {
    const LoadedFile loaded{std::string(bytes)};
    EXPECT_TRUE(loaded.file().elements().empty());
    EXPECT_EQ(controlRecord(loaded.file()), nullptr);
    EXPECT_EQ(loaded.warnings(), "");
  }
}

TEST(ToolFile, TellsItsNameSizeAndEncoding) {
  const std::string bytes = transferFile(oneOfEveryClass());
  const LoadedFile loaded(bytes);
  EXPECT_EQ(loaded.file().name(), "loaded.xml");
  EXPECT_EQ(loaded.file().size(), bytes.size());
  EXPECT_EQ(loaded.file().encoding().name(), "ISO-8859-1");
}

TEST(ToolFile, GivesTheIndexAsItStands) {
  const LoadedFile loaded = loadedElements(
      "<CKtZantoLine index='7'/><CKtZantoLine/><CKtZantoLine index=' x'/><Other index='-1'/>");
  std::vector<std::string> indexes;
  for (const Element& element : loaded.file().elements()) {
    indexes.emplace_back(loaded.file().indexOf(element));
  }
  EXPECT_EQ(indexes, (std::vector<std::string>{"7", "", " x", "-1"}));
}

TEST(ToolFile, KeepsAttributesAndTextsOfItemsInUtf8) {
  const LoadedFile loaded = loadedElements(
      "<CKtZantoText><Contents string='\xE9&#8364;&lt;&#10;&#128512;'/></CKtZantoText>");
  const auto& tree = loaded.tree();
  const auto* const contents = tree.firstChild(*loaded.element(0).node);
  ASSERT_NE(contents, nullptr);
  EXPECT_EQ(*tree.attribute(*contents, "string"), "\u00E9\u20AC<\n\U0001F600");
}

TEST(ToolFile, KeepsItemsAndEntriesOfListsAndNothingDeeper) {
  const LoadedFile loaded = loadedElements(
      "<CKtZantoMesh><Vector><Point1><Deeper><Deepest/></Deeper></Point1><Point2/></Vector>"
      "<Color/></CKtZantoMesh><CKtZantoLine/>");
  const auto& tree = loaded.tree();
  const auto* const vector = tree.firstChild(*loaded.element(0).node);
  const auto* const point = tree.firstChild(*vector);
  EXPECT_EQ(tree.firstChild(*point), nullptr);
  EXPECT_EQ(tree.name(*tree.nextSibling(*point)), "Point2");
  EXPECT_EQ(tree.name(*tree.nextSibling(*vector)), "Color");
  EXPECT_EQ(loaded.tree().position(*loaded.element(1).node).line, 2U);
}

TEST(ToolFile, KnowsWhereEachNodeStands) {
  const std::string bytes =
      "<Document>\n  <CKtZantoLine>\n    <Point1 X='0'/>\n  </CKtZantoLine>\n  "
      "<CKtZantoMesh><Vector>\n<Point1><x/></Point1></Vector></CKtZantoMesh></Document>";
  const LoadedFile loaded(bytes);
  EXPECT_EQ(loaded.tree().position(*loaded.element(0).node).line, 2U);
  EXPECT_EQ(loaded.tree().position(*loaded.element(0).node).column, 3U);
  const auto* const mesh = loaded.element(1).node;
  EXPECT_EQ(loaded.tree().position(*mesh).line, 5U);
  EXPECT_EQ(loaded.tree().position(*mesh).column, 3U);
  const auto* const vector = loaded.tree().firstChild(*mesh);
  EXPECT_EQ(loaded.tree().position(*vector).column, 17U);
  EXPECT_EQ(loaded.tree().position(*loaded.tree().firstChild(*vector)).line, 6U);
}

TEST(ToolFile, HoldsTheSameInEveryEncoding) {
  const std::string content =
      "<Document><CKtZantoText><Contents string='&#233;&#8364;'/>"
      "</CKtZantoText><CKtZantoLine index='2'/></Document>";
  std::string utf16 = "\xFF\xFE";
  for (const char unit : content) {
    utf16 += unit;
    utf16 += '\0';
  }
  for (const std::string& bytes : {content, "\xEF\xBB\xBF" + content, utf16}) {
    const LoadedFile loaded(bytes);
    ASSERT_EQ(loaded.file().elements().size(), 2U);
    EXPECT_EQ(loaded.items(0)[0].text, "\u00E9\u20AC");
    EXPECT_EQ(loaded.file().indexOf(loaded.element(1)), "2");
    EXPECT_EQ(loaded.tree().position(*loaded.element(1).node).column,
              content.find("<CKtZantoLine") + 1);
  }
}

TEST(ToolFile, SaysWhereItIsNotWellFormed) {
  for (const auto& [bytes, line] : {std::pair{"<Document>\n<a></b></Document>", 2U},
                                    {"<Document>\n\n<a x='1' x='2'/></Document>", 3U},
                                    {"<Document>", 1U},
                                    {"", 0U},
                                    {"no document", 1U}}) {
    try {
      const LoadedFile loaded{std::string(bytes)};
      FAIL() << bytes;
    } catch (const NotWellFormed& failure) {
      const std::string_view said = failure.what();
      EXPECT_TRUE(said.starts_with("loaded.xml:")) << said;
      EXPECT_NE(said.find("not well-formed: "), std::string_view::npos) << said;
      EXPECT_FALSE(failure.refusal().reason.empty());
      if (line > 1) {
        EXPECT_EQ(failure.refusal().position.line, line) << bytes;
      }
    }
  }
}

TEST(ToolFile, TellsAPlaceOnlyWhereItIsKnown) {
  EXPECT_STREQ(NotWellFormed("a.xml", {{3, 7}, "why"}).what(), "a.xml:3:7: not well-formed: why");
  EXPECT_STREQ(NotWellFormed("a.xml", {{0, 0}, "why"}).what(), "a.xml: not well-formed: why");
}

TEST(ToolFile, FailsForAFileThatIsNotThere) {
  std::ostringstream none;
  quorvan::tool::Console console{none, none};
  EXPECT_THROW(quorvan::tool::TransferFile("missing.xml", console), quorvan::tool::Failure);
}

TEST(ToolFile, ReadsOverForbiddenCharactersOnlyWhenAskedTo) {
  const std::string bytes =
      "<Document>\n<CKtZantoText><Contents string='a\x01&#2;b'/></CKtZantoText></Document>";
  EXPECT_THROW(LoadedFile{bytes}, NotWellFormed);
  const LoadedFile loaded(bytes, Tolerance::kForbiddenCharacters);
  EXPECT_EQ(loaded.items(0)[0].text, "a\uFFFD\uFFFDb");
  const auto& places = loaded.file().forbiddenCharacters();
  ASSERT_EQ(places.size(), 2U);
  EXPECT_EQ(places[0].line, 2U);
  EXPECT_EQ(places[0].column, 34U);
  EXPECT_EQ(places[1].column, 35U);
  EXPECT_EQ(loaded.file().size(), bytes.size());
}

TEST(ToolFile, HasNoForbiddenCharactersWhereItIsSound) {
  const LoadedFile loaded(transferFile(oneOfEveryClass()), Tolerance::kForbiddenCharacters);
  EXPECT_TRUE(loaded.file().forbiddenCharacters().empty());
}

TEST(ToolFile, IsRefusedForOtherFaultsWhateverIsTolerated) {
  EXPECT_THROW(LoadedFile("<Document>\x01<a></Document>", Tolerance::kForbiddenCharacters),
               NotWellFormed);
  EXPECT_THROW(LoadedFile("<Document>", Tolerance::kForbiddenCharacters), NotWellFormed);
}

TEST(ToolFile, WarnsOfANodeThatReadersTakeForTheRoot) {
  const std::string bytes = "<!-- by hand --><Document><CKtZantoLine/></Document>";
  const LoadedFile loaded(bytes);
  EXPECT_EQ(loaded.file().nodeBeforeRoot(), "#comment");
  EXPECT_EQ(loaded.file().elements().size(), 1U);
  EXPECT_EQ(loaded.warnings(),
            "loaded.xml: warning: \"#comment\" stands before the root element: programs that read "
            "this file find no element in it\n");
  EXPECT_EQ(LoadedFile(bytes, Tolerance::kForbiddenCharacters).warnings(), "");
}

TEST(ToolFile, TakesADeclarationForNoSuchNode) {
  const LoadedFile loaded(transferFile("<CKtZantoLine/>"));
  EXPECT_EQ(loaded.file().nodeBeforeRoot(), "");
  EXPECT_EQ(loaded.warnings(), "");
}

TEST(ToolFile, HasItsLastControlRecordForItsOwn) {
  const LoadedFile loaded =
      loadedElements("<CKtDrawingControl index='1'/><CKtDrawingControl index='2'/><CKtZantoLine/>");
  const Element* const record = controlRecord(loaded.file());
  ASSERT_NE(record, nullptr);
  EXPECT_EQ(record->ordinal, 2U);
  EXPECT_EQ(controlRecord(loadedElements("<CKtZantoLine/>").file()), nullptr);
}

TEST(ToolFile, IsNotChangedByBeingRead) {
  const std::string bytes = "<Document>\r\n <CKtZantoLine/>\n</Document>  ";
  { const LoadedFile loaded(bytes); }
  EXPECT_EQ(quorvan::test::fileBytes("loaded.xml"), bytes);
}

}  // namespace
