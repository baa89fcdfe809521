// The grammar of records, and what can be read of a shape.
#include <gtest/gtest.h>

#include <tools/bvbs/bent_shape.h>
#include <tools/bvbs/data_file.h>
#include <tools/bvbs/record.h>
#include <tools/bvbs/record_text.h>

namespace {

using quorvan::tool::bvbs::BentShape;
using quorvan::tool::bvbs::Block;
using quorvan::tool::bvbs::checksumOf;
using quorvan::tool::bvbs::numberIn;
using quorvan::tool::bvbs::readRecord;
using quorvan::tool::bvbs::readShape;
using quorvan::tool::bvbs::Record;
using quorvan::tool::bvbs::RecordFaultKind;
using quorvan::tool::bvbs::RecordText;

constexpr std::string_view kAngle =
    "BF2D@HjB12@r12@i@p4@l1800@n6@e1.598@d12@gB500B@s48@v@Gl600@w90@l1200@w0@C72@";

TEST(BendingRecord, HasAChecksumBetween65And96) {
  EXPECT_EQ(checksumOf("BF2D@C"), 95);
  EXPECT_EQ(checksumOf("abcde@C"), 78);
  EXPECT_EQ(checksumOf(""), 96);
  EXPECT_EQ(checksumOf(kAngle.substr(0, kAngle.rfind('C') + 1)), 72);
}

// An @ is 64 and a blank 32, both multiples of what the sum is taken by.
TEST(BendingRecord, HasAChecksumThatSeparatorsAndBlanksDoNotChange) {
  EXPECT_EQ(checksumOf("BF2D@@ @C"), checksumOf("BF2DC"));
}

TEST(BendingRecord, IsTakenApartIntoBlocksAndFields) {
  const Record record = readRecord(kAngle);
  EXPECT_TRUE(record.faults.empty());
  ASSERT_EQ(record.blocks.size(), 3U);
  EXPECT_EQ(record.kind->name, "BF2D");
  EXPECT_EQ(record.header('j'), "B12");
  EXPECT_EQ(record.header('i'), "");
  EXPECT_EQ(record.header('e'), "1.598");
  EXPECT_EQ(record.blocks[1].fields.size(), 4U);
  EXPECT_EQ(record.blocks[1].fields[1].letter, 'w');
  EXPECT_EQ(record.blocks[1].fields[1].at, kAngle.find("w90"));
  EXPECT_EQ(record.blocks[2].text, "72");
}

TEST(BendingRecord, KeepsAPrivateBlockWhole) {
  const Record record = readRecord("BF2D@Hj@PnREBAR@hYM@C90@");
  ASSERT_NE(record.find('P'), nullptr);
  EXPECT_EQ(record.find('P')->text, "nREBAR@hYM");
  EXPECT_EQ(record.blocks.size(), 3U);
}

TEST(BendingRecord, TellsTheDirectionOfAMeshFromACoordinateInSpace) {
  const Record mesh = readRecord("BFMA@Hj@Gyl100@w0@C90@");
  EXPECT_EQ(mesh.find('G')->direction, 'y');
  EXPECT_EQ(mesh.find('G')->fields.front().letter, 'l');
  const Record spatial = readRecord("BF3D@Hj@Gx300@y0@z0@C90@");
  EXPECT_EQ(spatial.find('G')->direction, 0);
  EXPECT_EQ(spatial.find('G')->fields.front().value, "300");
}

TEST(BendingRecord, NamesTheFirstPlaceThatCannotBeRead) {
  const auto faultOf = [](std::string_view line) {
    const Record record = readRecord(line);
    EXPECT_FALSE(record.faults.empty()) << line;
    return std::pair(record.faults.front().kind, record.faults.front().at);
  };
  EXPECT_EQ(faultOf("BF4D@Hj@C90@"), std::pair(RecordFaultKind::kUnknownKind, std::size_t{0}));
  EXPECT_EQ(faultOf("BF2D"), std::pair(RecordFaultKind::kUnknownKind, std::size_t{0}));
  EXPECT_EQ(faultOf("BF2D@hj@C90@"), std::pair(RecordFaultKind::kNoBlock, std::size_t{5}));
  EXPECT_EQ(faultOf("BF2D@Hj@@r1@C90@"), std::pair(RecordFaultKind::kFieldLetter, std::size_t{8}));
  EXPECT_EQ(faultOf("BF2D@Hj@C90"), std::pair(RecordFaultKind::kNotClosed, std::size_t{11}));
}

TEST(BendingRecord, ReadsNumbersAsTheFieldWritesThem) {
  EXPECT_EQ(numberIn("45.58"), 45.58);
  EXPECT_EQ(numberIn("-90"), -90.0);
  EXPECT_EQ(numberIn("0,520"), 0.52);
  for (const char* const text : {"", "-", ".5", "5.", "1.2.3", "1e3", "+1", " 1", "12 "}) {
    EXPECT_FALSE(numberIn(text)) << text;
  }
}

TEST(BendingRecord, IsWrittenWithItsChecksum) {
  RecordText text("BF2D");
  text.open('H');
  text.field('j', "B12");
  text.field('p', "");
  text.note("nREBAR");
  const std::string record = text.finished();
  EXPECT_EQ(record.substr(0, record.rfind('C') + 1), "BF2D@HjB12@p@PnREBAR@C");
  EXPECT_EQ(readRecord(record).find('C')->text,
            std::to_string(checksumOf("BF2D@HjB12@p@PnREBAR@C")));
}

BentShape shapeOf(std::string_view line) {
  static Record record;
  record = readRecord(line);
  return readShape(record, *record.find('G'));
}

// A U bar of 10 mm over a roller of 40: each right angle takes 2 x 30 off the legs and adds a
// quarter of a circle of 25.
TEST(BendingShape, IsAsLongAsItsLegsOrAsItsCentreLine) {
  const BentShape shape = shapeOf("BF2D@Hj@Gl400@w90@l816@w90@l400@w0@C0@");
  EXPECT_TRUE(shape.faults.empty());
  EXPECT_EQ(shape.legSum(), 1616.0);
  EXPECT_NEAR(shape.centreLine(10, 40), 1616.0 - 2.0 * (60.0 - 39.27), 0.01);
  EXPECT_NEAR(shape.straightOf(1, 10, 40), 816.0 - 60.0, 1e-9);
}

// Three records of programs in the field, which write less than the sum of the legs.
TEST(BendingShape, HasACentreLineNearTheLengthThatProgramsWrite) {
  const BentShape link =
      shapeOf("BF2D@Hj@Gl90@w135@l300@w90@l300@w90@l300@w90@l300@w135@l90@w0@C0@");
  EXPECT_EQ(link.legSum(), 1380.0);
  const BentShape angle = shapeOf("BF2D@Hj@Gl200@w90@l3000@w0@C0@");
  EXPECT_EQ(angle.legSum(), 3200.0);
  EXPECT_NEAR(angle.centreLine(14, 56), 3170.0, 2.0);
}

TEST(BendingShape, HasArcsByRadiusAndOpening) {
  const BentShape ring = shapeOf("BF2D@Hj@Gr200@w474.7@w0@C0@");
  ASSERT_EQ(ring.legs.size(), 1U);
  EXPECT_TRUE(ring.legs[0].isArc);
  EXPECT_NEAR(ring.legSum(), 1657.0, 0.1);
  const BentShape hooked = shapeOf("BF2D@Hj@Gl90@w135@r200@w400@w135@l90@w0@C0@");
  EXPECT_TRUE(hooked.faults.empty());
  EXPECT_EQ(hooked.legs[1].angle, 400.0);
  EXPECT_EQ(hooked.legs[1].bend, 135.0);
}

TEST(BendingShape, InSpaceHasItsBendsBetweenItsOffsets) {
  const BentShape shape = shapeOf("BF3D@Hj@Gx300@y0@z0@x0@y600@z0@x0@y0@z300@C0@");
  ASSERT_EQ(shape.legs.size(), 3U);
  EXPECT_EQ(shape.legSum(), 1200.0);
  EXPECT_NEAR(shape.legs[0].bend, 90.0, 1e-9);
  EXPECT_EQ(shape.legs[2].bend, 0.0);
}

TEST(BendingFile, HasLinesWithEitherEnd) {
  const auto lines = quorvan::tool::bvbs::linesOf("one\r\n\r\ntwo\nthree");
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(lines[1].text, "two");
  EXPECT_EQ(lines[1].number, 3U);
  EXPECT_FALSE(lines[1].hasReturn);
  EXPECT_TRUE(lines[2].hasReturn);
}

TEST(BendingFile, IsKnownByItsEnding) {
  using quorvan::tool::bvbs::isBendingDataName;
  EXPECT_TRUE(isBendingDataName("job.abs"));
  EXPECT_TRUE(isBendingDataName("C:/JOB.ABS"));
  EXPECT_FALSE(isBendingDataName("job.abs.xml"));
  EXPECT_FALSE(isBendingDataName("abs"));
}

}  // namespace
