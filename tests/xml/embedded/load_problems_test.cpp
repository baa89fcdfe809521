// Why a file is refused, as the embedded document says it.
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include <tests/xml/embedded/embedded_dom.h>

namespace quorvan::test {
namespace {

using dom::LoadFailure;
using dom::LoadProblem;

class LoadProblems : public EmbeddedDom {
 protected:
  LoadProblem problemOf(std::string_view bytes) {
    LoadProblem problem;
    EXPECT_FALSE(dom::loadBytes(m_document, bytes, problem)) << bytes;
    return problem;
  }
};

TEST_F(LoadProblems, NameTheLineAndColumnOfTheFirstFault) {
  const LoadProblem problem = problemOf("<a>\n\xC3\xA9\xC3\xA9<b></c></a>");
  EXPECT_EQ(problem.failure, LoadFailure::kNotWellFormed);
  EXPECT_EQ(problem.line, 2U);
  EXPECT_EQ(problem.column, 8U);  // in characters: of the name that does not fit
  EXPECT_EQ(problem.reason, "mismatched tag");
}

TEST_F(LoadProblems, TellAnEncodingThatIsNotKnown) {
  EXPECT_EQ(problemOf("<?xml version=\"1.0\" encoding=\"EBCDIC\"?><a/>").failure,
            LoadFailure::kEncoding);
  EXPECT_EQ(problemOf(std::string_view("\xFF\xFE<\0a\0 \0\x3D\xD8x\0", 12)).failure,
            LoadFailure::kEncoding);
}

TEST_F(LoadProblems, TellALimit) {
  std::string deep;
  for (int i = 0; i < 10001; ++i) {
    deep += "<a>";
  }
  EXPECT_EQ(problemOf(deep).failure, LoadFailure::kLimit);
}

TEST_F(LoadProblems, TellWhatIsRefusedAlthoughItIsWellFormed) {
  const LoadProblem problem = problemOf("<?xml version=\"1.1\"?><a/>");
  EXPECT_EQ(problem.failure, LoadFailure::kNotWellFormed);
  EXPECT_NE(problem.reason, "");
}

}  // namespace
}  // namespace quorvan::test
