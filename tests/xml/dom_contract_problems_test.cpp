// The contract of the XML document service: why a document was not loaded, and documents that are
// in memory already.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>

#include <tests/xml/dom_contract.h>

namespace quorvan::test {
namespace {

using dom::LoadFailure;
using dom::LoadProblem;

class DomProblems : public DomContract {
 protected:
  LoadProblem problemOf(std::string_view bytes) {
    LoadProblem problem;
    EXPECT_FALSE(dom::loadBytes(m_document, bytes, problem)) << bytes;
    return problem;
  }
};

TEST_F(DomProblems, ADocumentInMemoryLoadsAsFromAFile) {
  LoadProblem problem;
  const std::string bytes = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a b=\"\xE9\"><c/></a>";
  ASSERT_TRUE(dom::loadBytes(m_document, bytes, problem));
  EXPECT_EQ(outline(m_document), "xml(version=1.0 encoding=ISO-8859-1) a(b=\xC3\xA9)[c]");
  EXPECT_EQ(problem.failure, LoadFailure::kNone);
}

TEST_F(DomProblems, BytesInMemoryAreNotNeededAfterwards) {
  std::string bytes = "<a b=\"value\"><!--c--></a>";
  LoadProblem problem;
  ASSERT_TRUE(dom::loadBytes(m_document, bytes, problem));
  bytes.assign(bytes.size(), '?');
  EXPECT_EQ(outline(m_document), "a(b=value)[#comment]");
}

TEST_F(DomProblems, AFaultInMemoryLeavesAnEmptyDocument) {
  EXPECT_EQ(problemOf("<a>").failure, LoadFailure::kNotWellFormed);
  EXPECT_EQ(outline(m_document), "");
  EXPECT_EQ(problemOf("").failure, LoadFailure::kNotWellFormed);
}

TEST_F(DomProblems, AFaultHasItsLine) {
  const LoadProblem problem = problemOf("<a>\n  <b>\n  </c>\n</a>");
  EXPECT_EQ(problem.failure, LoadFailure::kNotWellFormed);
  EXPECT_EQ(problem.line, 3U);
  EXPECT_GT(problem.column, 0U);
  EXPECT_NE(problem.reason, "");
}

TEST_F(DomProblems, AFileThatIsNotThereIsMissing) {
  LoadProblem problem;
  EXPECT_FALSE(dom::load(m_document, wide(file("missing.xml")), problem));
  EXPECT_EQ(problem.failure, LoadFailure::kMissing);
  problem = {};
  EXPECT_FALSE(dom::load(m_document, wide(file("missing") / "missing.xml"), problem));
  EXPECT_EQ(problem.failure, LoadFailure::kMissing);
  problem = {};
  EXPECT_FALSE(dom::load(m_document, CString(), problem));
  EXPECT_EQ(problem.failure, LoadFailure::kMissing);
}

TEST_F(DomProblems, AFolderIsNoFile) {
  LoadProblem problem;
  EXPECT_FALSE(dom::load(m_document, wide(file("")), problem));
  EXPECT_EQ(problem.failure, LoadFailure::kNotAFile);
}

TEST_F(DomProblems, AFaultInAFileHasItsLine) {
  writeFile("broken.xml", "<a>\r\n</b>");
  LoadProblem problem;
  EXPECT_FALSE(dom::load(m_document, wide(file("broken.xml")), problem));
  EXPECT_EQ(problem.failure, LoadFailure::kNotWellFormed);
  EXPECT_EQ(problem.line, 2U);
}

}  // namespace
}  // namespace quorvan::test
