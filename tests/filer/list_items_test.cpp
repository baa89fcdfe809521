// Lists of points and of vectors.

#include <tests/filer/filer_test.h>

#include <string>
#include <vector>

namespace quorvan::test {
namespace {

using Points = std::vector<CKtPnt3D>;
using Vectors = std::vector<CKtVect3D>;

class ListItems : public FilerTest {
 protected:
  ListItems() {
    m_filer.newFiler(kPath);
    m_filer.beginClass(L"A", 1);
  }

  void load(const std::string& items) {
    writeText(kOtherPath, documentText("<R>" + items + "</R>"));
    // A filer that was only closed would read on in the file before.
    m_filer = CKtFiler();
    m_filer.newFiler(kOtherPath);
    ASSERT_EQ(m_filer.beginClass(L"R"), 1);
  }

  void expectItems(const std::string& items) {
    m_filer.closeFiler();
    EXPECT_EQ(savedText(kPath), documentText("<A version=\"1\" index=\"1\">" + items + "</A>"));
  }

  // An entry of a list, told by its x.
  static std::string entry(int x, const char* name = "point") {
    return '<' + std::string(name) + " X=\"" + std::to_string(x) + "\" Y=\"0\" Z=\"0\"/>";
  }

  template <class Entry>
  static std::vector<double> allX(const std::vector<Entry>& entries) {
    std::vector<double> values;
    for (const Entry& each : entries) {
      values.push_back(each.X());
    }
    return values;
  }

