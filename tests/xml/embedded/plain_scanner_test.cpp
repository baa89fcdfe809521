// The scanner of the plain form against expat: it accepts nothing that expat refuses, and makes
// the same tree.
#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <string>
#include <string_view>

#include <tests/xml/embedded/embedded_dom.h>

namespace quorvan::test {
namespace {

using embedded::scanPlain;

embedded::Tree::Owned readWithExpat(embedded::FileSource& file) {
  dom::LoadProblem problem;
  return embedded::readWithExpat(file, problem);
}

class PlainScanner : public EmbeddedDom {
 protected:
  // What expat makes of the bytes, with the scanner found to agree or to have left them.
  std::string agreed(std::string_view bytes) {
    const std::string general = readBy(readWithExpat, bytes);
    const std::string plain = readAgainBy(scanPlain);
    if (plain != "(refused)") {
      ++m_scanned;
      EXPECT_EQ(plain, general) << bytes;
    }
    return general;
  }
  [[nodiscard]] bool scans(std::string_view bytes) const {
    return readBy(scanPlain, bytes) != "(refused)";
  }

  int m_scanned = 0;
};

TEST_F(PlainScanner, TakesWhatTheLibraryWrites) {
  const std::string declared =
      "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n"
      "<Document><CKtZantoText version=\"1\" index=\"1\"><Text string=\"b\xE9ton &#8364; "
      "&lt;&amp;&gt;&quot;' &#9;&#10;&#13;\"/><Empty string=\"\"/></CKtZantoText></Document>\r\n";
  EXPECT_TRUE(scans(declared));
  agreed(declared);
  const std::string indented =
      "<?xml version='1.0' encoding='UTF-8' standalone='yes'?>\r\n<!-- \xC3\xA9 -->\r\n<a>\r\n\t"
      "<b c=\"1\"\td=\"\xE2\x82\xAC\" />\r\n\t<e ></e >\n text &#233;\r.<!----></a><!--f-->\r\n ";
  EXPECT_TRUE(scans(indented));
  agreed(indented);
  EXPECT_EQ(m_scanned, 2);
}

TEST_F(PlainScanner, KeepsNamesApartThatDifferInOnePlaceAlone) {
  std::string file = "<a>";
  for (const std::size_t length : {7U, 8U, 9U, 15U, 16U, 17U, 18U, 40U}) {
    for (std::size_t at = 0; at < length; ++at) {
      std::string name(length, 'n');
      name[at] = 'm';
      file += "<" + name + "/>";
    }
  }
  file += "</a>";
  EXPECT_TRUE(scans(file));
  EXPECT_EQ(resaved(file), file + "\r\n");
}

TEST_F(PlainScanner, LeavesTheRestToTheGeneralParser) {
  for (const char* file : {
           "",
           " ",
           "<",
           "<a",
           "<a>",
           "<a></b>",
           "<a/><b/>",
           "text",
           "<a/>text",
           "<?p?><a/>",
           "<!DOCTYPE a><a/>",
           "<a><![CDATA[]]></a>",
           "<a><?p?></a>",
           "<a b='1'/>",
           "<a b = \"1\"/>",
           "<a b=\"1\" b=\"2\"/>",
           "<a b=\"1\" b=\"&lt;\"/>",
           "<a b=\"1\"c=\"2\"/>",
           "<a b=\"<\"/>",
           "<a b=\"\t\"/>",
           "<a b=\"\n\"/>",
           "<a b=\"&e;\"/>",
           "<a b=\"&\"/>",
           "<a>&e;</a>",
           "<a>]]></a>",
           "<p:a/>",
           "<a xml:space=\"preserve\"/>",
           "<a xmlns:p=\"u\"/>",
           "<\xC3\xA9/>",
           "<1/>",
           "<a 1=\"\"/>",
           "< a/>",
           "</a>",
           "<a/ >",
           "<!-- -- --><a/>",
           "<!--a--->",
           "\xEF\xBB\xBF<a/>",
           "\xFF\xFE<\0a\0/\0>\0",
           "<?xml version='1.1'?><a/>",
           "<?xml version='1.0' encoding='windows-1252'?><a/>",
           "<?xmlx version='1.0'?><a/>",
           "<a>\x01</a>",
           "<a b=\"\x01\"/>",
           "<a>&#0;</a>",
           "<a>&#xFFFF;</a>",
           "<a>&#+5;</a>",
           "<a>&#X41;</a>",
           "<a>&#;</a>",
           "<a b=\"\xFF\"/>",
           "<a>\xC3</a>",
           "<a>\xED\xA0\x80</a>",
           "<!--\x01--><a/>",
           "<a><!--</a>",
           "<a b=\"1\"></a b=\"1\">",
       }) {
    EXPECT_FALSE(scans(file)) << file;
    agreed(file);
  }
}

TEST_F(PlainScanner, LeavesAFileWithAZeroByte) {
  using namespace std::string_view_literals;
  for (const std::string_view file :
       {"<a>\0</a>"sv, "<a\0/>"sv, "<a b=\"\0\"/>"sv, "<a/>\0"sv, "\0<a/>"sv, "<a></a\0>"sv,
        "<!--\0--><a/>"sv, "<a \0b=\"\"/>"sv}) {
    EXPECT_FALSE(scans(file));
  }
}

// Files longer than what is read at once, with its end at every place of a small document.
TEST_F(PlainScanner, PartsMayBeCutByTheEndOfWhatIsRead) {
  const std::string part = "<e f=\"1\" g=\"&lt;x\"> t&#233; <h i=\"\" /><!-- c --></e ><j></j>\r\n";
  const std::size_t window = std::size_t{256} * 1024;
  for (std::size_t shift = 0; shift < part.size() + 8; ++shift) {
    std::string file = "<a><!--" + std::string(window - 20 - shift, 'x') + "-->";
    file += part + part + "</a>\r\n";
    ASSERT_TRUE(scans(file)) << shift;
    agreed(file);
  }
}

TEST_F(PlainScanner, PartsMayBeLongerThanWhatIsRead) {
  const std::string value(3000000, 'x');
  const std::string file =
      "<a b=\"" + value + "\" c=\"&lt;" + value + "\">" + value + "&gt;<!--" + value + "--></a>";
  EXPECT_TRUE(scans(file));
  agreed(file);
}

// What stood behind a name is expected there again, and must be no less looked at for that.
TEST_F(PlainScanner, TagsThatComeAgainAreTakenOnlyWhereTheyMayStand) {
  constexpr int kNames = 600;
  const auto tag = [](int number) {
    const std::string text = std::to_string(number);
    return "<e" + text + " f" + text + "=\"\"";
  };
  std::string known = "<r>";
  for (int number = 0; number < kNames; ++number) {
    known += tag(number) + "/>";
  }
  EXPECT_TRUE(scans(known + "<x y=\"\"/>" + tag(0) + "/></r>"));
  for (int number = 0; number < kNames; ++number) {
    ASSERT_FALSE(scans(known + "<x y=\"\"" + tag(number) + "/></r>")) << number;
  }
}

TEST_F(PlainScanner, AttributesThatComeAgainAreTakenOnce) {
  EXPECT_TRUE(scans("<r><a b=\"\" c=\"\"/><a b=\"\" c=\"\"/></r>"));
  EXPECT_FALSE(scans("<r><a b=\"\" c=\"\"/><a c=\"\" b=\"\" c=\"\"/></r>"));
}

// Documents of parts that belong to the plain form, and some that do not.
class RandomDocument {
 public:
  explicit RandomDocument(unsigned seed) : m_random(seed) {}

