#include "dialog/language/Language.hpp"

#include <gtest/gtest.h>

using dialog::languageFor;
using dialog::languageOfLocale;

TEST(LanguageOfLocale, LooksAtTheLanguageAndNotAtTerritoryOrEncoding)
{
    EXPECT_EQ(languageOfLocale("de_AT.UTF-8")->code, "de");
    EXPECT_EQ(languageOfLocale("pt_BR")->code, "pt");
    EXPECT_EQ(languageOfLocale("fr@euro")->code, "fr");
    EXPECT_EQ(languageOfLocale("en_GB.ISO-8859-1")->code, "en");
}

TEST(LanguageOfLocale, WritesChineseAsTheTerritoryDoes)
{
    EXPECT_EQ(languageOfLocale("zh_CN.UTF-8")->code, "zh-Hans");
    EXPECT_EQ(languageOfLocale("zh_SG")->code, "zh-Hans");
    EXPECT_EQ(languageOfLocale("zh")->code, "zh-Hans");
    EXPECT_EQ(languageOfLocale("zh_TW.UTF-8")->code, "zh-Hant");
    EXPECT_EQ(languageOfLocale("zh_HK")->code, "zh-Hant");
    EXPECT_EQ(languageOfLocale("zh-Hant")->code, "zh-Hant");
}

TEST(LanguageOfLocale, KnowsNoOtherLanguage)
{
    EXPECT_EQ(languageOfLocale("pl_PL.UTF-8"), nullptr);
    EXPECT_EQ(languageOfLocale("deu"), nullptr);
    EXPECT_EQ(languageOfLocale("zhx"), nullptr);
    EXPECT_EQ(languageOfLocale(""), nullptr);
}

TEST(LanguageFor, AsksTheVariablesInTheOrderOfTheCLibrary)
{
    EXPECT_EQ(languageFor({"", "", "", "ja_JP.UTF-8"}).code, "ja");
    EXPECT_EQ(languageFor({"", "", "ko_KR.UTF-8", "ja_JP.UTF-8"}).code, "ko");
    EXPECT_EQ(languageFor({"", "nl_NL", "ko_KR.UTF-8", "ja_JP.UTF-8"}).code, "nl");
    EXPECT_EQ(languageFor({"it:de", "nl_NL", "", ""}).code, "it");
}

TEST(LanguageFor, TakesTheFirstOfAListThatItKnows)
{
    EXPECT_EQ(languageFor({"pl:es_MX:de", "", "", "en_US.UTF-8"}).code, "es");
    EXPECT_EQ(languageFor({"pl:cs", "", "", "fr_FR.UTF-8"}).code, "fr");
    EXPECT_EQ(languageFor({"::de", "", "", "fr_FR.UTF-8"}).code, "de");
}

TEST(LanguageFor, SpeaksEnglishWhereNoLanguageIsAskedFor)
{
    EXPECT_EQ(languageFor({}).code, "en");
    EXPECT_EQ(languageFor({"de", "C", "", "de_DE.UTF-8"}).code, "en");
    EXPECT_EQ(languageFor({"de", "", "", "C.UTF-8"}).code, "en");
    EXPECT_EQ(languageFor({"de", "POSIX", "", ""}).code, "en");
    EXPECT_EQ(languageFor({"", "pl_PL.UTF-8", "", "de_DE.UTF-8"}).code, "en");
}
