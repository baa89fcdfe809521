#include <tests/scaling/drawing_shapes.h>

namespace quorvan::test {

namespace {

constexpr const char* kBegin = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<Document>";
constexpr const char* kEnd = "</Document>\r\n";

std::string number(std::size_t value) {
  return std::to_string(value);
}

// What `part` makes of each number from 1 to `size`.
std::string series(std::size_t size, std::string (*part)(std::size_t number)) {
  std::string all;
  for (std::size_t i = 1; i <= size; ++i) {
    all += part(i);
  }
  return all;
}

std::string drawing(const std::string& elements) {
  return kBegin + elements + kEnd;
}

std::string withDoctype(const std::string& declarations, const std::string& elements) {
  return "<!DOCTYPE Document [" + declarations + "]><Document>" + elements + kEnd;
}

std::string element(const std::string& name, const std::string& items) {
  return "<" + name + " version=\"1\" index=\"1\">" + items + "</" + name + ">";
}

std::string item(const std::string& name, const std::string& kind, const std::string& value) {
  return "<" + name + ' ' + kind + "=\"" + value + "\"/>";
}

std::string point(const std::string& name, std::size_t i) {
  return "<" + name + " X=\"" + number(i) + ".5000000\" Y=\"0.2500000\" Z=\"0.0000000\"/>";
}

std::string numberedPoint(std::size_t i) {
  return point("Point" + number(i), i);
}

std::string list(const std::string& name, std::size_t size, const std::string& entries) {
  return "<" + name + " size=\"" + number(size) + "\">" + entries + "</" + name + ">";
}

std::string steel(std::size_t reference) {
  return item("SteelGrade", "string", "B500B") + item("Adherence", "string", "Ha") +
         item("Diameter", "double", "12.0000000") + item("Reference", "long", number(reference)) +
         item("Hidden", "string", "True");
}

std::string line(std::size_t i) {
  return element("CKtZantoLine", point("StartPoint", i) + point("EndPoint", i + 1) +
                                     item("Color", "long", number(i)));
}

std::string straightBar(std::size_t i) {
  return element(
      "CKtZantoStraightBar",
      point("Point1", i) + point("Point2", i) + item("HookLength1", "double", "1.0000000") +
          item("HookLength2", "double", "1.0000000") + item("Hook1Up", "string", "True") +
          item("Hook2Up", "string", "True") + item("HookAngle1", "double", "9.0000000") +
          item("HookAngle2", "double", "9.0000000") + steel(i));
}

std::string polygonBar(std::size_t announced, const std::string& points) {
  return element("CKtZantoPolygonBar", item("NoPoints", "long", number(announced)) + points +
                                           item("HookLength1", "double", "1.0000000") +
                                           item("HookLength2", "double", "1.0000000") +
                                           item("Side", "long", "1") +
                                           item("HookAngle1", "double", "9.0000000") +
                                           item("HookAngle2", "double", "9.0000000") + steel(1));
}

std::string repartition(std::size_t announced, const std::string& positions) {
  return element("CKtZantoRepartition",
                 point("Point1", 1) + point("Point2", 2) + point("Bulge", 0) + point("Axis", 1) +
                     item("ViewPoint", "long", "1") + list("AxisDistancesTop", 0, "") +
                     list("AxisDistancesBottom", 0, "") + list("Positions", announced, positions) +
                     item("DefClassName", "string", "CKtZantoStraightBar") +
                     item("Index", "long", "1") + item("Hidden", "string", "False"));
}

// One list, however long.
// NOLINTNEXTLINE(readability-function-size)
std::vector<DrawingShape> usualShapes() {
  return {
      {"lines", 100, [](std::size_t n) { return drawing(series(n, line)); }},
      {"different straight bars", 80,
       [](std::size_t n) { return drawing(series(n, straightBar)); }},
      {"equal straight bars", 80,
       [](std::size_t n) {
         return drawing(series(n, [](std::size_t) { return straightBar(1); }));
       }},
      {"texts with references", 100,
       [](std::size_t n) {
         return drawing(series(n, [](std::size_t i) {
           return element("CKtZantoText",
                          item("Contents", "string", "\xE9 &lt;" + number(i) + "&#8364;") +
                              point("Location", i));
         }));
       }},
      {"a long text", 10'000,
       [](std::size_t n) {
         return drawing(element("CKtZantoText", item("Contents", "string", std::string(n, 't'))));
       }},
      {"a polygon of many points", 200,
       [](std::size_t n) {
         return drawing(element("CKtFilledPolygon", list("Vector", n, series(n, numberedPoint)) +
                                                        item("Color", "long", "1")));
       }},
      {"a formwork of many segments", 100,
       [](std::size_t n) {
         return drawing(
             element("CKtZantoFormwork", list("Vector", 2 * n, series(n, [](std::size_t i) {
                                                return point("Point" + number(2 * i - 1), i) +
                                                       point("Point" + number(2 * i), i) +
                                                       point("Bulge" + number(i), 0);
                                              }))));
       }},
      {"a polygon bar of many points", 200,
       [](std::size_t n) { return drawing(polygonBar(n, series(n, numberedPoint))); }},
      {"polygon bars of ever more points", 30,
       [](std::size_t n) {
         // As many points in all as the size says, times a constant.
         std::string bars;
         std::size_t points = 20 * n;
         for (std::size_t i = 1; i <= points; points -= i, ++i) {
           bars += polygonBar(i, series(i, numberedPoint));
         }
         return drawing(bars);
       }},
      {"a repartition of many bars", 200,
       [](std::size_t n) {
         return drawing(repartition(n, series(n, [](std::size_t i) {
                                      return item("Positions" + number(i), "double", number(i));
                                    })));
       }},
      {"repartitions", 50,
       [](std::size_t n) {
         return drawing(straightBar(1) + series(n, [](std::size_t) { return repartition(0, ""); }));
       }},
      {"UTF-16", 80,
       [](std::size_t n) {
         std::string wide = "\xFF\xFE";
         for (const char unit : "<Document>" + series(n, line) + "</Document>") {
           wide += unit;
           wide += '\0';
         }
         return wide;
       }},
  };
}

std::vector<DrawingShape> oddShapes() {
  return {
      {"points in reverse", 200,
       [](std::size_t n) {
         std::string points;
         for (std::size_t i = n; i > 0; --i) {
           points += numberedPoint(i);
         }
         return drawing(polygonBar(n, points));
       }},
      {"polygon bars that announce what they lack", 100,
       [](std::size_t n) {
         return drawing(series(n, [](std::size_t) { return polygonBar(1'000'000, ""); }));
       }},
      {"repartitions that announce what they lack", 80,
       [](std::size_t n) {
         return drawing(series(n, [](std::size_t) { return repartition(1'000'000, ""); }));
       }},
      {"elements of ever other names", 400,
       [](std::size_t n) {
         return drawing(series(n, [](std::size_t i) { return "<n" + number(i) + "/>"; }));
       }},
      {"items of ever other names", 400,
       [](std::size_t n) {
         return drawing(element("CKtZantoLine", series(n, [](std::size_t i) {
                                  return item("n" + number(i), "long", "1");
                                })));
       }},
      {"comments, sections and instructions", 100,
       [](std::size_t n) {
         return drawing(series(
             n, [](std::size_t) { return std::string("<!--c--><![CDATA[<]]><?p d?> text\r\n"); }));
       }},
      {"elements within each other", 500,
       [](std::size_t n) {
         return drawing(series(n, [](std::size_t) { return std::string("<a>"); }) +
                        series(n, [](std::size_t) { return std::string("</a>"); }));
       }},
      {"attributes of one element", 2000,
       [](std::size_t n) {
         return drawing("<a" + series(n, [](std::size_t i) { return " a" + number(i) + "=\"\""; }) +
                        "/>");
       }},
  };
}

std::vector<DrawingShape> hostileShapes() {
  return {
      {"a token without end", 20'000,
       [](std::size_t n) { return "<Document><!--" + std::string(n, '-'); }},
      {"a value without end", 20'000,
       [](std::size_t n) { return "<!DOCTYPE a><a b='" + std::string(n, '&'); }},
      {"entities", 150,
       [](std::size_t n) {
         return withDoctype(
             series(n, [](std::size_t i) { return "<!ENTITY e" + number(i) + " 'text'>"; }),
             series(n, [](std::size_t i) { return "<a>&e" + number(i) + ";</a>"; }));
       }},
      {"a chain of entities", 300,
       [](std::size_t n) {
         return withDoctype("<!ENTITY e0 ''>" + series(n,
                                                       [](std::size_t i) {
                                                         return "<!ENTITY e" + number(i) + " '&e" +
                                                                number(i - 1) + ";'>";
                                                       }),
                            "&e" + number(n) + ";");
       }},
      {"declared attributes times elements", 4000,
       [](std::size_t n) {
         return withDoctype(
             series(n / 2,
                    [](std::size_t i) { return "<!ATTLIST a b" + number(i) + " CDATA ''>"; }),
             series(n, [](std::size_t) { return std::string("<a/>"); }));
       }},
      {"attributes of type ID", 3000,
       [](std::size_t n) {
         return withDoctype(
             series(n, [](std::size_t i) { return "<!ATTLIST a b" + number(i) + " ID #IMPLIED>"; }),
             "");
       }},
      {"a long namespace address times names", 1000,
       [](std::size_t n) {
         return "<Document xmlns:p='" + std::string(4 * n, 'n') + "'>" +
                series(n, [](std::size_t) { return std::string("<a p:b='1'/>"); }) + kEnd;
       }},
  };
}

}  // namespace

const std::vector<DrawingShape>& drawingShapes() {
  static const std::vector<DrawingShape> all = [] {
    std::vector<DrawingShape> shapes;
    for (const auto& kind : {usualShapes(), oddShapes(), hostileShapes()}) {
      shapes.insert(shapes.end(), kind.begin(), kind.end());
    }
    return shapes;
  }();
  return all;
}

}  // namespace quorvan::test
