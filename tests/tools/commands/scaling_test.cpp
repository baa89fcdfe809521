// Four times the file costs a command about four times the work, whatever the file is made of. Work
// is counted in instructions where the system counts them, else in processor time.
#ifdef __linux__

#include <gtest/gtest.h>
#include <linux/perf_event.h>
#include <sys/ioctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <ctime>
#include <string>
#include <vector>

#include <tests/tools/sample.h>
#include <tests/tools/tool_run.h>

namespace {

using quorvan::test::runTool;

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kIsSanitized = true;
#else
constexpr bool kIsSanitized = false;
#endif

// Counts what this process does.
class WorkCounter {
 public:
  WorkCounter() {
    perf_event_attr attributes = {};
    attributes.type = PERF_TYPE_HARDWARE;
    attributes.size = sizeof attributes;
    attributes.config = PERF_COUNT_HW_INSTRUCTIONS;
    attributes.exclude_kernel = 1;
    attributes.exclude_hv = 1;
    m_counter = static_cast<int>(::syscall(SYS_perf_event_open, &attributes, 0, -1, -1, 0));
  }
  WorkCounter(const WorkCounter&) = delete;
  WorkCounter& operator=(const WorkCounter&) = delete;
  ~WorkCounter() {
    if (m_counter >= 0) {
      ::close(m_counter);
    }
  }

  [[nodiscard]] bool countsInstructions() const { return m_counter >= 0; }

  [[nodiscard]] double now() const {
    std::uint64_t count = 0;
    if (m_counter >= 0 && ::read(m_counter, &count, sizeof count) == sizeof count) {
      return static_cast<double>(count);
    }
    timespec time = {};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e9 + static_cast<double>(time.tv_nsec);
  }

