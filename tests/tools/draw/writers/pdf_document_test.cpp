// What a PDF paints, read from its packed bytes, and that it holds together.
#ifdef QUORVAN_HAS_QPDF

#include <tools/draw/writers/pdf_document.h>

#include <gtest/gtest.h>
#include <qpdf/qpdf-c.h>

#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <map>
#include <memory>
#include <numbers>
#include <regex>
#include <string>
#include <vector>

#include <tests/tools/draw/writers/written_scenes.h>
#include <tools/draw/scene/text_width.h>

namespace quorvan::tool {

namespace {

// What is in a PDF, read by the rules of its form: what breaks them is a fault, and is not mended.
class ReadPdf {
 public:
  explicit ReadPdf(std::string bytes) : m_bytes(std::move(bytes)), m_file(qpdf_init()) {
    qpdf_silence_errors(m_file);
    qpdf_set_suppress_warnings(m_file, QPDF_TRUE);
    qpdf_set_attempt_recovery(m_file, QPDF_FALSE);
    EXPECT_EQ(qpdf_read_memory(m_file, "the PDF", m_bytes.data(), m_bytes.size(), nullptr), 0);
  }
  ReadPdf(const ReadPdf&) = delete;
  ReadPdf& operator=(const ReadPdf&) = delete;
  ~ReadPdf() {
    while (qpdf_more_warnings(m_file) != QPDF_FALSE) {
      ADD_FAILURE() << qpdf_get_error_full_text(m_file, qpdf_next_warning(m_file));
    }
    if (qpdf_has_error(m_file) != QPDF_FALSE) {
      ADD_FAILURE() << qpdf_get_error_full_text(m_file, qpdf_get_error(m_file));
    }
    qpdf_cleanup(&m_file);
  }

  [[nodiscard]] qpdf_data file() const { return m_file; }

  [[nodiscard]] qpdf_oh page(int number) const {
    return qpdf_get_page_n(m_file, static_cast<std::size_t>(number));
  }
  [[nodiscard]] qpdf_oh lastPage() const { return page(qpdf_get_num_pages(m_file) - 1); }

  // What lies behind these keys, one in the other.
  [[nodiscard]] qpdf_oh in(qpdf_oh object, std::initializer_list<const char*> keys) const {
    for (const char* const key : keys) {
      object = qpdf_oh_get_key(m_file, object, key);
    }
    return object;
  }

  [[nodiscard]] qpdf_oh item(qpdf_oh array, int number) const {
    return qpdf_oh_get_array_item(m_file, array, number);
  }

  [[nodiscard]] double number(qpdf_oh object) const {
    double value = -1.0;
    EXPECT_NE(qpdf_oh_get_value_as_number(m_file, object, &value), QPDF_FALSE);
    return value;
  }

  [[nodiscard]] std::string textOf(qpdf_oh stream) const {
    unsigned char* bytes = nullptr;
    std::size_t size = 0;
    EXPECT_EQ(qpdf_oh_get_stream_data(m_file, stream, qpdf_dl_all, nullptr, &bytes, &size), 0);
    const std::unique_ptr<unsigned char, decltype(&std::free)> owned(bytes, std::free);
    return {reinterpret_cast<const char*>(bytes), size};
  }

  // What is painted on the last page.
  [[nodiscard]] std::string content() const { return textOf(in(lastPage(), {"/Contents"})); }

  [[nodiscard]] qpdf_oh font() const { return in(lastPage(), {"/Resources", "/Font", "/F0"}); }

  // The one that has the letters and says how wide they are.
  [[nodiscard]] qpdf_oh letters() const { return item(in(font(), {"/DescendantFonts"}), 0); }

  [[nodiscard]] std::string unicodeMap() const { return textOf(in(font(), {"/ToUnicode"})); }

