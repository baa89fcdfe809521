// The longer texts of --help.
#pragma once

#include <string_view>

namespace quorvan::tool {

inline constexpr std::string_view kProgramDescription =
    "See what is in a transfer file. The file is only read, never changed.";

inline constexpr std::string_view kProgramFooter =
    "Exit code: 0 nothing to report, 1 findings or differences, 2 failure.\n"
    "`quorvan COMMAND --help` shows the options of a command with examples.";

inline constexpr std::string_view kInfoExamples =
    "Examples:\n"
    "  quorvan info beam.xml\n"
    "  quorvan info --json *.xml > inventory.json";

inline constexpr std::string_view kListExamples =
    "Examples:\n"
    "  quorvan list beam.xml                       every element, a table a class\n"
    "  quorvan list beam.xml StraightBar           one class\n"
    "  quorvan list beam.xml LBar --csv > l.csv    a column an item\n"
    "  quorvan list beam.xml --json > beam.json    what `quorvan write` takes";

inline constexpr std::string_view kWriteExamples =
    "Examples:\n"
    "  quorvan write beam.json -o beam.xml\n"
    "  quorvan list old.xml --json > d.json && quorvan write d.json -o new.xml";

inline constexpr std::string_view kBarsExamples =
    "Examples:\n"
    "  quorvan bars beam.xml\n"
    "  quorvan bars beam.xml --csv > bars.csv\n"
    "  quorvan bars plan-in-metres.xml --unit m";

inline constexpr std::string_view kCheckExamples =
    "Exit code: 0 no warnings (notes at most), 1 warnings, 2 errors or a file that cannot be "
    "read.\n"
    "Examples:\n"
    "  quorvan check beam.xml\n"
    "  quorvan check --json *.xml > findings.json\n"
    "  quorvan check --diameters 8,10,12,16,20,25 beam.xml\n"
    "  quorvan check broken.xml --repair -o mended.xml";

inline constexpr std::string_view kDiffExamples =
    "Exit code: 0 equal, 1 different, 2 a file that cannot be read.\n"
    "Examples:\n"
    "  quorvan diff beam-a.xml beam-b.xml\n"
    "  quorvan diff --tolerance 0.5 --json old.xml new.xml";

inline constexpr std::string_view kDrawExamples =
    "Examples:\n"
    "  quorvan draw beam.xml -o beam.svg\n"
    "  quorvan draw beam.xml -o beam.html            a page to move about in\n"
    "  quorvan draw beam.xml -o beam.pdf --sheet A1 --scale 25\n"
    "  quorvan draw beam.xml -o beam.png --hidden off --marks all --dpi 300";

}  // namespace quorvan::tool