  std::string make() {
    std::string out =
        pick({"", "", "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>",
              "<?xml version='1.0' encoding='UTF-8'?>\r\n", "<?xml version=\"1.0\"?> "});
    out += pick({"", "\r\n", "<!-- c -->", " "});
    element(out, 0);
    return out + pick({"", "\r\n", "<!--d-->\n", " "});
  }

  // Changes, drops or doubles a few bytes.
  std::string damaged(std::string file) {
    for (unsigned i = below(4); i-- > 0;) {
      const std::size_t at = below(static_cast<unsigned>(file.size()));
      switch (below(4)) {
        case 0:
          file[at] = static_cast<char>(below(256));
          break;
        case 1:
          file.erase(at, 1 + below(4));
          break;
        case 2:
          file.insert(at, pick({"<", ">", "&", "\"", "/", "=", " ", "]]>", "&#9;", "<!--", "-->",
                                "<?p?>", "\xC3\xA9", "\t", "\r\n", ":", "'"}));
          break;
        default:
          file.insert(at, file.substr(below(static_cast<unsigned>(file.size())), below(12)));
          break;
      }
      if (file.empty()) {
        file = "<a/>";
      }
    }
    return file;
  }

 private:
  unsigned below(unsigned limit) { return static_cast<unsigned>(m_random()) % limit; }
  std::string pick(std::initializer_list<const char*> choices) {
    return choices.begin()[below(static_cast<unsigned>(choices.size()))];
  }
  std::string name() {
    return pick({"a", "CKtZantoLine", "CKtZantoText", "X", "Y", "Z", "_b.c-d9", "double"});
  }
  std::string text() {
    return pick({"", "12.5000000", "x y", "&lt;", "&#233;", "&#x20AC;", "&#10;", "'", "a>b",
                 "&amp;", "plain text that is longer than sixteen bytes", "\xC3\xA9", "&#128512;"});
  }

