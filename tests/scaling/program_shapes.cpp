#include <tests/scaling/program_shapes.h>

namespace quorvan::test {

namespace {

std::string text(std::size_t number) {
  return std::to_string(number);
}

std::string point(const std::string& name, std::size_t x, std::size_t y) {
  return '<' + name + " X=\"" + text(x) + "\" Y=\"" + text(y) + "\" Z=\"0\"/>";
}

std::string element(const std::string& name, std::size_t index, const std::string& items) {
  return '<' + name + " version=\"1\" index=\"" + text(index) + "\">" + items + "</" + name + '>';
}

std::string tail(std::size_t mark, bool isHidden, std::size_t diameter = 8) {
  return "<SteelGrade string=\"B500B\"/><Adherence string=\"Ha\"/><Diameter double=\"" +
         text(diameter) + "\"/><Reference long=\"" + text(mark) + "\"/><Hidden string=\"" +
         (isHidden ? "True" : "False") + "\"/>";
}

constexpr const char* kHooks =
    R"(<HookLength1 double="0"/><HookLength2 double="0"/><HookAngle1 double="0"/>)"
    R"(<HookAngle2 double="0"/>)";

std::string line(std::size_t index, std::size_t x) {
  return element("CKtZantoLine", index,
                 point("Point1", x, 0) + point("Point2", x, 100) + R"(<Color long="1"/>)");
}

std::string textElement(std::size_t index, const std::string& contents, std::size_t x) {
  return element("CKtZantoText", index,
                 "<Contents string=\"" + contents + "\"/>" + point("Location", x, 0) +
                     R"(<Angle double="0"/><Color long="1"/><JustificationX long="0"/>)"
                     R"(<JustificationY long="0"/><Height double="10"/>)");
}

std::string straightBar(std::size_t index, std::size_t x, std::size_t mark, bool isHidden,
                        std::size_t diameter = 8) {
  return element("CKtZantoStraightBar", index,
                 point("Point1", x, 0) + point("Point2", x, 500) + kHooks +
                     R"(<Hook1Up string="True"/><Hook2Up string="True"/>)" +
                     tail(mark, isHidden, diameter));
}

std::string polygonBar(std::size_t index, std::size_t points, bool isHidden) {
  std::string items = "<NoPoints long=\"" + text(points) + "\"/>";
  for (std::size_t i = 1; i <= points; ++i) {
    items += point("Point" + text(i), i * 10, i % 2 * 50);
  }
  return element("CKtZantoPolygonBar", index,
                 items + kHooks + R"(<Side string="True"/>)" + tail(1, isHidden));
}

std::string list(const std::string& name, const std::string& stem, std::size_t count) {
  std::string entries = '<' + name + " size=\"" + text(count) + "\">";
  for (std::size_t i = 1; i <= count; ++i) {
    entries += '<' + stem + text(i) + " double=\"50\"/>";
  }
  return entries + "</" + name + '>';
}

std::string repartition(std::size_t index, const std::string& className, std::size_t bars) {
  return element("CKtZantoRepartition", index,
                 point("Point1", 0, 0) + point("Point2", 100, 0) + point("Bulge", 0, 0) +
                     R"(<ViewPoint long="2"/>)" + point("Axis", 0, 1) +
                     list("AxisDistancesTop", "DistanceTop", bars) +
                     list("AxisDistancesBottom", "DistanceBottom", bars) +
                     list("Positions", "Positions", bars - 1) + "<DefClassName string=\"" +
                     className + R"("/><Index long="1"/><Hidden string="False"/>)");
}

std::string formwork(std::size_t index, std::size_t x, std::size_t width) {
  return element("CKtZantoFormwork", index,
                 "<Vector size=\"2\">" + point("Point1", x, 0) + point("Point2", x + width, 400) +
                     point("Bulge1", 0, 0) + "</Vector>");
}

std::string repeated(std::size_t count, const auto& make) {
  std::string all;
  for (std::size_t i = 1; i <= count; ++i) {
    all += make(i);
  }
  return all;
}

}  // namespace

// One list, however long.
// NOLINTNEXTLINE(readability-function-size)
const std::vector<DrawingShape>& programShapes() {
  static const std::vector<DrawingShape> all{
      {"lines", 600,
       [](std::size_t n) { return repeated(n, [](std::size_t i) { return line(i, i); }); }},
      {"lines of one place", 600,
       [](std::size_t n) { return repeated(n, [](std::size_t i) { return line(i, 0); }); }},
      {"lines of one index", 600,
       [](std::size_t n) { return repeated(n, [](std::size_t i) { return line(7, i); }); }},
      {"lines of far indexes", 600,
       [](std::size_t n) { return repeated(n, [](std::size_t i) { return line(i * 1453, i); }); }},
      {"equal texts", 500,
       [](std::size_t n) {
         return repeated(n, [](std::size_t i) { return textElement(i, "12", i); });
       }},
      {"texts of one place", 500,
       [](std::size_t n) {
         return repeated(n, [](std::size_t i) { return textElement(i, text(i), 0); });
       }},
      {"a long text among many", 400,
       [](std::size_t n) {
         return textElement(1, std::string(n * 100, 'x'), 0) +
                repeated(n, [](std::size_t i) { return textElement(i + 1, "y", i); });
       }},
      {"bars", 300,
       [](std::size_t n) {
         return repeated(n, [](std::size_t i) { return straightBar(i, i, i, false); });
       }},
      {"bars of one mark", 300,
       [](std::size_t n) {
         return repeated(n, [](std::size_t i) { return straightBar(i, i, 1, false, i); });
       }},
      {"equal hidden bars", 300,
       [](std::size_t n) {
         return repeated(n, [](std::size_t i) { return straightBar(i, 0, 1, true); });
       }},
      {"hidden bars", 300,
       [](std::size_t n) {
         return repeated(n, [](std::size_t i) { return straightBar(i, i, i, true); });
       }},
      {"equal bars", 150,
       [](std::size_t n) {
         return repeated(n, [](std::size_t i) { return straightBar(i, 0, 1, false); });
       }},
      {"bars among formwork", 300,
       [](std::size_t n) {
         return repeated(n, [](std::size_t i) {
           return formwork(i, 40 * i, 0) + straightBar(i, 40 * i + 20, i, false);
         });
       }},
      {"bars on formwork of one place", 150,
       [](std::size_t n) {
         return repeated(
             n, [](std::size_t i) { return formwork(i, 0, 500) + straightBar(i, 20, i, false); });
       }},
      {"a bar of many points", 2000, [](std::size_t n) { return polygonBar(1, n, false); }},
      {"series of one bar", 200,
       [](std::size_t n) {
         return polygonBar(1, 10 * n, false) +
                repeated(n, [](std::size_t i) { return repartition(i, "CKtZantoPolygonBar", 3); });
       }},
      {"a series of many bars", 1000,
       [](std::size_t n) {
         return straightBar(1, 0, 1, false) + repartition(1, "CKtZantoStraightBar", n);
       }},
      {"unknown classes", 2000,
       [](std::size_t n) {
         return repeated(n, [](std::size_t i) { return "<Class" + text(i) + "/>"; });
       }},
      {"strangers in an element", 2000,
       [](std::size_t n) {
         return element("CKtZantoLine", 1,
                        repeated(n, [](std::size_t i) { return "<i" + text(i) + "/>"; }));
       }},
      {"an item again and again", 2000,
       [](std::size_t n) {
         return element("CKtZantoLine", 1, repeated(n, [](std::size_t) {
                          return std::string(R"(<Color long="1"/>)");
                        }));
       }},
      {"instructions", 2000,
       [](std::size_t n) {
         return repeated(n, [](std::size_t i) { return "<?p" + text(i) + "?>"; });
       }},
      {"comments", 4000,
       [](std::size_t n) {
         return repeated(n, [](std::size_t) { return std::string("<!---->"); });
       }},
      {"foreign depth", 1000,
       [](std::size_t n) {
         return repeated(n, [](std::size_t) { return std::string("<a>"); }) +
                repeated(n, [](std::size_t) { return std::string("</a>"); });
       }},
      {"entries in the wrong order", 2000,
       [](std::size_t n) {
         std::string points;
         for (std::size_t i = n; i > 0; --i) {
           points += point("Point" + text(i), i, 0);
         }
         return element(
             "CKtFilledPolygon", 1,
             "<Vector size=\"" + text(n) + "\">" + points + R"(</Vector><Color long="1"/>)");
       }},

  };
  return all;
}

}  // namespace quorvan::test
