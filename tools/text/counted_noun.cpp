#include <tools/text/counted_noun.h>

namespace quorvan::tool {

std::string counted(std::uint64_t number, std::string_view noun) {
  return std::to_string(number) + ' ' + std::string(noun) + (number == 1 ? "" : "s");
}

}  // namespace quorvan::tool