  CKtFiler m_filer;
  Points m_points = {CKtPnt3D(70, 0, 0)};
  Vectors m_vectors = {CKtVect3D(70, 0, 0)};
  long m_count = 77;
};

using Xs = std::vector<double>;

// --- writing ---------------------------------------------------------------------------------

TEST_F(ListItems, EntriesAreWrittenInOrderWithSevenDecimals) {
  EXPECT_EQ(m_filer.writeItem(L"L", Points{{1, 2, 3}, {4, 5.5, -6}}, 2), 1);
  EXPECT_EQ(m_filer.writeItem(L"M", Vectors{{1, 0, 0.25}}, 1), 1);
  expectItems(
      "<L size=\"2\"><point X=\"1.0000000\" Y=\"2.0000000\" Z=\"3.0000000\"/>"
      "<point X=\"4.0000000\" Y=\"5.5000000\" Z=\"-6.0000000\"/></L>"
      "<M size=\"1\"><vectorPoints X=\"1.0000000\" Y=\"0.0000000\" Z=\"0.2500000\"/></M>");
}

TEST_F(ListItems, TheSizeIsTheCallersCount) {
  EXPECT_EQ(m_filer.writeItem(L"L", Points{{1, 0, 0}, {2, 0, 0}, {3, 0, 0}}, 5), 1);
  EXPECT_EQ(m_filer.readItem(L"L", &m_points, &m_count), 1);
  EXPECT_EQ(m_count, 5);
  EXPECT_EQ(allX(m_points), (Xs{70, 1, 2, 3}));
  m_filer.closeFiler();
  EXPECT_NE(savedText(kPath).find("<L size=\"5\"><point X=\"1.0000000\""), std::string::npos);
}

TEST_F(ListItems, TheSizeIsWrittenWithThirtyTwoBits) {
  for (const long count : {40000L, -1L, 70000L, 2147483647L, -2147483647L - 1}) {
    m_filer.writeItem(L"L", Points{}, count);
  }
  m_filer.writeItem(L"L", Vectors{}, 65536L);
  expectItems(
      "<L size=\"40000\"/><L size=\"-1\"/><L size=\"70000\"/><L size=\"2147483647\"/>"
      "<L size=\"-2147483648\"/><L size=\"65536\"/>");
}

TEST_F(ListItems, CountsAreCutToThirtyTwoBits) {
  if constexpr (sizeof(long) > 4) {
    m_filer.writeItem(L"L", Points{}, static_cast<long>(0x100000003LL));
    expectItems("<L size=\"3\"/>");
  }
}

TEST_F(ListItems, AnOpenVectorIsPassedOver) {
  m_filer.beginVector(L"V", 1);
  m_filer.writeItem(L"N", 1);
  m_filer.writeItem(L"L", Points{{1, 0, 0}}, 1);
  EXPECT_EQ(m_filer.readItem(L"L", &m_points, &m_count), 1);
  m_filer.endVector();
  expectItems(
      "<L size=\"1\"><point X=\"1.0000000\" Y=\"0.0000000\" Z=\"0.0000000\"/></L>"
      "<V size=\"1\"><N long=\"1\"/></V>");
}

TEST_F(ListItems, AListInsideAnOpenVectorIsNotRead) {
  load("<V size=\"1\"><L size=\"1\">" + entry(1) + "</L></V>");
  m_filer.beginVector(L"V", &m_count);
  EXPECT_EQ(m_filer.readItem(L"L", &m_points, &m_count), 0);
  EXPECT_EQ(allX(m_points), Xs{70});
}

TEST_F(ListItems, AVectorListPassesAnOpenVectorOverToo) {
  m_filer.beginVector(L"V", 1);
  m_filer.writeItem(L"L", Vectors{{1, 0, 0}}, 0);
  EXPECT_EQ(m_filer.readItem(L"L", &m_vectors, &m_count), 1);
  m_filer.endVector();
  expectItems(
      "<L size=\"0\"><vectorPoints X=\"1.0000000\" Y=\"0.0000000\" Z=\"0.0000000\"/></L>"
      "<V size=\"1\"/>");
}

TEST_F(ListItems, AVectorListInsideAnOpenVectorIsNotRead) {
  load("<V size=\"1\"><L size=\"1\">" + entry(1) + "</L></V>");
  m_filer.beginVector(L"V", &m_count);
  EXPECT_EQ(m_filer.readItem(L"L", &m_vectors, &m_count), 0);
  EXPECT_EQ(allX(m_vectors), Xs{70});
}

TEST_F(ListItems, WritingOneWithNoClassOpenRaises) {
  m_filer.endClass();
  EXPECT_EQ(raised([&] { m_filer.writeItem(L"L", Points{{1, 0, 0}}, 1); }), E_POINTER);
  EXPECT_EQ(raised([&] { m_filer.writeItem(L"L", Vectors{{1, 0, 0}}, 1); }), E_POINTER);
  EXPECT_EQ(raised([&] { m_filer.writeItem(L"no name", Points{}, 1); }), E_FAIL);
  EXPECT_EQ(m_filer.readItem(L"L", &m_points, &m_count), 0);
  CKtFiler closed;
  EXPECT_EQ(raised([&] { closed.writeItem(L"L", Points{}, 0); }), E_POINTER);
}

// --- reading ---------------------------------------------------------------------------------

TEST_F(ListItems, EntriesAreAppendedToTheCallersList) {
  load("<L size=\"2\">" + entry(1) + entry(2) + "</L>");
  EXPECT_EQ(m_filer.readItem(L"L", &m_points, &m_count), 1);
  EXPECT_EQ(m_count, 2);
  EXPECT_EQ(allX(m_points), (Xs{70, 1, 2}));
  EXPECT_EQ(m_filer.readItem(L"L", &m_vectors, &m_count), 1);
  EXPECT_EQ(allX(m_vectors), (Xs{70, 1, 2}));
}

TEST_F(ListItems, NoMoreThanTheSizeAreRead) {
  load("<L size=\"2\">" + entry(1) + entry(2) + entry(3) + "</L>");
  EXPECT_EQ(m_filer.readItem(L"L", &m_points, &m_count), 1);
  EXPECT_EQ(allX(m_points), (Xs{70, 1, 2}));
  EXPECT_EQ(m_filer.readItem(L"L", &m_vectors, &m_count), 1);
  EXPECT_EQ(allX(m_vectors), (Xs{70, 1, 2}));
}

TEST_F(ListItems, OtherChildrenAreSkipped) {
  load("<L size=\"2\"><!--c-->" + entry(9, "Point") + entry(1) + "text" + entry(8, "p") +
       "<?point X?>" + "</L><M size=\"2\"><!--c-->" + entry(9, "Point") + entry(1) + "text" +
       entry(8, "p") + entry(2) + "<!--c--></M>");
  EXPECT_EQ(m_filer.readItem(L"M", &m_points, &m_count), 1);
  EXPECT_EQ(allX(m_points), (Xs{70, 1, 2}));
  // An instruction of that name is no entry.
  EXPECT_EQ(m_filer.readItem(L"L", &m_points, &m_count), 0);
  EXPECT_TRUE(m_points.empty());
}

TEST_F(ListItems, FewerEntriesThanAnnouncedAreRead) {
  load("<L size=\"9\">" + entry(1) + entry(2) + "</L>");
  EXPECT_EQ(m_filer.readItem(L"L", &m_points, &m_count), 1);
  EXPECT_EQ(m_count, 9);
  EXPECT_EQ(allX(m_points), (Xs{70, 1, 2}));
}

TEST_F(ListItems, SkippingPastTheLastChildRaisesAndKeepsTheEntriesReadSoFar) {
  load("<L size=\"2\">" + entry(1) + "<!--end--></L>");
  EXPECT_EQ(raised([&] { m_filer.readItem(L"L", &m_points, &m_count); }), E_POINTER);
  EXPECT_EQ(m_count, 2);
  EXPECT_EQ(allX(m_points), (Xs{70, 1}));
  EXPECT_EQ(raised([&] { m_filer.readItem(L"L", &m_vectors, &m_count); }), E_POINTER);
  EXPECT_EQ(allX(m_vectors), (Xs{70, 1}));
}

TEST_F(ListItems, ChildrenBehindTheLastEntryNeededDoNotMatter) {
  load("<L size=\"1\">" + entry(1) + "<!--end--></L>");
  EXPECT_EQ(m_filer.readItem(L"L", &m_points, &m_count), 1);
  EXPECT_EQ(allX(m_points), (Xs{70, 1}));
}

TEST_F(ListItems, AListWithoutChildrenIsNotReadAndLeavesTheCallersList) {
  load("<L size=\"0\"/><M size=\"3\"></M>");
  EXPECT_EQ(m_filer.readItem(L"L", &m_points, &m_count), 0);
  EXPECT_EQ(m_count, 0);
  EXPECT_EQ(m_filer.readItem(L"M", &m_points, &m_count), 0);
  EXPECT_EQ(m_count, 3);
  EXPECT_EQ(m_filer.readItem(L"M", &m_vectors, &m_count), 0);
  EXPECT_EQ(allX(m_points), Xs{70});
  EXPECT_EQ(allX(m_vectors), Xs{70});
}

TEST_F(ListItems, AnIncompleteEntryEmptiesTheCallersList) {
  for (const char* second : {"<point Y=\"0\" Z=\"0\"/>", "<point X=\"0\" Z=\"0\"/>",
                             "<point X=\"0\" Y=\"0\"/>", "<point/>"}) {
    load("<L size=\"3\">" + entry(1) + second + entry(3) + "</L>");
    m_points = {CKtPnt3D(70, 0, 0)};
    m_vectors = {CKtVect3D(70, 0, 0)};
    EXPECT_EQ(m_filer.readItem(L"L", &m_points, &m_count), 0) << second;
    EXPECT_EQ(m_count, 3) << second;
    EXPECT_TRUE(m_points.empty()) << second;
    EXPECT_EQ(m_filer.readItem(L"L", &m_vectors, &m_count), 0) << second;
    EXPECT_TRUE(m_vectors.empty()) << second;
  }
}

TEST_F(ListItems, AnIncompleteEntryBeyondTheSizeDoesNotMatter) {
  load("<L size=\"1\">" + entry(1) + "<point/></L>");
  EXPECT_EQ(m_filer.readItem(L"L", &m_points, &m_count), 1);
  EXPECT_EQ(allX(m_points), (Xs{70, 1}));
}

TEST_F(ListItems, OneThatIsMissingOrHasNoSizeLeavesListAndCount) {
  load("<L>" + entry(1) + "</L><?P data?>");
  for (const wchar_t* name : {L"K", L"L", L"P"}) {
    EXPECT_EQ(m_filer.readItem(name, &m_points, &m_count), 0);
    EXPECT_EQ(m_filer.readItem(name, &m_vectors, &m_count), 0);
  }
  EXPECT_EQ(m_count, 77);
  EXPECT_EQ(allX(m_points), Xs{70});
  EXPECT_EQ(allX(m_vectors), Xs{70});
}

TEST_F(ListItems, AVectorListWrittenHereDoesNotReadBack) {
  m_filer.writeItem(L"L", Vectors{{1, 0, 0}, {2, 0, 0}}, 2);
  EXPECT_EQ(raised([&] { m_filer.readItem(L"L", &m_vectors, &m_count); }), E_POINTER);
  EXPECT_EQ(m_count, 2);
  EXPECT_EQ(allX(m_vectors), Xs{70});
  EXPECT_EQ(raised([&] { m_filer.readItem(L"L", &m_points, &m_count); }), E_POINTER);
}

TEST_F(ListItems, AVectorListThatAnnouncesNoEntriesReadsAsEmpty) {
  m_filer.writeItem(L"L", Vectors{{1, 0, 0}}, 0);
  EXPECT_EQ(m_filer.readItem(L"L", &m_vectors, &m_count), 1);
  EXPECT_EQ(m_count, 0);
  EXPECT_EQ(allX(m_vectors), Xs{70});
}

TEST_F(ListItems, CoordinatesThatAreNoNumbersReadAsZero) {
  load("<L size=\"1\"><point X=\"one\" Y=\"\" Z=\"2.5 m\"/></L>");
  EXPECT_EQ(m_filer.readItem(L"L", &m_points, &m_count), 1);
  ASSERT_EQ(m_points.size(), 2U);
  EXPECT_EQ(m_points[1].X(), 0);
  EXPECT_EQ(m_points[1].Y(), 0);
  EXPECT_EQ(m_points[1].Z(), 2.5);
}

}  // namespace
}  // namespace quorvan::test
