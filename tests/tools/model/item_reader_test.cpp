// Items as they are read from a file, whole or not, and what is said to be wrong with them.
#include <tools/model/item_reader.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>

#include <tests/support/transfer_text.h>
#include <tests/tools/item_samples.h>
#include <tests/tools/loaded_file.h>
#include <tools/model/named_children.h>

namespace {

using quorvan::test::classElement;
using quorvan::test::elementText;
using quorvan::test::elementTextWithout;
using quorvan::test::itemText;
using quorvan::test::loadedElements;
using quorvan::test::LoadedFile;
using quorvan::test::randomItems;
using quorvan::test::rawItem;
using quorvan::test::sameValue;
using quorvan::tool::Coordinates;
using quorvan::tool::findItem;
using quorvan::tool::ItemProblem;
using quorvan::tool::ItemValue;
using quorvan::tool::ProblemKind;
namespace items = quorvan::items;

constexpr unsigned kSeed = 20;

// Calls with every item of every class.
template <class Call>
void forEveryItem(const Call& call) {
  for (const items::ElementSchema& schema : items::allElements()) {
    for (const items::ItemSchema& item : schema.items) {
      SCOPED_TRACE(std::string(schema.className) + ' ' + std::string(item.name));
      call(schema, item);
    }
  }
}

// The problems of the only element, as "kind item" in lines.
std::string toldProblems(const std::vector<ItemProblem>& problems) {
  constexpr const char* kKinds[] = {"missing", "mistyped", "noNumber",  "blanks",
                                    "noFlag",  "numeric",  "disagrees", "outOfRange",
                                    "odd",     "unknown",  "repeated"};
  std::string text;
  for (const ItemProblem& problem : problems) {
    text += std::string(kKinds[static_cast<int>(problem.kind)]) + ' ' + problem.item + '\n';
  }
  return text;
}

std::string problemsIn(const std::string& element) {
  return toldProblems(loadedElements(element).problems(0));
}

// The element of the schema with one of its items written otherwise.
std::string elementWith(const items::ElementSchema& schema, const items::ItemSchema& item,
                        const std::string& text) {
  std::mt19937 random(kSeed);
  std::string all;
  for (const ItemValue& value : randomItems(schema, random)) {
    all += value.schema == &item ? text : itemText(value);
  }
  return classElement(schema.className, 1, all);
}

ItemValue readAs(const std::string& element, std::string_view name) {
  const LoadedFile loaded = loadedElements(element);
  const std::vector<ItemValue> values = loaded.items(0);
  const ItemValue* const found = findItem(values, name);
  EXPECT_NE(found, nullptr) << name;
  return found == nullptr ? ItemValue() : *found;
}

TEST(ToolItemReader, ReadsBackWhateverWasWrittenInEveryClass) {
  std::mt19937 random(kSeed);
  std::string elements;
  std::vector<std::vector<ItemValue>> written;
  std::vector<const items::ElementSchema*> schemas;
  for (int round = 0; round < 20; ++round) {
    for (const items::ElementSchema& schema : items::allElements()) {
      schemas.push_back(&schema);
      written.push_back(randomItems(schema, random));
      elements += elementText(schema, written.back(), round);
    }
  }
  const LoadedFile loaded = loadedElements(elements);
  ASSERT_EQ(loaded.file().elements().size(), written.size());
  for (std::size_t i = 0; i < written.size(); ++i) {
    const std::vector<ItemValue> read = loaded.items(i);
    ASSERT_EQ(read.size(), written[i].size());
    for (std::size_t k = 0; k < read.size(); ++k) {
      EXPECT_TRUE(sameValue(read[k], written[i][k]))
          << schemas[i]->className << ' ' << itemText(written[i][k]);
    }
    EXPECT_EQ(toldProblems(loaded.problems(i)), "") << schemas[i]->className;
  }
}

TEST(ToolItemReader, FindsItemsInAnyOrder) {
  std::mt19937 random(kSeed + 1);
  for (const items::ElementSchema& schema : items::allElements()) {
    const std::vector<ItemValue> written = randomItems(schema, random);
    std::vector<ItemValue> shuffled = written;
    std::shuffle(shuffled.begin(), shuffled.end(), random);
    const LoadedFile loaded = loadedElements(elementText(schema, shuffled));
    const std::vector<ItemValue> read = loaded.items(0);
    for (std::size_t i = 0; i < read.size(); ++i) {
      EXPECT_TRUE(sameValue(read[i], written[i])) << schema.className;
    }
    EXPECT_EQ(toldProblems(loaded.problems(0)), "") << schema.className;
  }
}

// One reader goes from element to element: nothing of the one before may stay.
TEST(ToolItemReader, ForgetsTheElementBefore) {
  std::mt19937 random(kSeed + 2);
  std::string elements;
  for (const items::ElementSchema& schema : items::allElements()) {
    elements += elementText(schema, randomItems(schema, random));
    elements += classElement(schema.className, 2, "");
  }
  const LoadedFile loaded = loadedElements(elements);
  quorvan::tool::ItemReader reader(loaded.file());
  for (std::size_t i = 0; i < loaded.file().elements().size(); i += 2) {
    reader.read(loaded.element(i));
    for (const ItemValue& value : reader.read(loaded.element(i + 1))) {
      ItemValue untouched;
      untouched.schema = value.schema;
      EXPECT_TRUE(sameValue(value, untouched)) << value.schema->name;
    }
  }
}

TEST(ToolItemReader, HasDefaultsForWhatIsMissingAndTheRestAsItIs) {
  std::mt19937 random(kSeed);
  forEveryItem([&](const items::ElementSchema& schema, const items::ItemSchema& item) {
    const std::vector<ItemValue> written = randomItems(schema, random);
    const LoadedFile loaded = loadedElements(elementTextWithout(schema, written, item.name));
    const std::vector<ItemValue> read = loaded.items(0);
    for (std::size_t i = 0; i < read.size(); ++i) {
      ItemValue expected = written[i];
      if (read[i].schema == &item) {
        expected = ItemValue();
        expected.schema = &item;
      }
      EXPECT_TRUE(sameValue(read[i], expected)) << read[i].schema->name;
    }
  });
}

// In whatever order the items stand in the file.
TEST(ToolItemReader, ReadsTheItemsOfASelectionAndLeavesTheOthers) {
  const auto isWanted = [](const items::ItemSchema& item) { return item.name.size() % 2 == 0; };
  const quorvan::tool::ItemSelection selection(isWanted);
  std::mt19937 random(kSeed);
  for (const items::ElementSchema& schema : items::allElements()) {
    std::vector<ItemValue> written = randomItems(schema, random);
    for (const bool isInOrder : {true, false}) {
      const LoadedFile loaded = loadedElements(elementText(schema, written));
      quorvan::tool::ItemReader reader(loaded.file());
      const std::vector<ItemValue>& read = reader.read(loaded.element(0), selection);
      ASSERT_EQ(read.size(), schema.items.size());
      for (std::size_t i = 0; i < read.size(); ++i) {
        SCOPED_TRACE(std::string(schema.className) + ' ' + std::string(schema.items[i].name));
        ItemValue expected = *findItem(written, schema.items[i].name);
        if (!isWanted(schema.items[i])) {
          expected = ItemValue();
          expected.schema = &schema.items[i];
        }
        EXPECT_EQ(read[i].isMissing(), !isWanted(schema.items[i]));
        EXPECT_TRUE(sameValue(read[i], expected));
      }
      if (isInOrder) {
        std::shuffle(written.begin(), written.end(), random);
      }
    }
  }
}

TEST(ToolItemReader, ReportsWhatIsMissingUnlessItMayBe) {
  std::mt19937 random(kSeed);
  forEveryItem([&](const items::ElementSchema& schema, const items::ItemSchema& item) {
    const std::string said =
        problemsIn(elementTextWithout(schema, randomItems(schema, random), item.name));
    const bool mayBeMissing = item.optional && item.stem.empty();
    EXPECT_EQ(said, mayBeMissing ? "" : "missing " + std::string(item.name) + '\n');
  });
}

TEST(ToolItemReader, PointsToTheElementThatLacksAnItem) {
  const LoadedFile loaded = loadedElements("<CKtZantoLine/>");
  const std::vector<ItemProblem> problems = loaded.problems(0);
  ASSERT_EQ(problems.size(), 3U);
  EXPECT_EQ(problems[0].at, loaded.element(0).node);
  EXPECT_EQ(problems[0].found, "");
  EXPECT_EQ(problems[0].expected, "the item \"Point1\"");
}

TEST(ToolItemReader, ReportsAnItemWithoutAttributes) {
  forEveryItem([](const items::ElementSchema& schema, const items::ItemSchema& item) {
    const std::string text = rawItem(item.name, "");
    const std::string line = "missing " + std::string(item.name) + '\n';
    const bool isPoint = item.kind == items::Kind::kPoint || item.kind == items::Kind::kVector;
    EXPECT_EQ(problemsIn(elementWith(schema, item, text)), isPoint ? line + line + line : line);
  });
}

TEST(ToolItemReader, ReportsTheAttributeOfAnotherType) {
  forEveryItem([](const items::ElementSchema& schema, const items::ItemSchema& item) {
    const std::string text = rawItem(item.name, "other=\"1\"");
    const std::string line = "mistyped " + std::string(item.name) + '\n';
    const bool isPoint = item.kind == items::Kind::kPoint || item.kind == items::Kind::kVector;
    EXPECT_EQ(problemsIn(elementWith(schema, item, text)), isPoint ? line + line + line : line);
    ItemValue untouched;
    untouched.schema = &item;
    ItemValue read = readAs(elementWith(schema, item, text), item.name);
    EXPECT_FALSE(read.isMissing());
    read.node = nullptr;
    EXPECT_TRUE(sameValue(read, untouched));
  });
}

TEST(ToolItemReader, ReportsTheCoordinateThatAPointLacks) {
  const LoadedFile loaded = loadedElements(classElement(
      "CKtZantoPointBar", 1, rawItem("Point1", "X=\"1\" Z=\"3\"") + rawItem("Hidden", "")));
  EXPECT_EQ(loaded.items(0)[0].point, (Coordinates{1, 0, 3}));
  const std::vector<ItemProblem> problems = loaded.problems(0);
  EXPECT_EQ(problems[0].kind, ProblemKind::kMissing);
  EXPECT_EQ(problems[0].expected, "the attribute \"Y\"");
  EXPECT_EQ(problems[0].found, "X=\"1\"");
}

TEST(ToolItemReader, ReadsAsFarAsANumberGoesAndReportsTheRest) {
  constexpr const char* kNone = "";
  constexpr const char* kNoNumber = "noNumber Radius\n";
  constexpr const char* kBlanks = "blanks Radius\n";
  for (const auto& [text, value, said] : {std::tuple{"12.5", 12.5, kNone},
                                          {"-0", 0.0, kNone},
                                          {"+3", 3.0, kNone},
                                          {"1e3", 1000.0, kNone},
                                          {".5", 0.5, kNone},
                                          {"", 0.0, kNoNumber},
                                          {"12,5", 12.0, kNoNumber},
                                          {"12.5 ", 12.5, kBlanks},
                                          {" 12.5", 12.5, kBlanks},
                                          {"x", 0.0, kNoNumber},
                                          {"inf", 0.0, kNoNumber},
                                          {"0x10", 0.0, kNoNumber},
                                          {"12.5mm", 12.5, kNoNumber},
                                          {"1e", 1.0, kNoNumber}}) {
    const std::string element = "<CKtZantoCircle><Center X='0' Y='0' Z='0'/><Radius double='" +
                                std::string(text) + "'/><Color long='1'/></CKtZantoCircle>";
    EXPECT_EQ(readAs(element, "Radius").number, value) << text;
    EXPECT_EQ(problemsIn(element), said) << text;
  }
}

TEST(ToolItemReader, ReadsLongsWithinTheirRangeAndReportsOthers) {
  for (const auto& [text, value, isNumber] : {std::tuple{"7", std::int64_t{7}, true},
                                              {"-2147483648", -2147483648, true},
                                              {"2147483647", 2147483647, true},
                                              {"2147483648", 2147483647, false},
                                              {"-99999999999", -2147483648, false},
                                              {"7.9", 7, false},
                                              {"", 0, false},
                                              {"7 x", 7, false},
                                              {"x", 0, false}}) {
    const std::string element =
        classElement("CKtDrawingControl", 1,
                     "<ZantoVersion string=''/><ServicePack long='" + std::string(text) +
                         "'/><CheckSum long='0'/><DrawingName string=''/>");
    EXPECT_EQ(readAs(element, "ServicePack").integer, value) << text;
    EXPECT_EQ(problemsIn(element), isNumber ? "" : "noNumber ServicePack\n") << text;
  }
  const std::string blank = classElement("CKtDrawingControl", 1,
                                         "<ZantoVersion string=''/><ServicePack long=' 7'/>"
                                         "<CheckSum long='0'/><DrawingName string=''/>");
  EXPECT_EQ(readAs(blank, "ServicePack").integer, 7);
  EXPECT_EQ(problemsIn(blank), "blanks ServicePack\n");
}

TEST(ToolItemReader, ReadsColorsFromZeroUpwards) {
  for (const auto& [text, value] : {std::pair{"0", std::int64_t{0}},
                                    {"255", 255},
                                    {"-1", 4294967295},
                                    {"-2147483648", 2147483648},
                                    {"2147483647", 2147483647}}) {
    EXPECT_EQ(
        readAs("<CKtZantoLine><Color long='" + std::string(text) + "'/></CKtZantoLine>", "Color")
            .integer,
        value);
  }
}

TEST(ToolItemReader, ReadsFlagsInAnyCaseAndReportsOthers) {
  const auto bar = [](const std::string& flag) {
    return "<CKtZantoPointBar><Hidden string='" + flag + "'/></CKtZantoPointBar>";
  };
  EXPECT_TRUE(readAs(bar("True"), "Hidden").flag);
  EXPECT_TRUE(readAs(bar("true"), "Hidden").flag);
  EXPECT_FALSE(readAs(bar("False"), "Hidden").flag);
  for (const char* const text : {"1", "", "yes", " True"}) {
    EXPECT_FALSE(readAs(bar(text), "Hidden").flag) << text;
    EXPECT_NE(problemsIn(bar(text)).find("noFlag Hidden\n"), std::string::npos) << text;
  }
}

TEST(ToolItemReader, TakesAnyNumberButZeroForASideThatIsSet) {
  for (const auto& [text, isSet] :
       {std::pair{"0", false}, {"1", true}, {"-1", true}, {"2", true}}) {
    const std::string element =
        "<CKtZantoPolygonBar><Side long='" + std::string(text) + "'/></CKtZantoPolygonBar>";
    EXPECT_EQ(readAs(element, "Side").flag, isSet) << text;
  }
}

TEST(ToolItemReader, TurnsTheAdherenceOfOlderFilesIntoItsText) {
  for (const auto& [code, adherence] :
       {std::pair{"0", "Ha"}, {"1", "Dx"}, {"2", ""}, {"x", "Ha"}}) {
    const LoadedFile loaded = loadedElements("<CKtZantoPointBar><Adherence long='" +
                                             std::string(code) + "'/></CKtZantoPointBar>");
    EXPECT_EQ(findItem(loaded.items(0), "Adherence")->text, adherence) << code;
    const auto problems = loaded.problems(0);
    const auto found =
        std::ranges::find(problems, ProblemKind::kNumericAdherence, &ItemProblem::kind);
    ASSERT_NE(found, problems.end());
    EXPECT_EQ(found->found, "long=\"" + std::string(code) + '"');
    EXPECT_EQ(found->expected, "string=\"" + std::string(adherence) + '"');
  }
}

TEST(ToolItemReader, ReadsTheFirstOfItemsThatComeAgain) {
  forEveryItem([](const items::ElementSchema& schema, const items::ItemSchema& item) {
    std::mt19937 random(kSeed + 3);
    const std::vector<ItemValue> first = randomItems(schema, random);
    const std::vector<ItemValue> second = randomItems(schema, random);
    const auto at = static_cast<std::size_t>(&item - schema.items.data());
    std::string text;
    for (const ItemValue& value : first) {
      text += itemText(value);
    }
    // Of a list beside its count only the count is an item.
    const bool isNumbered = item.kind == items::Kind::kNumberedPoints;
    text += isNumbered ? rawItem(item.name, "long=\"1\"") : itemText(second[at]);
    const LoadedFile loaded = loadedElements(classElement(schema.className, 1, text));
    EXPECT_TRUE(sameValue(loaded.items(0)[at], first[at]));
    EXPECT_EQ(toldProblems(loaded.problems(0)), "repeated " + std::string(item.name) + '\n');
  });
}

TEST(ToolItemReader, ReportsWhatIsNoItemOfTheClass) {
  for (const items::ElementSchema& schema : items::allElements()) {
    std::mt19937 random(kSeed);
    std::string text;
    for (const ItemValue& value : randomItems(schema, random)) {
      text += itemText(value);
    }
    EXPECT_EQ(problemsIn(classElement(schema.className, 1,
                                      "<Stranger/>" + text + "<!-- a comment --><point1/>")),
              "unknown Stranger\nunknown point1\n")
        << schema.className;
  }
}

// --- lists -------------------------------------------------------------------------------------

std::string polygonOf(const std::string& size, const std::string& entries) {
  return "<CKtFilledPolygon><Vector size='" + size + "'>" + entries +
         "</Vector><Color long='1'/></CKtFilledPolygon>";
}

std::string pointsAlongX(const std::vector<int>& numbers) {
  std::string text;
  for (const int number : numbers) {
    text += "<Point" + std::to_string(number) + " X='" + std::to_string(number) + "' Y='0' Z='0'/>";
  }
  return text;
}

// The x of each point that is read.
std::vector<double> pointsOf(const std::string& size, const std::vector<int>& numbers) {
  std::vector<double> result;
  for (const Coordinates& point : readAs(polygonOf(size, pointsAlongX(numbers)), "Vector").points) {
    result.push_back(point.x);
  }
  return result;
}

TEST(ToolItemReader, ReadsAsManyEntriesAsAreAnnouncedAndThere) {
  using Numbers = std::vector<double>;
  EXPECT_EQ(pointsOf("3", {1, 2, 3}), (Numbers{1, 2, 3}));
  EXPECT_EQ(pointsOf("2", {1, 2, 3}), (Numbers{1, 2}));
  EXPECT_EQ(pointsOf("5", {1, 2, 3}), (Numbers{1, 2, 3}));
  EXPECT_EQ(pointsOf("0", {1, 2, 3}), Numbers{});
  EXPECT_EQ(pointsOf("-1", {1, 2, 3}), Numbers{});
  EXPECT_EQ(pointsOf("x", {1, 2, 3}), Numbers{});
  EXPECT_EQ(pointsOf("3", {3, 1, 2}), (Numbers{1, 2, 3}));
  EXPECT_EQ(pointsOf("3", {1, 3}), (Numbers{1, 3}));
  EXPECT_EQ(pointsOf("2", {1, 2, 2, 1}), (Numbers{1, 2}));
}

TEST(ToolItemReader, ReportsCountsThatDisagreeWithTheEntries) {
  for (const auto& [size, numbers, said] :
       {std::tuple<std::string, std::vector<int>, std::string>{"3", {1, 2, 3}, ""},
        {"0", {}, ""},
        {"3", {2, 1, 3}, ""},
        {"2", {1, 2, 3}, "disagrees Vector\n"},
        {"4", {1, 2, 3}, "disagrees Vector\n"},
        {"-3", {1, 2, 3}, "disagrees Vector\n"},
        {"2", {1, 3}, "disagrees Vector\n"},
        {"3", {1, 3}, "disagrees Vector\n"},
        {"1", {}, "disagrees Vector\n"},
        {"3.0", {1, 2, 3}, "noNumber Vector\n"}}) {
    EXPECT_EQ(problemsIn(polygonOf(size, pointsAlongX(numbers))), said) << size;
  }
}

TEST(ToolItemReader, SaysWhichCountItFoundAndExpected) {
  const auto said = [](const std::string& size, const std::vector<int>& numbers) {
    const auto problems = loadedElements(polygonOf(size, pointsAlongX(numbers))).problems(0);
    return problems.at(0).found + "; " + problems.at(0).expected;
  };
  EXPECT_EQ(said("2", {1, 2, 3}), "size=\"2\" over 3 entries; 3, Point1 to Point3");
  EXPECT_EQ(said("5", {1}), "size=\"5\" over 1 entry; 1, Point1 to Point1");
  EXPECT_EQ(said("5", {}), "size=\"5\" over 0 entries; 0");
}

TEST(ToolItemReader, ReportsMoreEntriesThanTheSizeCanCount) {
  std::string entries;
  for (int number = 1; number <= 32768; ++number) {
    entries += "<Point" + std::to_string(number) + " X='1' Y='2' Z='3'/>";
  }
  EXPECT_EQ(problemsIn(polygonOf("32768", entries)), "outOfRange Vector\n");
  const std::string last = "<Point32768 X='1' Y='2' Z='3'/>";
  entries.resize(entries.size() - last.size());
  EXPECT_EQ(problemsIn(polygonOf("32767", entries)), "");
}

TEST(ToolItemReader, ReportsEntriesThatAreNotWhole) {
  EXPECT_EQ(problemsIn(polygonOf("1", "<Point1 X='1' Y='x' Z='3'/>")), "noNumber Point1\n");
  EXPECT_EQ(problemsIn(polygonOf("1", "<Point1 double='1'/>")),
            "mistyped Point1\nmistyped Point1\nmistyped Point1\n");
  EXPECT_EQ(problemsIn(polygonOf("1", "<Point1 X='1' Y='2'/>")), "missing Point1\n");
}

std::string formworkOf(const std::string& size, const std::vector<int>& points,
                       const std::vector<int>& bulges) {
  std::string text = pointsAlongX(points);
  for (const int number : bulges) {
    text += "<Bulge" + std::to_string(number) + " X='0' Y='" + std::to_string(number) + "' Z='0'/>";
  }
  return "<CKtZantoFormwork><Vector size='" + size + "'>" + text + "</Vector></CKtZantoFormwork>";
}

// "1-2^1 3-4^0": from where to where each segment goes, and its bulge.
std::string segmentsOf(const std::string& size, const std::vector<int>& points,
                       const std::vector<int>& bulges) {
  std::string text;
  for (const auto& segment : readAs(formworkOf(size, points, bulges), "Vector").segments) {
    text += (text.empty() ? "" : " ") + std::to_string(static_cast<int>(segment.start.x)) + '-' +
            std::to_string(static_cast<int>(segment.end.x)) + '^' +
            std::to_string(static_cast<int>(segment.bulge.y));
  }
  return text;
}

TEST(ToolItemReader, PutsTwoPointsAndABulgeToASegment) {
  EXPECT_EQ(segmentsOf("4", {1, 2, 3, 4}, {1, 2}), "1-2^1 3-4^2");
  EXPECT_EQ(segmentsOf("4", {4, 3, 2, 1}, {2, 1}), "1-2^1 3-4^2");
  EXPECT_EQ(segmentsOf("0", {}, {}), "");
}

TEST(ToolItemReader, MakesSegmentsOfAsMuchAsThereIs) {
  EXPECT_EQ(segmentsOf("4", {1, 2, 3, 4}, {2}), "1-2^0 3-4^2");
  EXPECT_EQ(segmentsOf("3", {1, 2, 3}, {1}), "1-2^1 3-0^0");
  EXPECT_EQ(segmentsOf("2", {1, 2, 3, 4}, {1, 2}), "1-2^1");
  EXPECT_EQ(segmentsOf("2", {1, 2}, {1, 2, 7}), "1-2^1");
  EXPECT_EQ(segmentsOf("6", {1, 2, 5, 6}, {1}), "1-2^1") << "what follows a gap";
  EXPECT_EQ(segmentsOf("-2", {1, 2}, {1}), "");
}

TEST(ToolItemReader, ReportsSegmentsThatAreNotWhole) {
  const auto said = [](const std::string& size, const std::vector<int>& points,
                       const std::vector<int>& bulges) {
    return problemsIn(formworkOf(size, points, bulges));
  };
  EXPECT_EQ(said("4", {1, 2, 3, 4}, {1, 2}), "");
  EXPECT_EQ(said("3", {1, 2, 3}, {1}), "odd Vector\n");
  EXPECT_EQ(said("4", {1, 2, 3, 4}, {1}), "disagrees Vector\n");
  EXPECT_EQ(said("4", {1, 2, 3, 4}, {1, 3}), "disagrees Vector\n");
  EXPECT_EQ(said("2", {1, 2}, {1, 2}), "disagrees Vector\n");
  EXPECT_EQ(said("4", {1, 2}, {1}), "disagrees Vector\n");
}

TEST(ToolItemReader, FindsNumberedPointsBesideTheirCount) {
  const std::string element =
      "<CKtZantoPolygonBar><Point2 X='2' Y='0' Z='0'/><NoPoints long='2'/>"
      "<Point1 X='1' Y='0' Z='0'/><Point3 X='3' Y='0' Z='0'/>"
      "</CKtZantoPolygonBar>";
  const ItemValue points = readAs(element, "NoPoints");
  ASSERT_EQ(points.points.size(), 2U);
  EXPECT_EQ(points.points[0].x, 1.0);
  const std::string said = problemsIn(element);
  EXPECT_NE(said.find("disagrees NoPoints\n"), std::string::npos) << said;
  EXPECT_EQ(said.find("unknown"), std::string::npos) << "a point is no stranger: " << said;
}

// Whether the children are few or many decides how they are looked up, not what is found.
TEST(ToolNamedChildren, AreTheFirstOfTheirNameHoweverManyThereAre) {
  for (const int count : {0, 1, 23, 24, 25, 26, 500}) {
    std::string children;
    for (int i = 0; i < count; ++i) {
      children += "<c" + std::to_string(i) + " n='first'/>";
    }
    for (int i = 0; i < count; i += 7) {
      children += "<c" + std::to_string(i) + " n='second'/>";
    }
    const LoadedFile loaded = loadedElements("<CKtZantoLine>" + children + "</CKtZantoLine>");
    quorvan::tool::NamedChildren named(loaded.tree(), *loaded.element(0).node);
    for (int i = 0; i < count; ++i) {
      const auto* const found = named.find("c" + std::to_string(i));
      ASSERT_NE(found, nullptr) << i << " of " << count;
      EXPECT_EQ(*loaded.tree().attribute(*found, "n"), "first");
    }
    EXPECT_EQ(named.find("c" + std::to_string(count)), nullptr);
    EXPECT_EQ(named.find(""), nullptr);
  }
}

}  // namespace
