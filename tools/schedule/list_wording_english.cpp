#include <tools/schedule/list_wording.h>

namespace quorvan::tool {

constinit const ListWording kEnglishList = {
    .language = "en",
    .name = "English",
    .decimalMark = '.',
    .shapes = {"straight bar", "L bar", "U bar", "pin", "bar seen end-on", "polygon bar",
               "rectangular frame", "circular frame", "stirrup"},
    .reasons = {"the bar that it repeats is not in the file", "it has no bars",
                "seen end-on: its length is not in the file",
                "its width is not in the file: the length is a lower bound",
                "{0} is missing or no number", "no length that can be reckoned with",
                "no diameter that can be reckoned with", "sheets have a list of their own"},
    .titles = {.list = "Bar list of {0}",
               .ofDrawing = "drawing {0}",
               .bars = "Bars",
               .sums = "By diameter and grade",
               .drawings = "By drawing",
               .meshes = "Meshes",
               .leftOut = "Not in these sums",
               .explanations = "How the numbers came about",
               .sketches = "Shapes",
               .conventions = "Conventions"},
    .columns = {.drawing = "drawing",
                .file = "file",
                .mark = "mark",
                .code = "code",
                .shape = "shape",
                .grade = "grade",
                .adherence = "adherence",
                .diameter = "diameter",
                .roller = "roller",
                .number = "number",
                .length = "length",
                .longest = "length to",
                .total = "total",
                .totalLength = "total length",
                .mass = "mass",
                .dimensions = "dimensions",
                .elements = "elements",
                .remarks = "remarks",
                .explanation = "explanation",
                .reference = "reference",
                .type = "type",
                .pieces = "pieces",
                .width = "along X",
                .height = "along Y",
                .area = "area",
                .totalArea = "total area",
                .className = "class",
                .index = "index",
                .reason = "reason"},
    .conventions =
        {.axis =
             "Length: along the centre line as drawn, with the hooks in full and no deduction for "
             "bends. U bar: the third leg equals the first. Rectangular frame: the four sides. "
             "Circular frame: the circle and its overlap. Stirrup: twice its long axis. Links: "
             "their hook at both ends.",
         .iso =
             "After ISO 3766. Length: what is cut, along the centre line with its bends. "
             "Dimensions: over everything, to the outermost point of a bend beyond a right angle. "
             "U bar: the third leg equals the first. Stirrup: no wider than its bends need. Links: "
             "their hook at both ends.",
         .british =
             "After BS 8666:2020. Length: by the formula of the shape code or, where a bend of "
             "more than 45 degrees asks for it, along the centre line. Dimensions: over "
             "everything; those in parentheses are free. Stirrup: no wider than its bends need.",
         .sketchCode = "Code 99: a shape that fits no code, with its legs in order.",
         .noDeduction = "Length: the sum of the outside dimensions.",
         .deduction = "Length: the sum of the outside dimensions less {0} for each bend.",
         .rollers = "Rollers: 4 diameters up to 16 mm, 7 above.",
         .givenRoller = "Rollers: {0}.",
         .hooksFromCorner =
             "Hooks: their length counts from the corner into which they are bent; beyond a right "
             "angle, from the line that the bend touches at the end of the bar.",
         .hooksStraight = "Hooks: their length is the straight part behind the bend.",
         .ringAxis = "Circular frames: the radius is that of the axis.",
         .ringInner = "Circular frames: the radius is the inner one.",
         .roundedNearest = "Rounded: lengths to {0} mm, dimensions to {1} mm.",
         .roundedUp = "Rounded: lengths up to {0} mm, dimensions to {1} mm.",
         .degrees = "Angles: degrees.",
         .radians = "Angles: radians.",
         .number =
             "Number: each element counts, hidden ones included; one that repartitions repeat "
             "stands for their bars. Bars seen end-on count only where the mark has no other "
             "element of their diameter and grade; their length is not in the file.",
         .twinsOnce =
             "Repartitions of one mark with the same number and steps in several views count "
             "once.",
         .units =
             "Units: diameter in mm, length in {0}, total length in m, mass in kg at {1} kg/m3."},
    .remarks = {.twins = "{0} look like the same bars in several views: all of them count",
                .sameBars = "{0} shows the bars of {1} in another view",
                .lowerBound = "at least: its width is not in the file",
                .tooShort = "a leg is too short for its bends",
                .endOn = "end-on {0}",
                .hidden = "{0} hidden"},
    .explanations = {.drawn = "{0} drawn",
                     .repeated = "{0} of them repeated by {1}",
                     .share = "{0} ({1} bars)",
                     .result = "{0}: {1}"},
    .range = "{0} to {1}",
    .noBars = "No bars.",
    .totalMass = "Total mass: {0} kg",
    .page = "Page {0} of {1}"};

}  // namespace quorvan::tool
