#include <tools/bending/shape_code.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>
#include <optional>
#include <string_view>

namespace quorvan::tool {

namespace {

constexpr double kDegree = std::numbers::pi / 180.0;
constexpr double kSameAngle = 0.5 * kDegree;
constexpr double kSameDirection = 0.9999;  // a cosine

// A bar from end to end. Turns: L and R are right angles to the left and right, l and r less, O
// more than a right angle, H 135 degrees, U half a turn. Legs of one letter are equally long. The
// length is the sum of the legs and so many outer diameters of a semicircle, less so many radii and
// diameters.
struct CodedForm {
  int code;
  std::string_view legs;
  std::string_view turns;
  char free;
  double radii;
  double diameters;
  bool isApproximate = false;
  double semicircles = 0.0;
  char semicircle = 0;  // the letter of its outer diameter, where that is a dimension
  char sloping = 0;     // the leg that slopes: its height and its reach are dimensions, too
  char height = 0;
  char reach = 0;
  char otherSloping = 0;
  char otherHeight = 0;
};

constexpr CodedForm kForms[] = {
    {0, "A", "", 0, 0.0, 0.0},
    {11, "AB", "L", 'B', 0.5, 1.0},
    {13, "AC", "U", 'C', 0.0, 1.6, false, 0.57, 'B'},
    {14, "AC", "O", 'C', 0.0, 0.0, true, 0.0, 0, 'A', 'D'},
    {15, "AC", "l", 'C', 0.0, 0.0, true, 0.0, 0, 'A', 'D'},
    {21, "ABC", "LL", 'C', 1.0, 2.0},
    {22, "ABD", "LU", 'D', 0.5, 2.6, false, 0.57, 'C'},
    {23, "ABC", "LR", 'C', 1.0, 2.0},
    {24, "ABC", "ll", 'C', 0.0, 0.0, false, 0.0, 0, 'B', 'D', 'E'},
    {25, "AEB", "ll", 'E', 0.0, 0.0, true, 0.0, 0, 'A', 'C', 0, 'B', 'D'},
    {26, "ABC", "lr", 'C', 0.0, 0.0, true, 0.0, 0, 'B', 'D', 'E'},
    {27, "ABC", "lL", 'C', 0.5, 1.0, true, 0.0, 0, 'A', 'D', 'E'},
    {28, "ABC", "lR", 'C', 0.5, 1.0, true, 0.0, 0, 'A', 'D', 'E'},
    {29, "ABC", "Ol", 'C', 0.0, 0.0, true, 0.0, 0, 'B', 'D', 'E'},
    {31, "ABCD", "LLL", 'D', 1.5, 3.0},
    {32, "ABCD", "LLR", 'D', 1.5, 3.0},
    {34, "ABCE", "lrR", 'E', 0.5, 1.0, true, 0.0, 0, 'B', 'D', 'F'},
    {35, "ABCE", "lrL", 'E', 0.5, 1.0, true, 0.0, 0, 'B', 'D', 'F'},
    {36, "ABCD", "lLL", 'D', 1.0, 2.0, true, 0.0, 0, 'A', 'E', 'F'},
    {41, "ABCDE", "LLLL", 'E', 2.0, 4.0},
    {44, "ABCDE", "LRRL", 'E', 2.0, 4.0},
    {46, "ABCBE", "lrrl", 'E', 0.0, 0.0, true, 0.0, 0, 'B', 'D'},
    {47, "CABAC", "ULLU", 'C', 3.0, 6.0, false, 2.0},
    {48, "CABAC", "HLLH", 'C', 1.0, 2.0},
    {51, "CABABC", "LLLLL", 'C', 2.5, 5.0},
    {52, "CABABC", "HLLLH", 'C', 1.5, 3.0},
    {56, "EADCBE", "LOlLL", 'D', 1.5, 3.0},
    {63, "CBABABC", "LLLLLL", 'C', 3.0, 6.0},
    {64, "ABCDEDF", "LLLLLL", 'F', 3.0, 6.0},
};

// A chair: the upright U of A between both B, and its feet C and D square to it, one to each side.
constexpr CodedForm kChair{98, "CBABD", "", 'D', 2.0, 4.0};

constexpr int kWideBend = 12;
constexpr int kRing = 75;
constexpr int kSlopesToRightAngle = 24;
constexpr int kSlopesApart = 25;
constexpr int kSlopesBack = 29;  // the legs beside the slope are parallel
constexpr int kSlopesInLink = 56;

bool isAngle(double angle, double degrees) {
  return std::abs(angle - degrees * kDegree) <= kSameAngle;
}

bool isTurn(char turn, const Bend& bend) {
  constexpr std::string_view kToTheRight = "Rr";
  if (bend.isLeft == (kToTheRight.find(turn) != std::string_view::npos)) {
    return false;
  }
  switch (turn) {
    case 'L':
    case 'R':
      return isAngle(bend.angle, 90.0);
    case 'H':
      return isAngle(bend.angle, 135.0);
    case 'U':
      return isAngle(bend.angle, 180.0);
    case 'O':
      return bend.angle > 90.0 * kDegree + kSameAngle && bend.angle < 180.0 * kDegree - kSameAngle;
    default:
      return bend.angle < 90.0 * kDegree - kSameAngle;
  }
}

double stepped(double length, double step) {
  return step > 0.0 ? std::round(length / step) * step : length;
}

// A bar read from one of its ends, the first bend to the left, with its legs as they are scheduled.
struct Reading {
  std::vector<double> legs;
  std::vector<bool> unknown;
  std::vector<Bend> bends;
};

Reading read(const BentBar& bent, bool isBackwards, double step) {
  Reading reading;
  for (const Leg& leg : bent.legs) {
    reading.legs.push_back(stepped(leg.outside, step));
    reading.unknown.push_back(leg.isUnknown);
  }
  reading.bends = bent.bends;
  if (isBackwards) {
    std::ranges::reverse(reading.legs);
    std::reverse(reading.unknown.begin(), reading.unknown.end());
    std::ranges::reverse(reading.bends);
  }
  const bool isTurnedOver = !reading.bends.empty() && !reading.bends.front().isLeft;
  for (Bend& bend : reading.bends) {
    bend.isLeft = bend.isLeft != isTurnedOver;
  }
  return reading;
}

bool areSlopesInOrder(const CodedForm& form, const Reading& reading) {
  std::vector<double> slopes;
  for (std::size_t i = 0; i < form.turns.size(); ++i) {
    constexpr std::string_view kSloping = "lrO";
    if (kSloping.find(form.turns[i]) != std::string_view::npos) {
      slopes.push_back(reading.bends[i].angle);
    }
  }
  if (form.code == kSlopesToRightAngle) {
    return isAngle(slopes[0] + slopes[1], 90.0);
  }
  if (form.code == kSlopesBack || form.code == kSlopesInLink) {
    return isAngle(slopes[0] + slopes[1], 180.0);
  }
  return form.code == kSlopesApart || std::ranges::all_of(slopes, [&slopes](double slope) {
           return std::abs(slope - slopes.front()) <= kSameAngle;
         });
}

bool areLettersInOrder(const CodedForm& form, const Reading& reading, double step) {
  const double tolerance = std::max(step, 1.0) / 2.0;
  for (std::size_t i = 0; i < form.legs.size(); ++i) {
    const double first = reading.legs[form.legs.find(form.legs[i])];
    if (std::abs(reading.legs[i] - first) > tolerance) {
      return false;
    }
  }
  return true;
}

bool matches(const CodedForm& form, const Reading& reading, double step) {
  if (reading.legs.size() != form.legs.size() || reading.bends.size() != form.turns.size()) {
    return false;
  }
  for (std::size_t i = 0; i < form.turns.size(); ++i) {
    if (!isTurn(form.turns[i], reading.bends[i])) {
      return false;
    }
  }
  return areLettersInOrder(form, reading, step) && areSlopesInOrder(form, reading);
}

// The turn at which a sloping leg leaves the one beside it.
double slopeOf(const CodedForm& form, const Reading& reading, char leg) {
  const std::size_t at = form.legs.find(leg);
  return reading.bends[at == 0 ? 0 : at - 1].angle;
}

void addSlope(const CodedForm& form, const Reading& reading, double step, char leg, char height,
              char reach, std::map<char, Dimension>& dimensions) {
  if (leg == 0) {
    return;
  }
  const double slope = slopeOf(form, reading, leg);
  const double length = dimensions[leg].value;
  dimensions[height] = {height, stepped(length * std::sin(slope), step)};
  if (reach != 0) {
    dimensions[reach] = {reach, stepped(length * std::abs(std::cos(slope)), step)};
  }
}

std::vector<Dimension> inOrder(const std::map<char, Dimension>& dimensions) {
  std::vector<Dimension> all;
  all.reserve(dimensions.size());
  for (const auto& [letter, dimension] : dimensions) {
    all.push_back(dimension);
  }
  return all;
}

ShapeCode coded(const CodedForm& form, const Reading& reading, const BentBar& bent, double step) {
  std::map<char, Dimension> dimensions;
  double length = -form.radii * bent.roller / 2.0 - form.diameters * bent.diameter;
  for (std::size_t i = 0; i < form.legs.size(); ++i) {
    const char letter = form.legs[i];
    dimensions.emplace(letter,
                       Dimension{letter, reading.legs[i], letter == form.free, reading.unknown[i]});
    length += dimensions[letter].value;
  }
  const double across = stepped(bent.roller + 2.0 * bent.diameter, step);
  length += form.semicircles * across;
  if (form.semicircle != 0) {
    dimensions[form.semicircle] = {form.semicircle, across};
  }
  addSlope(form, reading, step, form.sloping, form.height, form.reach, dimensions);
  addSlope(form, reading, step, form.otherSloping, form.otherHeight, 0, dimensions);
  return {form.code, inOrder(dimensions), length, true};
}

ShapeCode ringCode(const BentBar& bent, double step) {
  const double across = stepped(2.0 * bent.ringRadius + bent.diameter, step);
  const double overlap = stepped(bent.overlap, step);
  return {kRing,
          {{'A', across}, {'B', overlap, true}},
          std::numbers::pi * (across - bent.diameter) + overlap,
          true,
          "A"};
}

ShapeCode wideBendCode(const BentBar& bent, double step) {
  const double radius = stepped(bent.roller / 2.0, step);
  const double first = stepped(bent.legs[0].outside, step);
  const double last = stepped(bent.legs[1].outside, step);
  return {kWideBend,
          {{'A', first}, {'B', last, true}, {'R', radius}},
          first + last - 0.43 * radius - 1.2 * bent.diameter,
          true,
          "AB"};
}

ShapeCode coded(const CodedForm& form, const Reading& reading, const BentBar& bent, double step,
                bool isBackwards) {
  ShapeCode code = coded(form, reading, bent, step);
  code.isByFormula = !form.isApproximate;
  code.legs = form.legs;
  if (isBackwards) {
    std::ranges::reverse(code.legs);
  }
  return code;
}

// Of two directions of the course: 1 along each other, 0 square, -1 against.
double cosineBetween(const BentBar& bent, std::size_t leg, std::size_t other) {
  const auto way = [&bent](std::size_t i) {
    const Coordinates& from = bent.course[i];
    const Coordinates& to = bent.course[i + 1];
    return Coordinates{to.x - from.x, to.y - from.y, to.z - from.z};
  };
  const Coordinates a = way(leg);
  const Coordinates b = way(other);
  const double lengths = std::hypot(a.x, a.y, a.z) * std::hypot(b.x, b.y, b.z);
  return (a.x * b.x + a.y * b.y + a.z * b.z) / lengths;
}

bool isChair(const BentBar& bent) {
  const auto isRight = [](const Bend& bend) { return isAngle(bend.angle, 90.0); };
  return bent.course.size() == kChair.legs.size() + 1 && bent.legs.size() == kChair.legs.size() &&
         std::ranges::all_of(bent.bends, isRight) && cosineBetween(bent, 1, 3) < -kSameDirection &&
         cosineBetween(bent, 0, 4) > kSameDirection;
}

std::optional<ShapeCode> chairCode(const BentBar& bent, double step) {
  const Reading reading = read(bent, false, step);
  return isChair(bent) && areLettersInOrder(kChair, reading, step)
             ? std::optional(coded(kChair, reading, bent, step, false))
             : std::nullopt;
}

std::optional<ShapeCode> planeCode(const BentBar& bent, double step) {
  for (const CodedForm& form : kForms) {
    for (const bool isBackwards : {false, true}) {
      const Reading reading = read(bent, isBackwards, step);
      if (matches(form, reading, step)) {
        return coded(form, reading, bent, step, isBackwards);
      }
    }
  }
  return std::nullopt;
}

// The code by shape alone.
std::optional<ShapeCode> findCode(const BentBar& bent, double step) {
  if (!bent.fits || bent.legs.empty()) {
    return std::nullopt;
  }
  if (bent.shape == BarShape::kFrameCirc) {
    return bent.bends.empty() ? std::optional(ringCode(bent, step)) : std::nullopt;
  }
  const bool isUsual = std::abs(bent.roller - usualRoller(bent.diameter)) < 1e-6;
  if (!isUsual && !bent.bends.empty()) {
    const bool isWide = bent.roller > usualRoller(bent.diameter) && bent.bends.size() == 1 &&
                        isAngle(bent.bends.front().angle, 90.0);
    return isWide ? std::optional(wideBendCode(bent, step)) : std::nullopt;
  }
  return bent.isPlane() ? planeCode(bent, step) : chairCode(bent, step);
}

}  // namespace

ShapeCode shapeCodeOf(const BentBar& bent, double step) {
  constexpr double kSteepest = 45.0 * kDegree + kSameAngle;
  std::optional<ShapeCode> code = findCode(bent, step);
  if (!code) {
    return {ShapeCode::kSketch, {}, bent.centreLine(), false};
  }
  // Right angles are reckoned with in the formulas; what lies between 45 degrees and them is not.
  const auto isSteep = [](const Bend& bend) {
    return bend.angle > kSteepest && !isAngle(bend.angle, 90.0);
  };
  if (!code->isByFormula && std::ranges::any_of(bent.bends, isSteep)) {
    code->length = bent.centreLine();
    return *code;
  }
  code->isByFormula = true;
  return *code;
}

}  // namespace quorvan::tool