 private:
  std::string m_bytes;  // which are read when they are asked for
  qpdf_data m_file;
};

Scene pageWith(std::vector<Shape> shapes) {
  Scene scene = test::sceneOfSize(200, 100);
  scene.title = "P\u00FB12 (a)";
  scene.shapes = std::move(shapes);
  return scene;
}

std::string documentWith(std::vector<Shape> shapes) {
  const std::vector<Scene> pages{pageWith(std::move(shapes))};
  return pdfDocument(pages).value_or("");
}

// What is painted behind the sheet itself.
std::string paintedOf(std::vector<Shape> shapes) {
  constexpr std::string_view kSheet =
      "2.83465 0 0 2.83465 0 0 cm\n1 1 1 rg\n0 0 200 100 re\nf\n1 j\n";
  const std::string content = ReadPdf(documentWith(std::move(shapes))).content();
  EXPECT_EQ(content.substr(0, kSheet.size()), kSheet);
  return content.substr(kSheet.size());
}

Shape lineOnPage(PlanePoint from, PlanePoint to, const Style& style) {
  Shape shape{};
  shape.layer = Layer::kLines;
  shape.kind = Shape::Kind::kPath;
  shape.style = style;
  shape.path.moveTo(from);
  shape.path.lineTo(to);
  return shape;
}

Shape circleOnPage(PlanePoint center, double radius, const Style& style) {
  Shape shape{};
  shape.layer = Layer::kCircles;
  shape.kind = Shape::Kind::kCircle;
  shape.style = style;
  shape.center = center;
  shape.radius = radius;
  return shape;
}

Shape textOnPage(const std::string& text, double angle = 0.0, AlignX align = AlignX::kLeft) {
  Shape shape = test::textAt({50, 40}, 7.16, text);
  shape.lettering.angle = angle;
  shape.lettering.alignX = align;
  return shape;
}

// The two numbers at the end of the place of the first text.
std::pair<double, double> placeOfText(const std::string& painted) {
  static const std::regex kPlace("(-?[0-9.]+) (-?[0-9.]+) Tm");
  std::smatch found;
  EXPECT_TRUE(std::regex_search(painted, found, kPlace)) << painted;
  return {std::stod(found[1]), std::stod(found[2])};
}

std::size_t timesIn(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    ++count;
  }
  return count;
}

TEST(ToolPdfDocument, SaysOfEachObjectWhereItStands) {
  const std::vector<Scene> pages{pageWith({textOnPage("HA16")}), pageWith({}), pageWith({})};
  const std::string pdf = pdfDocument(pages).value_or("");
  ASSERT_EQ(pdf.substr(0, 9), "%PDF-1.5\n");
  const std::size_t table = std::stoul(pdf.substr(pdf.rfind("startxref\n") + 10));
  ASSERT_EQ(pdf.substr(table, 7), "xref\n0 ");
  const std::size_t count = std::stoul(pdf.substr(table + 7));
  const std::size_t first = pdf.find("f \n", table) + 3;
  for (std::size_t i = 1; i < count; ++i) {
    const std::string entry = pdf.substr(first + 20 * (i - 1), 20);
    EXPECT_EQ(entry.substr(10), " 00000 n \n");
    const std::string head = std::to_string(i) + " 0 obj\n";
    EXPECT_EQ(pdf.substr(std::stoul(entry), head.size()), head);
  }
  EXPECT_EQ(pdf.substr(first + 20 * (count - 1), 8), "trailer ");
  const ReadPdf read(pdf);
  ASSERT_EQ(qpdf_get_num_pages(read.file()), 3);
  for (int i = 0; i < 3; ++i) {
    const qpdf_oh page = read.page(i);
    EXPECT_STREQ(qpdf_oh_get_name(read.file(), read.in(page, {"/Type"})), "/Page");
    const qpdf_oh box = read.in(page, {"/MediaBox"});
    ASSERT_EQ(qpdf_oh_get_array_n_items(read.file(), box), 4);
    EXPECT_EQ(read.number(read.item(box, 0)), 0.0);
    EXPECT_EQ(read.number(read.item(box, 1)), 0.0);
    EXPECT_EQ(read.number(read.item(box, 2)), 566.92913);
    EXPECT_EQ(read.number(read.item(box, 3)), 283.46457);
  }
  const qpdf_oh root = qpdf_get_root(read.file());
  EXPECT_EQ(read.number(read.in(root, {"/Pages", "/Count"})), 3.0);
}

// As a reader does that looks for faults: the table, and every stream.
TEST(ToolPdfDocument, IsReadWithoutAWarning) {
  Shape label = textOnPage("8 HA16 (\\");
  label.style.isOnPaper = true;
  Scene cut = pageWith({lineOnPage({1, 2}, {3, 4}, {{}, 0.25}), label});
  cut.window = SheetBox{{10, 20}, {110, 70}};
  const std::vector<Scene> pages{
      cut,
      pageWith({textOnPage("e\u0340 e\u0300 (\u05D0\u05D1"), circleOnPage({9, 9}, 2, {{}, 0.5})}),
      pageWith({})};
  const ReadPdf read(pdfDocument(pages).value_or(""));
  EXPECT_STREQ(qpdf_get_pdf_version(read.file()), "1.5");
  EXPECT_EQ(qpdf_check_pdf(read.file()), 0);
  EXPECT_EQ(qpdf_more_warnings(read.file()), QPDF_FALSE);
}

TEST(ToolPdfDocument, HasTheTitleInAnyLetters) {
  Scene scene = pageWith({});
  for (const char* const title : {"P\u00FB12 (a)", "\u05D0) \\", "\u6881\U0001D400", ""}) {
    scene.title = title;
    const ReadPdf read(pdfDocument(std::span(&scene, 1)).value_or(""));
    const qpdf_oh trailer = qpdf_get_trailer(read.file());
    EXPECT_STREQ(qpdf_oh_get_utf8_value(read.file(), read.in(trailer, {"/Info", "/Title"})), title);
  }
}

TEST(ToolPdfDocument, SaysWhatChangesFromStrokeToStroke) {
  Style thin{{255, 0, 0}, 0.25};
  Style dashed{{255, 0, 0}, 1.0};
  dashed.isDashed = true;
  EXPECT_EQ(paintedOf({lineOnPage({1, 2}, {3, 4}, thin), lineOnPage({5.0626, 6}, {7, 8.1254}, thin),
                       lineOnPage({0, 0}, {9, 0}, dashed), lineOnPage({0, 1}, {9, 1}, thin)}),
            "1 0 0 RG\n0.25 w\n[]0 d 1 J\n1 2 m\n3 4 l\nS\n"
            "5.063 6 m\n7 8.125 l\nS\n"
            "1 w\n[3 2.25]0 d 0 J\n0 0 m\n9 0 l\nS\n"
            "0.25 w\n[]0 d 1 J\n0 1 m\n9 1 l\nS\n");
}

TEST(ToolPdfDocument, LeavesOutStrokesWithoutAWidth) {
  EXPECT_EQ(paintedOf({lineOnPage({1, 2}, {3, 4}, {{}, 0.0})}), "");
}

TEST(ToolPdfDocument, FillsAndBlanksAreas) {
  const Style filled{{0, 0, 255}, 0.0, true};
  Style bubble{{0, 0, 0}, 0.5};
  bubble.isOnPaper = true;
  const std::string fill = paintedOf({circleOnPage({10, 10}, 2, filled)});
  EXPECT_EQ(fill.substr(0, 17), "0 0 1 rg\n12 10 m\n");
  EXPECT_EQ(fill.substr(fill.size() - 4), "h f\n");
  EXPECT_EQ(timesIn(fill, " c\n"), 4U);
  const std::string blank = paintedOf({circleOnPage({10, 10}, 2, bubble)});
  EXPECT_EQ(blank.substr(0, 36), "0 0 0 RG\n0.5 w\n[]0 d 1 J\n12 10 m\n12 ");
  EXPECT_EQ(blank.substr(blank.size() - 4), "h B\n");
}

TEST(ToolPdfDocument, BendsArcsThroughTheirPoints) {
  Shape shape = lineOnPage({0, 0}, {20, 10}, {{}, 0.5});
  shape.path = {};
  shape.path.moveTo({20, 10});
  shape.path.arcTo({10, 10}, std::numbers::pi);
  shape.path.arcTo({0, 500}, 1e-9);
  const std::string painted = paintedOf({shape});
  // A quarter of a circle leaves 0.5523 of its radius along the tangent.
  EXPECT_NE(painted.find("20 10 m\n20 15.523 15.523 20 10 20 c\n4.477 20 0 15.523 0 10 c\n"),
            std::string::npos)
      << painted;
  EXPECT_NE(painted.find("c\n0 10 l\nS\n"), std::string::npos) << "flat: " << painted;
}

TEST(ToolPdfDocument, CutsAtTheWindowAndKnowsWhatHoldsBehindIt) {
  const Style style{{255, 0, 0}, 0.25};
  Shape title = lineOnPage({0, 0}, {9, 9}, {{255, 0, 0}, 0.5});
  title.layer = Layer::kTitle;
  Shape inside = lineOnPage({1, 2}, {3, 4}, style);
  Scene scene = pageWith({title, inside, title});
  scene.window = SheetBox{{10, 20}, {110, 70}};
  const std::vector<Scene> pages{scene};
  const std::string content = ReadPdf(pdfDocument(pages).value_or("")).content();
  EXPECT_NE(content.find("1 0 0 RG\n0.5 w\n[]0 d 1 J\n0 0 m\n9 9 l\nS\n"
                         "q\n10 20 100 50 re\nW n\n0.25 w\n1 2 m\n3 4 l\nS\nQ\n0 0 m\n9 9 l\nS\n"),
            std::string::npos)
      << content;
}

TEST(ToolPdfDocument, SaysTextsInLettersThatAreFound) {
  const ReadPdf read(documentWith({textOnPage("AB A")}));
  const qpdf_oh outlines = read.in(read.letters(), {"/FontDescriptor", "/FontFile2"});
  const std::string bytes = read.textOf(outlines);
  EXPECT_EQ(bytes.substr(0, 4), std::string("\0\1\0\0", 4)) << "outlines of TrueType";
  const qpdf_oh length = read.in(qpdf_oh_get_dict(read.file(), outlines), {"/Length1"});
  EXPECT_EQ(read.number(length), static_cast<double>(bytes.size()));
  const std::string map = read.unicodeMap();
  EXPECT_NE(map.find("><0041>\n"), std::string::npos) << map;
  EXPECT_NE(map.find("><0042>\n"), std::string::npos);
  EXPECT_NE(map.find("3 beginbfchar\n"), std::string::npos) << "A, B, blank";
  EXPECT_NE(read.content().find("BT\n10 0 0 10 50 40 Tm\n/F0 1 Tf\n[<"), std::string::npos)
      << read.content();
}

// The first letter of a row, then the widths of all in it, in thousandths of the size.
TEST(ToolPdfDocument, SaysHowWideItsLettersAre) {
  const ReadPdf read(documentWith({textOnPage("12 x2")}));
  const qpdf_oh rows = read.in(read.letters(), {"/W"});
  ASSERT_EQ(qpdf_oh_get_array_n_items(read.file(), rows), 6) << "the blank, the digits, x";
  const qpdf_oh digits = read.item(rows, 3);
  ASSERT_EQ(qpdf_oh_get_array_n_items(read.file(), digits), 2);
  const double one = read.number(read.item(digits, 0));
  EXPECT_EQ(read.number(read.item(digits, 1)), one);
  EXPECT_GT(one, 500.0);
  EXPECT_LT(one, 700.0);
  EXPECT_LT(read.number(read.item(read.item(rows, 1), 0)), one) << "a blank is narrower";
  char letter[5];
  std::snprintf(letter, sizeof letter, "%04x",
                static_cast<unsigned>(read.number(read.item(rows, 2))));
  EXPECT_NE(read.unicodeMap().find("<" + std::string(letter) + "><0031>\n"), std::string::npos);
}

TEST(ToolPdfDocument, TurnsAndAlignsTexts) {
  const std::string turned = paintedOf({textOnPage("HA16", std::numbers::pi / 2)});
  static const std::regex kUpright("0 (9\\.99[0-9]*|10) -10 0 50 40 Tm");
  EXPECT_TRUE(std::regex_search(turned, kUpright)) << turned;
  const double left = placeOfText(paintedOf({textOnPage("HA16")})).first;
  const double centre = placeOfText(paintedOf({textOnPage("HA16", 0, AlignX::kCentre)})).first;
  const double right = placeOfText(paintedOf({textOnPage("HA16", 0, AlignX::kRight)})).first;
  EXPECT_EQ(left, 50.0);
  EXPECT_GT(left - centre, 8.0);
  EXPECT_NEAR(left - right, 2.0 * (left - centre), 1e-4);
}

TEST(ToolPdfDocument, NarrowsTextsThatAreWiderThanTheSheetReckonsWith) {
  const auto width = [](const std::string& text) {
    return placeOfText(paintedOf({textOnPage(text)})).first -
           placeOfText(paintedOf({textOnPage(text, 0, AlignX::kRight)})).first;
  };
  for (const char* const text : {"WWWWMMMM", "iiiiiilllll", "\u0428\u0429\u0416\u042E"}) {
    EXPECT_LE(width(text), textWidth(text, 7.16) + 1e-3) << text;
    EXPECT_GT(width(text), 0.5 * textWidth(text, 7.16)) << text;
  }
}

// Letters in the paper around a label would be found a second time.
TEST(ToolPdfDocument, BlanksThePaperAroundALabelWithoutSayingItTwice) {
  Shape label = textOnPage("8 HA16");
  label.style.isOnPaper = true;
  const std::string painted = paintedOf({label});
  EXPECT_EQ(timesIn(painted, "BT\n"), 2U);
  EXPECT_NE(painted.find("1 1 1 RG\n2.148 w\n[]0 d 1 J\n/Span<</ActualText()>>BDC\nBT\n1 Tr\n"),
            std::string::npos)
      << painted;
  EXPECT_NE(painted.find("0 Tr\nET\nEMC\n0 0 0 rg\nBT\n"), std::string::npos) << painted;
}

// The same letter, said in two ways.
TEST(ToolPdfDocument, SaysBesideTheLettersWhatTheyDoNotSay) {
  const std::string painted = paintedOf({textOnPage("e\u0340 e\u0300")});
  EXPECT_EQ(timesIn(painted, "BDC\n"), 1U) << painted;
  EXPECT_EQ(timesIn(painted, "EMC\n"), 1U);
  EXPECT_NE(painted.find("/Span<</ActualText<feff00650300>>>BDC\n"), std::string::npos) << painted;
}

TEST(ToolPdfDocument, LiftsSignsOverTheirLettersAndGoesOnBelow) {
  const std::string painted = paintedOf({textOnPage("q\u0323x")});
  const std::size_t lifted = painted.find(" Ts\n");
  ASSERT_NE(lifted, std::string::npos) << painted;
  EXPECT_NE(painted.find(" 0 Ts\n", lifted + 1), std::string::npos) << painted;
}

TEST(ToolPdfDocument, HasWordsFromRightToLeftInTheirOrder) {
  const ReadPdf read(documentWith({textOnPage("\u05D0\u05D1\u05D2")}));
  const std::string map = read.unicodeMap();
  static const std::regex kSaid("<([0-9a-f]{4})><(05d[0-2])>");
  std::map<std::string, std::string> letters;
  for (std::sregex_iterator at(map.begin(), map.end(), kSaid); at != std::sregex_iterator(); ++at) {
    letters[(*at)[2]] = (*at)[1];
  }
  ASSERT_EQ(letters.size(), 3U) << map;
  const std::string page = read.content();
  EXPECT_LT(page.find(letters["05d2"]), page.find(letters["05d1"]));
  EXPECT_LT(page.find(letters["05d1"]), page.find(letters["05d0"]));
}

TEST(ToolPdfDocument, DoesWithoutTextsThatAreNone) {
  Shape flat = textOnPage("x");
  flat.lettering.height = 0.0;
  EXPECT_EQ(paintedOf({textOnPage(""), flat}), "");
}

TEST(ToolPdfDocument, IsNoneWhereALetterHasNoFont) {
  EXPECT_EQ(documentWith({textOnPage("A\U000F1234")}), "");
}

TEST(ToolPdfDocument, IsTheSameEachTime) {
  const auto make = [] { return documentWith({textOnPage("12 HA16"), textOnPage("\u05D0 b")}); };
  EXPECT_EQ(make(), make());
}

TEST(ToolPdfDocument, IsIdentifiedByWhatIsInIt) {
  const auto identify = [](const char* text) {
    const ReadPdf read(documentWith({textOnPage(text)}));
    const qpdf_oh both = read.in(qpdf_get_trailer(read.file()), {"/ID"});
    std::size_t size = 0;
    const char* const bytes =
        qpdf_oh_get_binary_string_value(read.file(), read.item(both, 0), &size);
    return std::string(bytes, size);
  };
  EXPECT_EQ(identify("8 HA16").size(), 16U);
  EXPECT_EQ(identify("8 HA16"), identify("8 HA16"));
  EXPECT_NE(identify("8 HA16"), identify("9 HA16"));
}

}  // namespace

}  // namespace quorvan::tool

#endif
