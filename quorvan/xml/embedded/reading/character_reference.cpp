#include <quorvan/xml/embedded/reading/character_reference.h>

#include <charconv>
#include <cstdint>

#include <quorvan/xml/character_rules.h>

namespace quorvan::embedded {

namespace {

struct NamedCharacter {
  std::string_view name;
  char32_t character;
};

constexpr NamedCharacter kNamed[] = {
    {"amp", U'&'}, {"lt", U'<'}, {"gt", U'>'}, {"quot", U'"'}, {"apos", U'\''}};

}  // namespace

std::optional<char32_t> referredCharacter(std::string_view reference) noexcept {
  for (const NamedCharacter& named : kNamed) {
    if (named.name == reference) {
      return named.character;
    }
  }
  if (reference.substr(0, 1) != "#") {
    return std::nullopt;
  }
  reference.remove_prefix(1);
  const bool isHexadecimal = reference.substr(0, 1) == "x";
  if (isHexadecimal) {
    reference.remove_prefix(1);
  }
  std::uint32_t number = 0;
  const char* const end = reference.data() + reference.size();
  const auto [stop, error] =
      std::from_chars(reference.data(), end, number, isHexadecimal ? 16 : 10);
  if (error != std::errc() || stop != end || !dom::isXmlCharacter(number)) {
    return std::nullopt;
  }
  return number;
}

}  // namespace quorvan::embedded
