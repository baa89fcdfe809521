#include <tests/differential/script_values.h>

#include <array>
#include <limits>
#include <string>

namespace quorvan::test {

namespace {

constexpr std::array<const wchar_t*, 4> kClassNames = {L"CKtZantoLine", L"A", L"B",
                                                       L"\u00C9l\u00E9ment"};
constexpr std::array<const wchar_t*, 7> kItemNames = {
    L"Radius", L"Color", L"Text", L"Point", L"Vector", L"Points", L"Adh\u00E9rence"};
constexpr std::array<const wchar_t*, 4> kBadNames = {L"", L"1a", L"a b", L"a:b"};
// Text is made of these: plain, to be escaped, Latin-1, beyond, and what XML cannot carry.
constexpr std::array<const wchar_t*, 22> kPieces = {
    L"Poutre", L" ",      L"  ",     L"B12",    L"\u00F8",     L"\u00E9t\u00E9",
    L"\u00B0", L"\u20AC", L"\u0152", L"\u4E2D", L"\U0001F600", L"&",
    L"<",      L">",      L"\"",     L"'",      L"\t",         L"\n",
    L"\x01",   L"\uFFFE", L"\x7F",   L"&#65;"};
constexpr std::array<double, 12> kSpecial = {0.0,
                                             -0.0,
                                             1.0,
                                             -1.5,
                                             12.5,
                                             1e-8,
                                             1.0 / 256,
                                             3.0 / 256,
                                             123456789.123456789,
                                             1e20,
                                             std::numeric_limits<double>::max(),
                                             std::numeric_limits<double>::infinity()};

}  // namespace

CString randomClassName(Random& random) {
  return random.of(kClassNames);
}

CString randomItemName(Random& random) {
  return random.oneIn(40) ? random.of(kBadNames) : random.of(kItemNames);
}

CString randomText(Random& random) {
  CString text;
  for (int pieces = random.below(5); pieces > 0; --pieces) {
    text += random.of(kPieces);
  }
  if (random.oneIn(30)) {
    text += CString(wchar_t{0xD800});
  }
  return text;
}

CString randomGrade(Random& random) {
  constexpr std::array<const wchar_t*, 3> kGrades = {L"B500B", L"HA", L"B\u00E9ton"};
  return random.of(kGrades);
}

double randomDouble(Random& random) {
  if (random.oneIn(3)) {
    return random.of(kSpecial);
  }
  const double whole = random.below(20000) - 10000;
  return whole / (random.oneIn(2) ? 4 : 3);
}

long randomLong(Random& random) {
  constexpr std::array<long, 8> kLongs = {0, 1, -1, 7, 32768, 40000, 2147483647, -2147483647 - 1};
  return random.oneIn(2) ? random.of(kLongs) : random.below(100000) - 50000;
}

CKtPnt3D randomPoint(Random& random) {
  const double x = randomDouble(random);
  const double y = randomDouble(random);
  return {x, y, randomDouble(random)};
}

CKtVect3D randomVector(Random& random) {
  const double x = randomDouble(random);
  const double y = randomDouble(random);
  return {x, y, randomDouble(random)};
}

std::vector<CKtPnt3D> randomPoints(Random& random) {
  std::vector<CKtPnt3D> points;
  for (int count = random.below(4); count > 0; --count) {
    points.push_back(randomPoint(random));
  }
  return points;
}

}  // namespace quorvan::test
