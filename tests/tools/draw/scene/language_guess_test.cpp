// In which language a drawing is.
#include <tools/draw/scene/language_guess.h>

#include <gtest/gtest.h>

#include <tests/tools/drawn_elements.h>
#include <tests/tools/loaded_file.h>

namespace quorvan::tool {

namespace {

Language languageOf(const std::vector<std::string>& texts) {
  std::string elements;
  for (const std::string& text : texts) {
    elements += test::textOf({.contents = text});
  }
  return guessLanguage(test::LoadedFile(test::documentOf(elements)).file());
}

Language languageOf(const std::string& text) {
  return languageOf(std::vector{text});
}

TEST(ToolDrawingLanguage, IsFrenchWhereATextIs) {
  for (const char* const text :
       {"Poutre B12",       "COUPE A-A",           "coupe 1-1",         "Dalle D2",
        "POTEAU C3",        "Semelle S1",          "5 cadres",          "\u00C9trier",
        "\u00E9triers HA8", "\u00C9chelle 1:25",   "ENROBAGE 30 mm",    "Nomenclature",
        "rep\u00E8re 5",    "vue en plan",         "\u00E9paisseur 20", "b\u00E9ton C30/37",
        "attentes",         "Plan de ferraillage", "armatures sup.",    "Coffrage"}) {
    EXPECT_EQ(languageOf(text), Language::kFrench) << text;
  }
}

TEST(ToolDrawingLanguage, IsEnglishOtherwise) {
  for (const char* const text :
       {"", "Beam B12", "SECTION A-A", "Elevation", "Scale 1:25", "5 links", "coupler", "Slab D2",
        "Cover 30 mm", "Bar schedule", "Column C3"}) {
    EXPECT_EQ(languageOf(text), Language::kEnglish) << text;
  }
}

TEST(ToolDrawingLanguage, IsFrenchByTheWordsOfFrenchDrawings) {
  for (const char* const text :
       {"Escalier 1/25", "paillasse", "MUR M1", "murs", "\u00E9pingle", "EPINGLES", "\u00C9PINGLE",
        "e\u0301pingle", "Longrine L2", "Linteau", "cha\u00EEnage", "Voile V3", "poteaux",
        "l\u2019\u00E9paisseur", "Radier", "\u00E9ch. 1:25", "niveau +3.20", "Acrot\u00E8re"}) {
    EXPECT_EQ(languageOf(text), Language::kFrench) << text;
  }
}

TEST(ToolDrawingLanguage, IsToldByHowBarsAreWritten) {
  for (const char* const text : {"3 HA12 (1)", "12HA16", "3 ha 12", "12 HA16 e=20 L=3.20", "e=15",
                                 "e = 15", "HA8", "esp. 15"}) {
    EXPECT_EQ(languageOf(text), Language::kFrench) << text;
  }
  for (const char* const text : {"12 H16-05-200", "3 H12-01", "R8-03-150", "T16-05"}) {
    EXPECT_EQ(languageOf({text, "Poutre", "Coupe A-A"}), Language::kEnglish) << text;
  }
  EXPECT_EQ(languageOf({"3 HA12", "Beam", "Section", "top and bottom", "cover"}), Language::kFrench)
      << "words do not outweigh it";
}

TEST(ToolDrawingLanguage, IsThatOfMoreWords) {
  EXPECT_EQ(languageOf({"Beam", "top", "bottom", "Dalle"}), Language::kEnglish);
  EXPECT_EQ(languageOf(std::vector<std::string>{"Beam", "Poutre"}), Language::kFrench);
  EXPECT_EQ(languageOf({"Beam", "Poutre", "Coupe"}), Language::kFrench);
}

TEST(ToolDrawingLanguage, IsNotFrenchByPartsOfWords) {
  for (const char* const text :
       {"HABITAT", "HABITAT 12", "MURAL", "MURAL 2", "bar", "BARS", "ALPHA 12", "Hall 3", "scale=1",
        "coupler", "handrail", "Elevation", "Section 1-1", "Detail", "H12", "e", "size=20",
        "\u0645\u0631\u062D\u0628\u0627"}) {
    EXPECT_EQ(languageOf(text), Language::kEnglish) << text;
  }
}

TEST(ToolDrawingLanguage, IsToldByTextsOfTheDrawingAlone) {
  EXPECT_EQ(guessLanguage(test::LoadedFile(test::documentOf(test::controlOf("Poutre"))).file()),
            Language::kEnglish);
  EXPECT_EQ(guessLanguage(test::LoadedFile(test::documentOf(test::textOf({.contents = "x"}) +
                                                            test::textOf({.contents = "dalle"})))
                              .file()),
            Language::kFrench);
}

}  // namespace

}  // namespace quorvan::tool
