#include <tools/draw/scene/language_guess.h>

#include <algorithm>
#include <string>
#include <string_view>

#include <tools/model/item_reader.h>
#include <tools/text/ascii_letters.h>

namespace quorvan::tool {

namespace {

// Words of structural drawings that the other language does not have: in lower case, without
// accents, in alphabetical order. A plural in "s" or "x" goes with its singular.
constexpr std::string_view kFrenchOnly[] = {
    "acier",        "acrotere",     "appui",       "armature",
    "attente",      "avec",         "axe",         "banche",
    "barre",        "bas",          "batiment",    "beche",
    "beton",        "cadre",        "cerce",       "chainage",
    "chaise",       "chapeau",      "coffrage",    "corbeau",
    "cote",         "coupe",        "crosse",      "dallage",
    "dalle",        "dans",         "dessous",     "dessus",
    "droite",       "ech",          "echelle",     "encorbellement",
    "enrobage",     "entraxe",      "epaisseur",   "epingle",
    "escalier",     "esp",          "espacement",  "etage",
    "etrier",       "exterieur",    "ferraillage", "filant",
    "fondation",    "gauche",       "gousset",     "haut",
    "hauteur",      "inferieur",    "interieur",   "largeur",
    "libage",       "linteau",      "lit",         "longrine",
    "longueur",     "marche",       "mur",         "nappe",
    "niveau",       "nomenclature", "paillasse",   "palier",
    "parement",     "pieu",         "plancher",    "poteau",
    "poutre",       "poutrelle",    "radier",      "raidisseur",
    "recouvrement", "refend",       "renfort",     "rep",
    "repere",       "reprise",      "rez",         "semelle",
    "suivant",      "superieur",    "terre",       "toiture",
    "travee",       "treillis",     "tremie",      "vide",
    "voile",        "vue"};
constexpr std::string_view kEnglishOnly[] = {
    "all",          "alternate", "and",        "bar",       "beam",    "bent",      "blinding",
    "bottom",       "cast",      "column",     "concrete",  "corner",  "cover",     "culvert",
    "dowel",        "drawing",   "each",       "far",       "fixing",  "floor",     "footing",
    "for",          "formwork",  "foundation", "girder",    "ground",  "height",    "hook",
    "kicker",       "lap",       "layer",      "length",    "level",   "link",      "lintel",
    "longitudinal", "mesh",      "near",       "not",       "of",      "off",       "outside",
    "pad",          "pier",      "pilecap",    "plinth",    "precast", "rebar",     "reinforcement",
    "retaining",    "roof",      "scale",      "schedule",  "see",     "slab",      "soffit",
    "spacer",       "spacing",   "stair",      "staircase", "starter", "steel",     "step",
    "stirrup",      "strip",     "tank",       "the",       "thick",   "thickness", "through",
    "tie",          "top",       "transverse", "trench",    "typ",     "typical",   "underside",
    "upstand",      "view",      "wall",       "width",     "with"};

// What a drawing says of its language.
struct LanguageHints {
  std::size_t notations = 0;
  std::size_t words = 0;
};

bool isPlainLetter(char unit) {
  return unit >= 'a' && unit <= 'z';
}

// The letter of U+00C0 to U+00FF without its accent, by the second of its two bytes.
std::string_view plainLetter(unsigned char second) {
  constexpr std::string_view kPlain[] = {"a", "a", "a", "a", "a", "a", "ae", "c", "e", "e", "e",
                                         "e", "i", "i", "i", "i", "d", "n",  "o", "o", "o", "o",
                                         "o", " ", "o", "u", "u", "u", "u",  "y", " ", "ss"};
  return kPlain[second % std::size(kPlain)];
}

// The text in lower case and without accents, written as one character or two; what is no letter of
// a Western language is a blank.
std::string plainText(std::string_view text) {
  constexpr unsigned char kAccented = 0xC3;   // first byte of accented letters
  constexpr unsigned char kCombining = 0xCC;  // of accents that follow their letter
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto unit = static_cast<unsigned char>(text[i]);
    if (unit < 0x80U) {
      plain += asciiLower(text[i]);
    } else if (unit == kAccented && i + 1 < text.size()) {
      plain += plainLetter(static_cast<unsigned char>(text[++i]));
    } else if (unit == kCombining && i + 1 < text.size()) {
      ++i;
    } else {
      plain += ' ';
    }
  }
  return plain;
}

template <std::size_t Count>
bool hasWord(const std::string_view (&words)[Count], std::string_view word) {
  return std::ranges::binary_search(words, word) ||
         (word.size() > 2 && (word.back() == 's' || word.back() == 'x') &&
          std::ranges::binary_search(words, word.substr(0, word.size() - 1)));
}

std::size_t digitsAt(std::string_view text, std::size_t at) {
  std::size_t end = at;
  while (end < text.size() && isAsciiDigit(text[end])) {
    ++end;
  }
  return end - at;
}

std::size_t behindBlanks(std::string_view text, std::size_t at) {
  while (at < text.size() && text[at] == ' ') {
    ++at;
  }
  return at;
}

// "ha16" and "e=20" at a letter that begins a word.
bool isFrenchNotation(std::string_view text, std::size_t at) {
  const std::string_view rest = text.substr(at);
  if (rest.starts_with("ha")) {
    const std::size_t digits = digitsAt(text, behindBlanks(text, at + 2));
    return digits == 1 || digits == 2;
  }
  const std::size_t sign = behindBlanks(text, at + 1);
  return rest.starts_with('e') && sign < text.size() && text[sign] == '=' &&
         digitsAt(text, behindBlanks(text, sign + 1)) > 0;
}

// "h16-05" and "h16-05-200" at a letter that begins a word.
bool isEnglishNotation(std::string_view text, std::size_t at) {
  const bool isBar = text[at] == 'h' || text[at] == 'r' || text[at] == 't';
  const std::size_t diameter = isBar ? digitsAt(text, at + 1) : 0;
  const std::size_t dash = at + 1 + diameter;
  return (diameter == 1 || diameter == 2) && dash < text.size() && text[dash] == '-' &&
         digitsAt(text, dash + 1) >= 2;
}

void collectHints(std::string_view text, LanguageHints& french, LanguageHints& english) {
  for (std::size_t at = 0; at < text.size();) {
    if (!isPlainLetter(text[at])) {
      ++at;
      continue;
    }
    std::size_t end = at;
    while (end < text.size() && isPlainLetter(text[end])) {
      ++end;
    }
    const std::string_view word = text.substr(at, end - at);
    french.notations += isFrenchNotation(text, at) ? 1U : 0U;
    english.notations += isEnglishNotation(text, at) ? 1U : 0U;
    french.words += hasWord(kFrenchOnly, word) ? 1U : 0U;
    english.words += hasWord(kEnglishOnly, word) ? 1U : 0U;
    at = end;
  }
}

}  // namespace

Language guessLanguage(const TransferFile& file) {
  LanguageHints french;
  LanguageHints english;
  ItemReader reader(file);
  for (const Element& element : file.elements()) {
    if (element.is(items::ElementClass::kText)) {
      collectHints(plainText(findItem(reader.read(element), "Contents")->text), french, english);
    }
  }
  if (french.notations != english.notations) {
    return french.notations > english.notations ? Language::kFrench : Language::kEnglish;
  }
  const bool isFrench = french.words >= english.words && french.words + french.notations > 0;
  return isFrench ? Language::kFrench : Language::kEnglish;
}

}  // namespace quorvan::tool
