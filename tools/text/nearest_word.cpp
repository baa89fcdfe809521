#include <tools/text/nearest_word.h>

#include <algorithm>
#include <numeric>
#include <vector>

namespace quorvan::tool {

namespace {

char inLowerCase(char unit) {
  return unit >= 'A' && unit <= 'Z' ? static_cast<char>(unit + ('a' - 'A')) : unit;
}

// Letters to be put in, taken out, changed, or exchanged with their neighbour.
std::size_t changesBetween(std::string_view a, std::string_view b) {
  std::vector<std::size_t> twoBack(b.size() + 1);
  std::vector<std::size_t> oneBack(b.size() + 1);
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(oneBack.begin(), oneBack.end(), std::size_t{0});
  for (std::size_t i = 1; i <= a.size(); ++i) {
    row[0] = i;
    for (std::size_t k = 1; k <= b.size(); ++k) {
      const bool isSame = inLowerCase(a[i - 1]) == inLowerCase(b[k - 1]);
      row[k] = std::min({oneBack[k] + 1, row[k - 1] + 1, oneBack[k - 1] + (isSame ? 0U : 1U)});
      if (i > 1 && k > 1 && inLowerCase(a[i - 1]) == inLowerCase(b[k - 2]) &&
          inLowerCase(a[i - 2]) == inLowerCase(b[k - 1])) {
        row[k] = std::min(row[k], twoBack[k - 2] + 1);
      }
    }
    twoBack.swap(oneBack);
    oneBack.swap(row);
  }
  return oneBack[b.size()];
}

}  // namespace

std::string nearestWord(std::string_view typed, std::span<const std::string> words) {
  constexpr std::size_t kLongestTyped = 100;
  std::string nearest;
  std::size_t fewest = typed.size() > kLongestTyped ? 0 : std::string_view::npos;
  for (const std::string& word : words) {
    const std::size_t most = std::max<std::size_t>(1, word.size() / 3);
    const std::size_t changes = fewest == 0 ? most + 1 : changesBetween(typed, word);
    if (changes <= most && changes < fewest) {
      nearest = word;
      fewest = changes;
    }
  }
  return nearest;
}

}  // namespace quorvan::tool
