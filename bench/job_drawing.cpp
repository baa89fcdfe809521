#include <bench/job_drawing.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <map>
#include <random>
#include <stdexcept>
#include <string_view>

namespace bench {

namespace {

constexpr std::array kJobTexts = {
    "Coupe A-A \xE9"
    "ch. 1:25",
    "4 \xD8"
    "20 e=15",
    "Enrobage 30 mm", "&#8960; 16 &lt; 200", "Niveau fini +3.25"};
constexpr std::array kJobGrades = {"B500A", "B500B", "B500C"};
constexpr std::array kJobDiameters = {8.0, 10.0, 12.0, 16.0, 20.0, 25.0, 32.0};
constexpr std::array kJobBars = {"CKtZantoStraightBar", "CKtZantoLBar", "CKtZantoUBar",
                                 "CKtZantoStirrup", "CKtZantoFrameRect"};
constexpr unsigned int kMarks = 400;  // of a class

class JobWriter {
 public:
  std::string write(std::size_t elements) {
    m_text = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<Document>";
    for (std::size_t i = 0; i < elements; ++i) {
      const unsigned int kind = below(100);
      if (kind < 46) {
        addGraphic(kind);
      } else if (kind < 96) {
        addBar(kind);
      } else {
        addRepartition();
      }
    }
    begin("CKtDrawingControl");
    text("ZantoVersion", "25.1");
    whole("ServicePack", 2);
    whole("CheckSum", 4711);
    text("DrawingName", "Poutre continue P12");
    end("CKtDrawingControl");
    return m_text + "</Document>\r\n";
  }

 private:
  unsigned int below(unsigned int limit) { return static_cast<unsigned int>(m_random() % limit); }
  double place() { return below(60000000) / 1000.0; }

  void begin(const std::string& name) {
    const int index = ++m_counts[name];
    m_text += '<' + name + " version=\"1\" index=\"" + std::to_string(index) + "\">";
  }
  void end(const std::string& name) { m_text += "</" + name + '>'; }

  static std::string fixed(double value) {
    char digits[64];
    const int size = std::snprintf(digits, sizeof digits, "%.7f", value);
    return {digits, static_cast<std::size_t>(size)};
  }
  void item(const std::string& name, const char* kind, const std::string& value) {
    m_text += '<' + name + ' ' + kind + "=\"" + value + "\"/>";
  }
  void text(const std::string& name, const std::string& value) { item(name, "string", value); }
  void whole(const std::string& name, unsigned int value) {
    item(name, "long", std::to_string(value));
  }
  void number(const std::string& name, double value) { item(name, "double", fixed(value)); }
  void point(const std::string& name, double x, double y) {
    m_text += '<' + name + " X=\"" + fixed(x) + "\" Y=\"" + fixed(y) + "\" Z=\"0.0000000\"/>";
  }
  void anyPoint(const std::string& name) {
    const double x = place();
    point(name, x, place());
  }
  void list(const std::string& name, const std::string& stem, unsigned int count, double value) {
    m_text += '<' + name + " size=\"" + std::to_string(count) + "\">";
    for (unsigned int i = 1; i <= count; ++i) {
      number(stem + std::to_string(i), value);
    }
    end(name);
  }

  void addGraphic(unsigned int kind) {
    if (kind < 22) {
      begin("CKtZantoLine");
      anyPoint("Point1");
      anyPoint("Point2");
      whole("Color", below(256));
      end("CKtZantoLine");
    } else if (kind < 28) {
      begin("CKtZantoCircle");
      anyPoint("Center");
      number("Radius", below(500));
      whole("Color", below(256));
      end("CKtZantoCircle");
    } else if (kind < 42) {
      begin("CKtZantoText");
      text("Contents", kJobTexts[below(kJobTexts.size())]);
      anyPoint("Location");
      number("Angle", below(36000) / 100.0);
      whole("JustificationX", 1);
      whole("JustificationY", 2);
      whole("Color", 7);
      number("Height", 25);
      end("CKtZantoText");
    } else {
      addPolygon();
    }
  }

  void addPolygon() {
    begin("CKtFilledPolygon");
    const unsigned int points = 3 + below(4);
    m_text += "<Vector size=\"" + std::to_string(points) + "\">";
    for (unsigned int i = 1; i <= points; ++i) {
      anyPoint("Point" + std::to_string(i));
    }
    end("Vector");
    whole("Color", 3);
    end("CKtFilledPolygon");
  }

  // What a bar is follows from its mark alone, where it lies does not.
  void addBar(unsigned int kind) {
    const unsigned int mark = below(kMarks);
    const double width = 500 + mark * 7;
    const double x = place();
    const double y = place();
    const unsigned int shape = kind < 68 ? 0 : kind < 75 ? 1 : kind < 82 ? 2 : kind < 90 ? 3 : 4;
    const std::string name = kJobBars[shape];
    const bool isStraight = kind < 68;
    const bool hasThree = !isStraight && name != "CKtZantoStirrup";
    const bool hasTwoHooks = kind < 82;
    begin(name);
    point("Point1", x, y);
    point("Point2", x + width, y);
    if (hasThree) {
      point("Point3", x + width, y + 100 + mark % 800);
    }
    number("HookLength1", mark % 300);
    if (isStraight) {
      number("HookLength2", 0);
      text("Hook1Up", "True");
      text("Hook2Up", "False");
    }
    number("HookAngle1", 90);
    if (hasTwoHooks && !isStraight) {
      number("HookLength2", 0);
    }
    if (hasTwoHooks) {
      number("HookAngle2", 135);
    }
    text("SteelGrade", kJobGrades[mark % kJobGrades.size()]);
    text("Adherence", "Ha");
    number("Diameter", kJobDiameters[mark % kJobDiameters.size()]);
    whole("Reference", mark + kMarks * shape);
    text("Hidden", below(20) == 0 ? "True" : "False");
    end(name);
  }

  void addRepartition() {
    const unsigned int bars = 3 + below(12);
    begin("CKtZantoRepartition");
    anyPoint("Point1");
    anyPoint("Point2");
    point("Bulge", 0, 0);
    whole("ViewPoint", 2);
    point("Axis", 0, 2500);
    list("AxisDistancesTop", "DistanceTop", bars, 1000);
    list("AxisDistancesBottom", "DistanceBottom", bars, -1000);
    list("Positions", "Positions", bars - 1, 150);
    text("DefClassName", "CKtZantoStraightBar");
    whole("Index", 1 + below(1 + static_cast<unsigned int>(m_counts["CKtZantoStraightBar"])));
    text("Hidden", "False");
    end("CKtZantoRepartition");
  }

  std::mt19937 m_random{20240611};
  std::string m_text;
  std::map<std::string, int> m_counts;
};

}  // namespace

void writeJobDrawing(std::size_t elements, const std::string& path) {
  std::ofstream out(path, std::ios::binary);
  const std::string text = JobWriter().write(elements);
  out.write(text.data(), static_cast<std::streamsize>(text.size()));
  out.close();
  if (!out) {
    throw std::runtime_error("cannot write " + path);
  }
}

}  // namespace bench
