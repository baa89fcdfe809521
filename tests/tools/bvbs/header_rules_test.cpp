// The header of bending data, field by field and kind by kind, and the blocks around it.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <string>
#include <vector>

#include <tests/tools/bvbs/sealed_records.h>
#include <tests/tools/sample.h>
#include <tools/bvbs/record.h>
#include <tools/bvbs/record_kind.h>
#include <tools/bvbs/record_text.h>

namespace quorvan::tool::bvbs {

namespace {

using test::bendingFindings;
using test::replaced;
using test::sealedRecord;

// A straight bar of 12 mm, a metre long.
constexpr const char* kStraight = "BF2D@HjJ@rD@i@p1@l1000@n2@e0.888@d12@gB500B@s48@v@Gl1000@w0@";

std::string findingsWith(const std::string& from, const std::string& to) {
  return bendingFindings(sealedRecord(replaced(kStraight, from, to)));
}

// Every field of every kind with a value that it takes.
std::string headerOf(const RecordKind& kind, const std::string& letters) {
  const std::map<char, std::string> values{{'l', "1000"}, {'n', "2"},  {'e', ""},
                                           {'d', "12"},   {'s', "48"}, {'b', "2400"},
                                           {'h', "180"},  {'a', "1"},  {'t', "-50"}};
  std::string text = std::string(kind.name) + "@H";
  for (const char letter : letters) {
    const auto value = values.find(letter);
    text += letter + (value == values.end() ? std::string("x") : value->second) + '@';
  }
  return text;
}

TEST(BendingHeader, HasItsFieldsInTheOrderOfItsKind) {
  const std::pair<const char*, const char*> kinds[] = {
      {"BF2D", "jriplnedgsv"},  {"BF3D", "jriplnedgsv"}, {"BFWE", "jriplnedgsv"},
      {"BFMA", "jriplnegsmbv"}, {"BFGT", "jriplnegmhv"}, {"BFAU", "jriplnemh"}};
  for (const auto& [name, letters] : kinds) {
    const RecordKind* const kind = recordKindNamed(name);
    ASSERT_NE(kind, nullptr);
    EXPECT_EQ(kind->header, letters);
    EXPECT_EQ(bendingFindings(sealedRecord(headerOf(*kind, letters))), "") << name;
  }
  for (const char* const name : {"", "BF2", "bf2d", "BF2D@", "BFXX"}) {
    EXPECT_EQ(recordKindNamed(name), nullptr) << name;
  }
}

TEST(BendingHeader, LacksEachFieldByItself) {
  for (const RecordKind& kind : kRecordKinds) {
    const std::string letters(kind.header);
    for (const char letter : letters) {
      std::string others = letters;
      std::erase(others, letter);
      EXPECT_EQ(bendingFindings(sealedRecord(headerOf(kind, others))),
                std::string("910 H ") + letter)
          << kind.name;
    }
  }
}

TEST(BendingHeader, KnowsAnyTwoFieldsThatChangedPlaces) {
  for (const RecordKind& kind : kRecordKinds) {
    for (std::size_t i = 0; i + 1 < kind.header.size(); ++i) {
      std::string letters(kind.header);
      std::swap(letters[i], letters[i + 1]);
      EXPECT_EQ(bendingFindings(sealedRecord(headerOf(kind, letters))),
                std::string("908 H ") + letters[i + 1])
          << kind.name;
    }
  }
}

TEST(BendingHeader, TakesTheFieldsThatMayFollowAndNoOthers) {
  for (const RecordKind& kind : kRecordKinds) {
    for (const char letter : std::string("abcdefghijklmnopqrstuvwxyz")) {
      if (kind.header.find(letter) != std::string_view::npos) {
        continue;
      }
      const bool isOptional = kind.optional.find(letter) != std::string_view::npos;
      EXPECT_EQ(bendingFindings(sealedRecord(headerOf(kind, std::string(kind.header) + letter))),
                isOptional ? std::string() : std::string("909 H ") + letter)
          << kind.name;
    }
  }
}

TEST(BendingHeader, HasNumbersOfItsKind) {
  struct Case {
    const char* from;
    const char* to;
    const char* findings;
  };
  const Case cases[] = {
      {"n2@", "n@", ""},
      {"n2@", "n2.0@", ""},
      {"n2@", "n2.5@", "911 H n"},
      {"n2@", "n-1@", "914 H n"},
      {"n2@", "n2@n2@", "908 H n"},
      {"n2@", "n1e2@", "911 H n"},
      {"n2@", "n 2@", "911 H n"},
      {"d12@", "d12,0@", "912 H d"},
      {"d12@", "d0@", "920 H e, 914 H d"},
      {"d12@", "dx@", "911 H d"},
      {"s48@", "s-48@", "914 H s"},
      {"e0.888@", "e0,888@", "912 H e"},
      {"e0.888@", "e-0.888@", "914 H e, 920 H e"},
      {"e0.888@", "e@", ""},
      {"l1000@n", "l1000.5@n", "913 H l"},
      {"l1000@n", "l1000,5@n", "912 H l, 913 H l"},
      {"l1000@n", "l@n", ""},
      {"v@", "v@a-2@t1.5@c7@", ""},
      {"v@", "v@ax@", "911 H a"},
      {"v@", "v@t1,5@", "912 H t"},
      {"v@", "v@cx@", ""},  // a group has any name
      {"gB500B@", "g@", ""},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(findingsWith(one.from, one.to), one.findings) << one.to;
  }
}

TEST(BendingHeader, HasALengthWithinAMillimetreForEachLegAndOneMore) {
  for (const int length : {998, 1000, 1002}) {
    EXPECT_EQ(findingsWith("l1000@n", 'l' + std::to_string(length) + "@n"), "") << length;
  }
  for (const int length : {997, 1003}) {
    EXPECT_EQ(findingsWith("l1000@n", 'l' + std::to_string(length) + "@n"), "919 H l") << length;
  }
}

// Within three in a hundred and two grams: 0.8878 kg weigh 12 mm, one metre.
TEST(BendingHeader, HasAMassThatTablesMayRound) {
  for (const char* const mass : {"0.888", "0.916", "0.860", "0.9"}) {
    EXPECT_EQ(findingsWith("e0.888", std::string("e") + mass), "") << mass;
  }
  for (const char* const mass : {"0.917", "0.858", "888", "0.444"}) {
    EXPECT_EQ(findingsWith("e0.888", std::string("e") + mass), "920 H e") << mass;
  }
}

TEST(BendingBlocks, StandInTheirOrderAndOnceButTheBars) {
  const std::string header = headerOf(*recordKindNamed("BFMA"), "jriplnegsmbv");
  const std::string bars = "d6@x0@y0@l1@e1,1@";
  const std::pair<std::string, const char*> cases[] = {
      {"", ""},
      {'X' + bars + 'Y' + bars + 'E' + bars + 'X' + bars, ""},
      {"Ma@X" + bars + "Pnote@", ""},
      {"Aa@Ma@", ""},
      {"Ma@Ma@", "905 M"},
      {"Ma@Aa@", "905 A"},
      {"Pnote@Pnote@", "905 P"},
      {"Pnote@X" + bars, "905 X"},
      {'X' + bars + "Ma@", "905 M"},
      {"Qa@", "906 Q"},
      {"Bx1@", "906 B"},
  };
  for (const auto& [blocks, expected] : cases) {
    EXPECT_EQ(bendingFindings(sealedRecord(header + blocks)), expected) << blocks;
  }
}

TEST(BendingBlocks, OfBarsHavePlacesThatAreNotBelowNothing) {
  const std::string header = headerOf(*recordKindNamed("BFMA"), "jriplnegsmbv");
  const std::pair<const char*, const char*> cases[] = {
      {"Xd6@x0@y0@l0@e1,1@", ""},         {"Xd6@x-1@y0@l0@e1,1@", "914 X x"},
      {"Yd6@x0@y-1@l0@e1,1@", "914 Y y"}, {"Ed6@x0@y0@l-0.5@e1,1@", "914 E l"},
      {"Ed6@x0@y0@lx@e1,1@", "911 E l"},  {"Yd6;8@x0@y0@l1@exx@", ""}};
  for (const auto& [bars, expected] : cases) {
    EXPECT_EQ(bendingFindings(sealedRecord(header + bars)), expected) << bars;
  }
}

TEST(BendingBlocks, OfKindsThatTheHeaderSaysAllOfHaveNoGeometry) {
  for (const char* const name : {"BFGT", "BFAU"}) {
    const RecordKind& kind = *recordKindNamed(name);
    const std::string header = headerOf(kind, std::string(kind.header));
    EXPECT_EQ(bendingFindings(sealedRecord(header + "Gl100@w0@")), "916 G");
  }
}

// All that is outside what can be printed, the last character of ASCII too.
TEST(BendingCharacters, AreThoseThatCanBePrinted) {
  for (int unit = 1; unit < 256; ++unit) {
    if (unit == '@' || unit == '\n' || unit == '\r') {
      continue;
    }
    const std::string sign(1, static_cast<char>(unit));
    EXPECT_EQ(findingsWith("jJ@", "jJ" + sign + "@"), unit >= 32 && unit <= 126 ? "" : "922")
        << unit;
  }
}

TEST(BendingCharacters, AreAThousandAtTheMost) {
  const std::string record = sealedRecord(kStraight);
  const std::size_t rest = record.size() - 2 - 1;  // without its line end and its J
  EXPECT_EQ(findingsWith("jJ@", 'j' + std::string(1000 - rest, 'x') + '@'), "");
  EXPECT_EQ(findingsWith("jJ@", 'j' + std::string(1001 - rest, 'x') + '@'), "921");
}

// What was written is read again, field by field, and its checksum is the one of the format.
TEST(BendingRecords, ComeBackAsTheyWereWritten) {
  std::mt19937 random(451);
  const std::string letters = "abcdefghijklmnopqrstuvwxyz 0123456789.,;-+()ABCXYZ";
  for (int round = 0; round < 300; ++round) {
    const RecordKind& kind = kRecordKinds[random() % std::size(kRecordKinds)];
    RecordText text(kind.name);
    text.open('H');
    std::vector<std::pair<char, std::string>> fields;
    std::string blocks = std::string(kind.name) + "@H";
    for (const char letter : kind.header) {
      std::string value;
      for (std::size_t i = random() % 12; i > 0; --i) {
        value += letters[random() % letters.size()];
      }
      fields.emplace_back(letter, value);
      text.field(letter, value);
      blocks += letter + value + '@';
    }
    const std::string line = text.finished();
    EXPECT_EQ(line + "\r\n", sealedRecord(blocks));
    const Record record = readRecord(line);
    EXPECT_TRUE(record.faults.empty()) << line;
    EXPECT_EQ(record.kind, &kind);
    ASSERT_EQ(record.blocks.size(), 2U) << line;
    ASSERT_EQ(record.blocks[0].fields.size(), fields.size()) << line;
    for (std::size_t i = 0; i < fields.size(); ++i) {
      const Field& field = record.blocks[0].fields[i];
      EXPECT_EQ(field.letter, fields[i].first);
      EXPECT_EQ(field.value, fields[i].second);
      EXPECT_EQ(line[field.at], field.letter);
    }
  }
}

}  // namespace

}  // namespace quorvan::tool::bvbs
