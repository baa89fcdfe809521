// Files made to hurt their reader: each command ends, soon, with an answer.
#include <gtest/gtest.h>

#include <tests/tools/sample.h>
#include <tests/tools/tool_run.h>

namespace {

using quorvan::test::runTool;
using quorvan::test::writeFile;

void expectAnswers(const std::string& bytes) {
  writeFile("hostile.xml", bytes);
  for (const char* const command : {"info", "list", "bars", "check"}) {
    const auto run = runTool({command, "hostile.xml"});
    EXPECT_FALSE(run.out.empty() && run.err.empty()) << command;
  }
}

std::string repeated(const std::string& text, int count) {
  std::string all;
  for (int i = 0; i < count; ++i) {
    all += text;
  }
  return all;
}

TEST(ToolHostileFiles, MayBeNestedDeeply) {
  expectAnswers(repeated("<a>", 5000) + repeated("</a>", 5000));
  expectAnswers(repeated("<a>", 200000) + repeated("</a>", 200000));
}

TEST(ToolHostileFiles, MayMultiplyEntities) {
  std::string entities = "<!DOCTYPE d [<!ENTITY e0 'xxxxxxxxxx'>";
  for (int i = 1; i < 12; ++i) {
    entities += "<!ENTITY e" + std::to_string(i) + " '" +
                repeated("&e" + std::to_string(i - 1) + ";", 10) + "'>";
  }
  expectAnswers(entities + "]><d a='&e11;'/>");
}

TEST(ToolHostileFiles, AreRefusedWithTheReason) {
  const auto errorsFor = [](const std::string& bytes) {
    writeFile("hostile.xml", bytes);
    return runTool({"info", "hostile.xml"}).err;
  };
  const std::string file = "quorvan: hostile.xml:";
  std::string chain = "<!DOCTYPE d [<!ENTITY e0 ''>";
  std::string attributes = "<!DOCTYPE d [";
  for (int i = 1; i < 5000; ++i) {
    const std::string number = std::to_string(i);
    chain.append("<!ENTITY e").append(number).append(" '&e").append(std::to_string(i - 1));
    chain += ";'>";
    attributes += "<!ATTLIST a b" + number + " CDATA ''>";
  }
  EXPECT_NE(errorsFor(chain + "]><d>&e4999;</d>").find(": entities nested too deep\n"),
            std::string::npos);
  EXPECT_NE(errorsFor(attributes + "]><d/>").find(": too many attributes declared for one element"),
            std::string::npos);
  EXPECT_EQ(errorsFor("<d>\n<e/>&u;</d>"),
            file + "2:5: not well-formed: the entity that is used here is declared nowhere\n");
}

TEST(ToolHostileFiles, OpenNoOtherFile) {
  writeFile("secret.txt", "secret");
  writeFile(
      "hostile.xml",
      "<!DOCTYPE d [<!ENTITY e SYSTEM 'secret.txt'>]><d><CKtZantoText>&e;</CKtZantoText></d>");
  const auto run = runTool({"list", "hostile.xml"});
  EXPECT_EQ((run.out + run.err).find("secret\n"), std::string::npos);
}

TEST(ToolHostileFiles, MayAnnounceAnyCount) {
  for (const char* const count :
       {"-1", "32768", "2147483647", "-2147483648", "", "x", "99999999999999999999"}) {
    std::string bytes = quorvan::test::sampleBytes();
    for (const char* const from :
         {"<Vector size=\"4\"", "<NoPoints long=\"4\"", "<Positions size=\"4\""}) {
      const std::string text = from;
      bytes =
          quorvan::test::replaced(bytes, text, text.substr(0, text.find('"') + 1) + count + '"');
    }
    expectAnswers(bytes);
  }
}

TEST(ToolHostileFiles, MayHoldNumbersBeyondReckoning) {
  const std::string huge(400, '9');
  std::string bytes = quorvan::test::sampleBytes();
  for (const char* const from :
       {"X=\"40.0000000\"", "double=\"16.0000000\"", "double=\"200.0000000\"", "X=\"-200.0000000\"",
        "double=\"125.5000000\""}) {
    const std::string text = from;
    bytes = quorvan::test::replaced(bytes, text, text.substr(0, text.find('"') + 1) + huge + '"');
  }
  expectAnswers(bytes);
}

TEST(ToolHostileFiles, MayBeCutShort) {
  const std::string sample = quorvan::test::sampleBytes();
  for (std::size_t length = 0; length < sample.size(); length += 97) {
    writeFile("cut.xml", sample.substr(0, length));
    EXPECT_EQ(runTool({"check", "cut.xml"}).status, 2) << length;
  }
}

TEST(ToolHostileFiles, MayHaveAnyByteChanged) {
  const std::string sample = quorvan::test::sampleBytes();
  for (std::size_t at = 0; at < sample.size(); at += 53) {
    std::string bytes = sample;
    bytes[at] = static_cast<char>(bytes[at] ^ 0x15);
    expectAnswers(bytes);
  }
}

TEST(ToolHostileFiles, MayHoldManyStrangers) {
  expectAnswers("<Document>" + repeated("<a/>", 100000) + "</Document>");
  expectAnswers("<Document><CKtZantoLine>" + repeated("<a/>", 50000) +
                "</CKtZantoLine></Document>");
}

}  // namespace