  void element(std::string& out, int depth) {
    const std::string tag = name();
    out += "<" + tag;
    for (unsigned i = below(4); i-- > 0;) {
      out += pick({" ", " ", "\n", "  "}) + name() + std::to_string(i) + "=\"" + text() + text() +
             "\"";
    }
    out += pick({"", "", " "});
    if (below(3) == 0) {
      out += "/>";
      return;
    }
    out += ">";
    for (unsigned i = depth < 6 ? below(5) : 0; i-- > 0;) {
      content(out, depth);
    }
    out += "</" + tag + pick({"", "", " "}) + ">";
  }

  void content(std::string& out, int depth) {
    switch (below(8)) {
      case 0:
        out += text();
        break;
      case 1:
        out += pick({" ", "\r\n\t", "\n"});
        break;
      case 2:
        out += "<!--" + pick({"", "c", " x\r\ny "}) + "-->";
        break;
      default:
        element(out, depth + 1);
        break;
    }
  }

  std::mt19937 m_random;
};

// QUORVAN_TEST_DOCUMENTS asks for a longer random run.
int documentCount(int usual) {
  const char* const asked = std::getenv("QUORVAN_TEST_DOCUMENTS");
  return asked != nullptr ? std::atoi(asked) : usual;
}

TEST_F(PlainScanner, AgreesOnRandomDocuments) {
  const int count = documentCount(1000);
  for (int i = 0; i < count; ++i) {
    ASSERT_NE(agreed(RandomDocument(static_cast<unsigned>(i)).make()), "");
  }
  EXPECT_GT(m_scanned, count * 0.9);
}

TEST_F(PlainScanner, AgreesOnDamagedDocuments) {
  const int count = documentCount(4000);
  for (int i = 0; i < count; ++i) {
    const auto seed = static_cast<unsigned>(i);
    RandomDocument document(seed);
    const std::string file = document.make();
    agreed(document.damaged(file));
    if (HasFailure()) {
      return;
    }
  }
  EXPECT_GT(m_scanned, count / 8);
}

}  // namespace
}  // namespace quorvan::test