 private:
  int m_counter = -1;
};

std::string text(int number) {
  return std::to_string(number);
}

std::string point(const std::string& name, int x, int y) {
  return '<' + name + " X=\"" + text(x) + "\" Y=\"" + text(y) + "\" Z=\"0\"/>";
}

std::string element(const std::string& name, int index, const std::string& items) {
  return '<' + name + " version=\"1\" index=\"" + text(index) + "\">" + items + "</" + name + '>';
}

std::string tail(int mark, bool isHidden, int diameter = 8) {
  return "<SteelGrade string=\"B500B\"/><Adherence string=\"Ha\"/><Diameter double=\"" +
         text(diameter) + "\"/><Reference long=\"" + text(mark) + "\"/><Hidden string=\"" +
         (isHidden ? "True" : "False") + "\"/>";
}

constexpr const char* kHooks =
    R"(<HookLength1 double="0"/><HookLength2 double="0"/><HookAngle1 double="0"/>)"
    R"(<HookAngle2 double="0"/>)";

std::string line(int index, int x) {
  return element("CKtZantoLine", index,
                 point("Point1", x, 0) + point("Point2", x, 100) + R"(<Color long="1"/>)");
}

std::string textElement(int index, const std::string& contents, int x) {
  return element("CKtZantoText", index,
                 "<Contents string=\"" + contents + "\"/>" + point("Location", x, 0) +
                     R"(<Angle double="0"/><Color long="1"/><JustificationX long="0"/>)"
                     R"(<JustificationY long="0"/><Height double="10"/>)");
}

std::string straightBar(int index, int x, int mark, bool isHidden, int diameter = 8) {
  return element("CKtZantoStraightBar", index,
                 point("Point1", x, 0) + point("Point2", x, 500) + kHooks +
                     R"(<Hook1Up string="True"/><Hook2Up string="True"/>)" +
                     tail(mark, isHidden, diameter));
}

std::string polygonBar(int index, int points, bool isHidden) {
  std::string items = "<NoPoints long=\"" + text(points) + "\"/>";
  for (int i = 1; i <= points; ++i) {
    items += point("Point" + text(i), i * 10, i % 2 * 50);
  }
  return element("CKtZantoPolygonBar", index,
                 items + kHooks + R"(<Side string="True"/>)" + tail(1, isHidden));
}

std::string list(const std::string& name, const std::string& stem, int count) {
  std::string entries = '<' + name + " size=\"" + text(count) + "\">";
  for (int i = 1; i <= count; ++i) {
    entries += '<' + stem + text(i) + " double=\"50\"/>";
  }
  return entries + "</" + name + '>';
}

std::string repartition(int index, const std::string& className, int bars) {
  return element("CKtZantoRepartition", index,
                 point("Point1", 0, 0) + point("Point2", 100, 0) + point("Bulge", 0, 0) +
                     R"(<ViewPoint long="2"/>)" + point("Axis", 0, 1) +
                     list("AxisDistancesTop", "DistanceTop", bars) +
                     list("AxisDistancesBottom", "DistanceBottom", bars) +
                     list("Positions", "Positions", bars - 1) + "<DefClassName string=\"" +
                     className + R"("/><Index long="1"/><Hidden string="False"/>)");
}

std::string repeated(int count, const auto& make) {
  std::string all;
  for (int i = 1; i <= count; ++i) {
    all += make(i);
  }
  return all;
}

struct Shape {
  const char* name;
  int size;
  std::string (*make)(int size);
};

const Shape kShapes[] = {
    {"lines", 600, [](int n) { return repeated(n, [](int i) { return line(i, i); }); }},
    {"lines of one place", 600,
     [](int n) { return repeated(n, [](int i) { return line(i, 0); }); }},
    {"lines of one index", 600,
     [](int n) { return repeated(n, [](int i) { return line(7, i); }); }},
    {"lines of far indexes", 600,
     [](int n) { return repeated(n, [](int i) { return line(i * 1453, i); }); }},
    {"equal texts", 500,
     [](int n) { return repeated(n, [](int i) { return textElement(i, "12", i); }); }},
    {"texts of one place", 500,
     [](int n) { return repeated(n, [](int i) { return textElement(i, text(i), 0); }); }},
    {"a long text among many", 400,
     [](int n) {
       return textElement(1, std::string(static_cast<std::size_t>(n) * 100, 'x'), 0) +
              repeated(n, [](int i) { return textElement(i + 1, "y", i); });
     }},
    {"bars", 300,
     [](int n) { return repeated(n, [](int i) { return straightBar(i, i, i, false); }); }},
    {"bars of one mark", 300,
     [](int n) { return repeated(n, [](int i) { return straightBar(i, i, 1, false, i); }); }},
    {"equal hidden bars", 300,
     [](int n) { return repeated(n, [](int i) { return straightBar(i, 0, 1, true); }); }},
    {"hidden bars", 300,
     [](int n) { return repeated(n, [](int i) { return straightBar(i, i, i, true); }); }},
    {"a bar of many points", 2000, [](int n) { return polygonBar(1, n, false); }},
    {"series of one bar", 200,
     [](int n) {
       return polygonBar(1, 10 * n, false) +
              repeated(n, [](int i) { return repartition(i, "CKtZantoPolygonBar", 3); });
     }},
    {"a series of many bars", 1000,
     [](int n) { return straightBar(1, 0, 1, false) + repartition(1, "CKtZantoStraightBar", n); }},
    {"unknown classes", 2000,
     [](int n) { return repeated(n, [](int i) { return "<Class" + text(i) + "/>"; }); }},
    {"strangers in an element", 2000,
     [](int n) {
       return element("CKtZantoLine", 1, repeated(n, [](int i) { return "<i" + text(i) + "/>"; }));
     }},
    {"an item again and again", 2000,
     [](int n) {
       return element("CKtZantoLine", 1,
                      repeated(n, [](int) { return std::string(R"(<Color long="1"/>)"); }));
     }},
    {"instructions", 2000,
     [](int n) { return repeated(n, [](int i) { return "<?p" + text(i) + "?>"; }); }},
    {"comments", 4000,
     [](int n) { return repeated(n, [](int) { return std::string("<!---->"); }); }},
    {"foreign depth", 1000,
     [](int n) {
       return repeated(n, [](int) { return std::string("<a>"); }) +
              repeated(n, [](int) { return std::string("</a>"); });
     }},
    {"entries in the wrong order", 2000,
     [](int n) {
       std::string points;
       for (int i = n; i > 0; --i) {
         points += point("Point" + text(i), i, 0);
       }
       return element(
           "CKtFilledPolygon", 1,
           "<Vector size=\"" + text(n) + "\">" + points + R"(</Vector><Color long="1"/>)");
     }},
};

const std::vector<std::string> kCommands[] = {
    {"info", "scaled.xml", "--all"},
    {"list", "scaled.xml"},
    {"list", "scaled.xml", "--csv"},
    {"list", "scaled.xml", "--json"},
    {"bars", "scaled.xml"},
    {"bars", "scaled.xml", "--json"},
    {"check", "scaled.xml"},
    {"check", "scaled.xml", "--repair", "-o", "mended.xml"},
    {"draw", "scaled.xml", "-o", "scaled.svg"},
    {"draw", "scaled.xml", "-o", "scaled.html", "--marks", "all"},
    {"diff", "scaled.xml", "scaled.xml"},
};

class ToolScaling : public testing::TestWithParam<Shape> {
 protected:
  void writeShape(int size) {
    quorvan::test::writeFile("scaled.xml", "<Document>" + GetParam().make(size) + "</Document>");
  }

  double workOf(const std::vector<std::string>& command) {
    const int runs = m_counter.countsInstructions() ? 1 : 3;
    double least = INFINITY;
    for (int i = 0; i < runs; ++i) {
      const double before = m_counter.now();
      runTool(command);
      least = std::min(least, m_counter.now() - before);
    }
    return least;
  }

  WorkCounter m_counter;
};

TEST_P(ToolScaling, IsLinear) {
  if (kIsSanitized) {
    GTEST_SKIP() << "counts the sanitizer";
  }
  // Time is rougher than instructions; a square is 16.
  const double most = m_counter.countsInstructions() ? 5.0 : 9.0;
  std::vector<double> small;
  writeShape(GetParam().size);
  for (const auto& command : kCommands) {
    small.push_back(workOf(command));
  }
  writeShape(4 * GetParam().size);
  for (std::size_t i = 0; i < std::size(kCommands); ++i) {
    const double large = workOf(kCommands[i]);
    EXPECT_LT(large, most * small[i])
        << GetParam().name << ": " << kCommands[i][0] << ' ' << kCommands[i].back() << " costs "
        << large / small[i] << " times";
  }
}

INSTANTIATE_TEST_SUITE_P(Shapes, ToolScaling, testing::ValuesIn(kShapes), [](const auto& test) {
  std::string name = test.param.name;
  std::ranges::replace(name, ' ', '_');
  return name;
});

}  // namespace

#endif
