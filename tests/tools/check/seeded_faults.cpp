#include <tests/tools/check/seeded_faults.h>

#include <ostream>

#include <tests/tools/sample.h>

namespace quorvan::test {

namespace {

const std::string kHiddenBar = R"(<CKtZantoStraightBar version="1" index="2">)";

// An element of the sample once more, with the next index.
std::string again(const std::string& start, const std::string& end, const std::string& index,
                  const std::string& next) {
  const std::string sample = sampleBytes();
  const std::size_t begin = sample.find(start);
  const std::string bar = sample.substr(begin, sample.find(end, begin) + end.size() - begin);
  return replaced(bar, index, next);
}

std::string withEqualBar() {
  return again(kHiddenBar, "</CKtZantoStraightBar>", "index=\"2\"", "index=\"3\"");
}

std::string withBarOnTop() {
  return again("<CKtZantoLBar", "</CKtZantoLBar>", "index=\"1\"", "index=\"2\"");
}

const std::string kSteps =
    R"(<Positions1 double="200.0000000"/><Positions2 double="200.0000000"/>)"
    R"(<Positions3 double="200.0000000"/><Positions4 double="250.0000000"/>)";
const std::string kNoSteps = R"(<Positions1  double="0.0000000"/><Positions2 double="0.0000000"/>)"
                             R"(<Positions3 double="0.0000000"/><Positions4 double="0.0000000"/>)";

const SeededFault kFaults[] = {
    {101, "error", "</CKtZantoLine>", "</CKtZantoLin>", "CKtZantoLin>", "", "", "",
     "<CKtZantoLine> of line 2, column 11 is closed by </CKtZantoLin>", "a well-formed document",
     false},
    {102, "error", "<Document>", "<!-- by hand --><Document>", "<!-- by hand", "", "", "",
     "\"<!-- by hand -->\"", "the root element behind the declaration", true},
    {104, "warning", R"(<CKtDrawingControl)",
     R"(<CKtZantoSpiral version="1" index="1"/><CKtDrawingControl)", "<CKtZantoSpiral",
     "CKtZantoSpiral", "1", "", "\"CKtZantoSpiral\"", "a class of this format", false},
    {105, "note", R"(<CKtZantoMesh version="1")", R"(<CKtZantoMesh version="2")", "<CKtZantoMesh",
     "CKtZantoMesh", "1", "", "version=\"2\"", "version=\"1\"", true},
    {106, "warning", "</CKtZantoCircle>", "</CKtZantoCircle><?Line a?>", "<?Line", "", "", "",
     "\"<?Line a?>\"", "elements and comments alone", true},
    {106, "warning", R"(<Radius double="125.5000000"/>)",
     R"(<Radius double="125.5000000">far<!-- kept --></Radius>)", "far", "CKtZantoCircle", "",
     "Radius", "\"far\"", "elements and comments alone", true},
    {106, "warning", "</CKtZantoCircle>", "</CKtZantoCircle>by hand", "by hand", "", "", "",
     "\"by hand\"", "elements and comments alone", true},
    {201, "error", R"(<Radius double="125.5000000"/>)", "", "<CKtZantoCircle", "CKtZantoCircle",
     "1", "Radius", "", "the item \"Radius\"", false},
    {201, "error", R"(<Point2 X="4000.0000000" Y="-100.0000000" Z="0.0000000"/>)",
     R"(<Point2 X="4000.0000000" Y="-100.0000000"/>)", "<Point2 X=\"4000", "CKtZantoLine", "1",
     "Point2", "X=\"4000.0000000\"", "the attribute \"Z\"", false},
    {202, "error", R"(<Radius double="125.5000000"/>)", R"(<Radius string="125.5000000"/>)",
     "<Radius", "CKtZantoCircle", "1", "Radius", "string=\"125.5000000\"",
     "the attribute \"double\"", true},
    {203, "error", R"(<Radius double="125.5000000"/>)", R"(<Radius double="125,5"/>)", "<Radius",
     "CKtZantoCircle", "1", "Radius", "double=\"125,5\"", "a decimal number with a point", true},
    {203, "error", R"(<Color long="3"/>)", R"(<Color long="3000000000"/>)", "<Color long=\"3000",
     "CKtZantoCircle", "1", "Color", "long=\"3000000000\"", "a whole number of 32 bits", false},
    {203, "error", R"(X="4500.0000000" Y="200)", R"(X="4500,25" Y="200)", "<Center X=\"4500",
     "CKtZantoCircle", "1", "Center", "X=\"4500,25\"", "a decimal number with a point", true},
    {203, "error", R"(<Radius double="125.5000000"/>)", R"(<Radius double="1e400"/>)", "<Radius",
     "CKtZantoCircle", "1", "Radius", "double=\"1e400\"", "a number of 64 bits: below 1.8e308",
     false},
    {207, "note", R"(<Radius double="125.5000000"/>)", R"(<Radius double=" 125.5000000 "/>)",
     "<Radius", "CKtZantoCircle", "1", "Radius", "double=\" 125.5000000 \"",
     "double=\"125.5000000\"", true},
    {204, "warning", R"(<Hook1Up string="True"/>)", R"(<Hook1Up string="1"/>)",
     "<Hook1Up string=\"1\"", "CKtZantoStraightBar", "1", "Hook1Up", "string=\"1\"",
     "\"True\" or \"False\"", true},
    {205, "warning", R"(<Radius double="125.5000000"/>)",
     R"(<Radius double="125.5000000"/><Weight double="1"/>)", "<Weight", "CKtZantoCircle", "1",
     "Weight", "\"Weight\"", "only items of CKtZantoCircle", false},
    {206, "warning", R"(<Radius double="125.5000000"/>)",
     R"(<Radius double="125.5000000"/><Radius double="1.0000000"/>)", "<Radius double=\"1.0",
     "CKtZantoCircle", "1", "Radius", "a second \"Radius\"", "one item of each name", true},
    {301, "error", R"(<Vector size="4"><Point1 X="-200)", R"(<Vector size="3"><Point1 X="-200)",
     "<Vector size=\"3\"", "CKtFilledPolygon", "1", "Vector", "size=\"3\" over 4 entries",
     "4, Point1 to Point4", true},
    {301, "error", R"(<NoPoints long="4"/>)", R"(<NoPoints long="5"/>)", "<NoPoints",
     "CKtZantoPolygonBar", "1", "NoPoints", "long=\"5\" over 4 entries", "4, Point1 to Point4",
     true},
    {301, "error", R"(<AxisDistancesTop size="5">)", R"(<AxisDistancesTop size="-1">)",
     "<AxisDistancesTop", "CKtZantoRepartition", "1", "AxisDistancesTop",
     "size=\"-1\" over 5 entries", "5, DistanceTop1 to DistanceTop5", true},
    {303, "warning", R"(<Vector size="8">)", R"(<Vector size="9"><Point9 X="1" Y="2" Z="3"/>)",
     "<Vector size=\"9\"", "CKtZantoFormwork", "1", "Vector", "size=\"9\" over 9 entries",
     "two points a segment", false},
    {401, "error", R"(<CKtZantoLine version="1" index="2">)", R"(<CKtZantoLine version="1">)",
     "<CKtZantoLine version=\"1\">", "CKtZantoLine", "", "", "no index", "index=\"2\"", true},
    {401, "error", R"(<CKtZantoLine version="1" index="2">)",
     R"(<CKtZantoLine version="1" index="two">)", "<CKtZantoLine version=\"1\" index=\"two",
     "CKtZantoLine", "two", "", "index=\"two\"", "index=\"2\"", true},
    {402, "error", R"(<CKtZantoLine version="1" index="2">)",
     R"(<CKtZantoLine  version="1" index="1">)", "<CKtZantoLine  ", "CKtZantoLine", "1", "",
     "index=\"1\" a second time", "index=\"2\"", true},
    {403, "note", R"(<CKtZantoLine version="1" index="2">)",
     R"(<CKtZantoLine version="1" index="4">)", "<CKtZantoLine version=\"1\" index=\"4\"",
     "CKtZantoLine", "4", "", "index=\"4\"", "index=\"2\"", true},
    {501, "warning", "<CKtZantoLBar", withEqualBar() + "<CKtZantoLBar",
     R"(<CKtZantoStraightBar version="1" index="3">)", "CKtZantoStraightBar", "3", "",
     "the same items as CKtZantoStraightBar 2", "one of them", true},
    {502, "warning", R"(<Diameter double="12.0000000"/><Reference long="2"/>)",
     R"(<Diameter double="12.0000000"/><Reference  long="1"/>)", "<Reference  ", "CKtZantoLBar",
     "1", "Reference", "L bar, diameter 12, grade B500B, adherence Ha, length 560",
     "straight bar, diameter 16, grade B500B, adherence Ha, length 4220 as in CKtZantoStraightBar "
     "1",
     false},
    {503, "error", R"(<Index long="1"/>)", R"(<Index long="2"/>)", "<Index", "CKtZantoRepartition",
     "1", "Index", "CKtZantoFrameRect 2, which is not there",
     "the index of a CKtZantoFrameRect in the file", false},
    {503, "error", R"(<DefClassName string="CKtZantoFrameRect"/>)",
     R"(<DefClassName string="CKtZantoLine"/>)", "<DefClassName", "CKtZantoRepartition", "1",
     "DefClassName", "\"CKtZantoLine\"", "the class of a bar or link", false},
    {504, "warning",
     R"(<Positions size="4"><Positions1 double="200.0000000"/>)"
     R"(<Positions2 double="200.0000000"/><Positions3 double="200.0000000"/>)"
     R"(<Positions4 double="250.0000000"/>)",
     R"(<Positions size="1"><Positions1 double="200.0000000"/>)", "<Positions",
     "CKtZantoRepartition", "1", "Positions", "5 top distances, 5 bottom distances, 1 positions",
     "equal numbers, or one position fewer", false},
    {505, "warning", R"(<Diameter double="12.0000000"/>)", R"(<Diameter double="13.0000000"/>)",
     "<Diameter double=\"13", "CKtZantoLBar", "1", "Diameter", "13",
     "a standard size, the nearest is 12", false},
    {506, "note", R"(<Adherence string="Ha"/>)", R"(<Adherence long="0"/>)",
     "<Adherence long=\"0\"", "CKtZantoStraightBar", "1", "Adherence", "long=\"0\"",
     "string=\"Ha\"", true},
    {508, "warning", "</CKtZantoLBar>", "</CKtZantoLBar>" + withBarOnTop(),
     R"(<CKtZantoLBar version="1" index="2">)", "CKtZantoLBar", "2", "",
     "mark 2 at the place of CKtZantoLBar 1", "one of them", false},
    {509, "warning", kSteps, kNoSteps, "<Positions size", "CKtZantoRepartition", "1", "Positions",
     "5 bars with steps of 0", "a step between bars", false},
    {702, "warning", R"(<Contents string="300"/>)", R"(<Contents string="&#65533;300"/>)",
     "<Contents string=\"&#65533;", "CKtZantoText", "2", "Contents", "\"\uFFFD300\"",
     "a text without U+FFFD", false},
    {703, "warning", R"(<Contents string="300"/>)", "<Contents string=\"\x80 300\"/>",
     "<Contents string=\"\x80", "CKtZantoText", "2", "Contents", "\"\u0080 300\"",
     "a text without U+007F to U+009F", false},
    {701, "error", R"(<Contents string="300"/>)", "<Contents string=\"\x01 300\"/>", "\x01", "", "",
     "", "a control character", "none", false},
    {701, "error", R"(<Contents string="300"/>)", "<Contents string=\"&#27; 300\"/>", "&#27;", "",
     "", "", "a control character", "none", false},
};

}  // namespace

void PrintTo(const SeededFault& fault, std::ostream* out) {
  *out << fault.code << ' ' << fault.severity;
}

std::span<const SeededFault> seededFaults() {
  return kFaults;
}

std::string fileWith(const SeededFault& fault) {
  return replaced(sampleBytes(), fault.from, fault.to);
}

}  // namespace quorvan::test
