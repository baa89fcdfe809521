#include <tools/bvbs/writing/ascii_text.h>

#include <algorithm>

namespace quorvan::tool::bvbs {

namespace {

struct Spelling {
  std::string_view letters;  // with a blank between them
  std::string_view ascii;
};

constexpr Spelling kSpellings[] = {
    {"à á â ã å ā ă ą", "a"},
    {"À Á Â Ã Å Ā Ă Ą", "A"},
    {"ä æ", "ae"},
    {"Ä Æ", "Ae"},
    {"ç ć ĉ ċ č", "c"},
    {"Ç Ć Ĉ Ċ Č", "C"},
    {"ď đ ð", "d"},
    {"Ď Đ Ð", "D"},
    {"è é ê ë ē ĕ ė ę ě", "e"},
    {"È É Ê Ë Ē Ĕ Ė Ę Ě", "E"},
    {"ĝ ğ ġ ģ", "g"},
    {"Ĝ Ğ Ġ Ģ", "G"},
    {"ĥ ħ", "h"},
    {"Ĥ Ħ", "H"},
    {"ì í î ï ĩ ī ĭ į ı", "i"},
    {"Ì Í Î Ï Ĩ Ī Ĭ Į İ", "I"},
    {"ĵ", "j"},
    {"Ĵ", "J"},
    {"ķ", "k"},
    {"Ķ", "K"},
    {"ĺ ļ ľ ŀ ł", "l"},
    {"Ĺ Ļ Ľ Ŀ Ł", "L"},
    {"ñ ń ņ ň", "n"},
    {"Ñ Ń Ņ Ň", "N"},
    {"ò ó ô õ ø ō ŏ ő", "o"},
    {"Ò Ó Ô Õ Ø Ō Ŏ Ő ⌀", "O"},
    {"ö œ", "oe"},
    {"Ö Œ", "Oe"},
    {"ŕ ŗ ř", "r"},
    {"Ŕ Ŗ Ř", "R"},
    {"ś ŝ ş š ș", "s"},
    {"Ś Ŝ Ş Š Ș", "S"},
    {"ß", "ss"},
    {"ţ ť ŧ ț", "t"},
    {"Ţ Ť Ŧ Ț", "T"},
    {"ù ú û ũ ū ŭ ů ű ų", "u"},
    {"Ù Ú Û Ũ Ū Ŭ Ů Ű Ų", "U"},
    {"ü", "ue"},
    {"Ü", "Ue"},
    {"ŵ", "w"},
    {"Ŵ", "W"},
    {"ý ÿ ŷ", "y"},
    {"Ý Ÿ Ŷ", "Y"},
    {"ź ż ž", "z"},
    {"Ź Ż Ž", "Z"},
    {"‐ ‑ ‒ – — −", "-"},
    {"‘ ’ ‚ ′ ´", "'"},
    {"“ ” „ « » ″", "\""},
    {"…", "..."},
    {"×", "x"},
    {"² ", "2"},
    {"³", "3"},
    {"°", " deg"},
    {"º", "o"},
    {"€", "EUR"},
    {"þ", "th"},
};

std::size_t lengthOfLetter(char first) {
  const auto byte = static_cast<unsigned char>(first);
  return byte < 0x80 ? 1 : byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : byte >= 0xC0 ? 2 : 1;
}

bool isPlain(char letter) {
  return letter >= ' ' && letter <= '~' && letter != '@';
}

std::string_view spellingOf(std::string_view letter) {
  if (letter == "@") {
    return "(at)";
  }
  if (letter.size() == 1) {
    return static_cast<unsigned char>(letter.front()) < 0x80 ? " " : "?";
  }
  if (letter == "\u00A0" || letter == "\u202F") {
    return " ";
  }
  for (const Spelling& spelling : kSpellings) {
    if (spelling.letters.find(letter) != std::string_view::npos) {
      return spelling.ascii;
    }
  }
  return "?";
}

}  // namespace

std::optional<std::string> asciiText(std::string_view utf8) {
  return std::ranges::all_of(utf8, isPlain) ? std::optional(std::string(utf8)) : std::nullopt;
}

std::string transliterated(std::string_view utf8) {
  std::string text;
  while (!utf8.empty()) {
    const std::string_view letter = utf8.substr(0, lengthOfLetter(utf8.front()));
    if (isPlain(letter.front())) {
      text += letter;
    } else {
      text += spellingOf(letter);
    }
    utf8.remove_prefix(letter.size());
  }
  return text;
}

}  // namespace quorvan::tool::bvbs
