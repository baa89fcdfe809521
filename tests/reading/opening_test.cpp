// Opening a drawing: why it fails, and that the file is never changed.
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <utility>

#include <tests/reading/reading_file.h>
#include <tests/support/saved_file.h>
#include <quorvan/reading/reader.h>

namespace quorvan::test {
namespace {

constexpr const char* kPath = "drawing.xml";
constexpr const wchar_t* kWidePath = L"drawing.xml";

class Opening : public testing::Test {
 protected:
  Opening() { std::filesystem::remove_all(kPath); }
  ~Opening() override {
    quorvanCloseFile(m_file);
    std::filesystem::remove_all(kPath);
  }

  int openBytes(const std::string& bytes) {
    return quorvanOpenMemory(bytes.data(), bytes.size(), &m_file);
  }

  QuorvanFile* m_file = nullptr;
};

TEST_F(Opening, AMissingFileIsSaid) {
  EXPECT_EQ(quorvanOpenFile(L"missing.xml", &m_file), QUORVAN_NO_FILE);
  EXPECT_EQ(m_file, nullptr);
  EXPECT_EQ(quorvanOpenFile(L"", &m_file), QUORVAN_NO_FILE);
  EXPECT_FALSE(std::filesystem::exists("missing.xml"));
}

TEST_F(Opening, AFolderIsSaid) {
  std::filesystem::create_directory(kPath);
  EXPECT_EQ(quorvanOpenFile(kWidePath, &m_file), QUORVAN_NOT_A_FILE);
}

TEST_F(Opening, WhatIsNoDocumentIsSaidWithItsPlace) {
  writeBytes(kPath, "<Document>\n  <A>\n</Document>");
  EXPECT_EQ(quorvanOpenFile(kWidePath, &m_file), QUORVAN_NOT_WELL_FORMED);
  EXPECT_EQ(m_file, nullptr);
#ifndef _WIN32
  // Not every service knows the place of every fault.
  EXPECT_EQ(quorvanLastErrorLine(), 3);
  EXPECT_GT(quorvanLastErrorColumn(), 0);
#endif
  EXPECT_NE(std::string(quorvanLastErrorText()).find(": "), std::string::npos);
  EXPECT_EQ(openBytes(""), QUORVAN_NOT_WELL_FORMED);
  EXPECT_EQ(openBytes("<a"), QUORVAN_NOT_WELL_FORMED);
}

#ifndef _WIN32
TEST_F(Opening, ADoctypeMayStandBeforeTheRoot) {
  ASSERT_EQ(openBytes("<!DOCTYPE Document><Document><A long=\"1\"/></Document>"), QUORVAN_DONE);
  QuorvanElement* element = nullptr;
  EXPECT_EQ(quorvanNextElement(m_file, nullptr, &element), QUORVAN_DONE);
  EXPECT_STREQ(quorvanElementClass(element), "A");
}

TEST_F(Opening, AnEncodingThatIsNotKnownIsSaid) {
  EXPECT_EQ(openBytes("<?xml version=\"1.0\" encoding=\"EBCDIC\"?><a/>"), QUORVAN_BAD_ENCODING);
}

TEST_F(Opening, ALimitIsSaid) {
  std::string deep;
  for (int i = 0; i < 20000; ++i) {
    deep += "<a>";
  }
  EXPECT_EQ(openBytes(deep), QUORVAN_OVER_LIMIT);
}
#endif

TEST_F(Opening, NullIsRefused) {
  EXPECT_EQ(quorvanOpenFile(nullptr, &m_file), QUORVAN_BAD_ARGUMENT);
  EXPECT_EQ(quorvanOpenFile(kWidePath, nullptr), QUORVAN_BAD_ARGUMENT);
  EXPECT_EQ(quorvanOpenFileUtf8(nullptr, &m_file), QUORVAN_BAD_ARGUMENT);
  EXPECT_EQ(quorvanOpenMemory(nullptr, 4, &m_file), QUORVAN_BAD_ARGUMENT);
  EXPECT_EQ(quorvanOpenMemory(nullptr, 0, &m_file), QUORVAN_NOT_WELL_FORMED);
}

TEST_F(Opening, AnEmptyDrawingHasNoElements) {
  ASSERT_EQ(openBytes(transferFile("")), QUORVAN_DONE);
  QuorvanElement* element = nullptr;
  EXPECT_EQ(quorvanNextElement(m_file, nullptr, &element), QUORVAN_NO_MORE);
}

TEST_F(Opening, CommentsAndInstructionsMayStandBeforeTheRoot) {
  ASSERT_EQ(openBytes("<?xml version=\"1.0\"?><!--c--><?p d?><Document><A long=\"1\"/></Document>"),
            QUORVAN_DONE);
  QuorvanElement* element = nullptr;
  EXPECT_EQ(quorvanNextElement(m_file, nullptr, &element), QUORVAN_DONE);
  EXPECT_STREQ(quorvanElementClass(element), "A");
}

TEST_F(Opening, APathMayBeUtf8) {
  const std::filesystem::path path(std::u8string(u8"d\u00e9.xml"));
  writeBytes(path, transferFile(""));
  EXPECT_EQ(quorvanOpenFileUtf8("d\xC3\xA9.xml", &m_file), QUORVAN_DONE);
  std::filesystem::remove(path);
}

// A form that the library would save otherwise: a blank too many, single quotes, line ends.
const std::string kForeignForm =
    "<?xml version='1.0'?>\n<Document >\n <CKtZantoLine index='1'  version='1'>\n"
    "<Point1 X='1' Y='2' Z='3'/></CKtZantoLine>\n</Document>\n";

TEST_F(Opening, AFileIsTheSameAfterEveryWayOfLeavingIt) {
  const auto leave = [](int way) {
    QuorvanFile* file = nullptr;
    QuorvanElement* element = nullptr;
    ASSERT_EQ(quorvanOpenFile(kWidePath, &file), QUORVAN_DONE);
    if (way > 0) {
      EXPECT_EQ(quorvanNextElement(file, nullptr, &element), QUORVAN_DONE);
    }
    if (way > 1) {
      double xyz[3] = {};
      EXPECT_EQ(quorvanReadPoint(quorvanItem(element, "Point1"), xyz), QUORVAN_DONE);
    }
    if (way == 3) {
      quorvanCloseElement(element);
    }
    if (way == 4) {
      EXPECT_EQ(quorvanNextElement(file, nullptr, &element), QUORVAN_NO_MORE);
    }
    quorvanCloseFile(file);
  };
  writeBytes(kPath, kForeignForm);
  const auto time = std::filesystem::last_write_time(kPath);
  for (int way = 0; way < 5; ++way) {
    leave(way);
    EXPECT_EQ(fileBytes(kPath), kForeignForm) << way;
    EXPECT_EQ(std::filesystem::last_write_time(kPath), time) << way;
  }
}

// Every way out of the typed view, also one that an exception takes.
TEST_F(Opening, AFileIsTheSameAfterEveryWayOfLeavingItsTypedView) {
  const std::array<void (*)(), 5> ways = {
      [] { const Reader reader(kPath); },
      [] {
        Reader reader(kPath);
        for (const auto& line : reader.elements<drawing::Line>()) {
          EXPECT_EQ(line.point1.y, 2);
          break;
        }
      },
      [] {
        Reader reader(kPath);
        int elements = 0;
        visit(reader, [&](const auto&) { ++elements; });
        EXPECT_EQ(elements, 1);
      },
      [] {
        Reader reader(kPath);
        EXPECT_THROW(visit(reader, [](const auto&) { throw std::logic_error("the reader's own"); }),
                     std::logic_error);
      },
      [] {
        Reader reader(kPath);
        const Reader moved = std::move(reader);
        ReadFailure failure;
        const auto other = Reader::open(kPath, failure);
        EXPECT_TRUE(other.has_value());
      },
  };
  writeBytes(kPath, kForeignForm);
  const auto time = std::filesystem::last_write_time(kPath);
  for (const auto& way : ways) {
    way();
    EXPECT_EQ(fileBytes(kPath), kForeignForm);
    EXPECT_EQ(std::filesystem::last_write_time(kPath), time);
  }
  writeBytes(kPath, "<Document>");
  EXPECT_THROW(Reader{kPath}, ReadError);
  EXPECT_EQ(fileBytes(kPath), "<Document>");
}

TEST_F(Opening, AMalformedFileIsTheSameAfterwards) {
  writeBytes(kPath, "<Document>");
  EXPECT_EQ(quorvanOpenFile(kWidePath, &m_file), QUORVAN_NOT_WELL_FORMED);
  EXPECT_EQ(fileBytes(kPath), "<Document>");
}

TEST_F(Opening, OneFileMayBeOpenTwice) {
  writeBytes(kPath, kForeignForm);
  QuorvanFile* other = nullptr;
  ASSERT_EQ(quorvanOpenFile(kWidePath, &m_file), QUORVAN_DONE);
  ASSERT_EQ(quorvanOpenFile(kWidePath, &other), QUORVAN_DONE);
  quorvanCloseFile(m_file);
  m_file = nullptr;
  QuorvanElement* element = nullptr;
  EXPECT_EQ(quorvanNextElement(other, nullptr, &element), QUORVAN_DONE);
  quorvanCloseFile(other);
}

}  // namespace
}  // namespace quorvan::test
