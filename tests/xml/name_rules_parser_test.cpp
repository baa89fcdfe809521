// The table of names against the parser that reads the files back.

#include <expat.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include <quorvan/text/utf8.h>
#include <quorvan/xml/name_rules.h>

namespace quorvan::dom {
namespace {

bool parses(const std::string& name) {
  struct Free {
    void operator()(XML_ParserStruct* parser) const { XML_ParserFree(parser); }
  };
  const std::unique_ptr<XML_ParserStruct, Free> parser(XML_ParserCreate("UTF-8"));
  const std::string document = '<' + name + "/>";
  return XML_Parse(parser.get(), document.data(), static_cast<int>(document.size()), XML_TRUE) ==
         XML_STATUS_OK;
}

// An ASCII character that is no part of a name ends it there, and a colon parses as part of one.
bool endsName(char32_t code) {
  return code == ' ' || code == '\t' || code == '\n' || code == '\r' || code == '/' ||
         code == '>' || code == ':';
}

TEST(XmlNames, AreWhatTheParserAcceptsForEveryCharacter) {
  for (char32_t code = 1; code < 0x11000; ++code) {
    if ((code >= 0xD800 && code <= 0xDFFF) || endsName(code)) {
      continue;
    }
    std::string text;
    appendUtf8(text, code);
    ASSERT_EQ(isXmlName(text), parses(text)) << "U+" << std::hex << static_cast<unsigned>(code);
    text.insert(0, "a");
    ASSERT_EQ(isXmlName(text), parses(text)) << "U+" << std::hex << static_cast<unsigned>(code);
  }
}

}  // namespace
}  // namespace quorvan::dom
