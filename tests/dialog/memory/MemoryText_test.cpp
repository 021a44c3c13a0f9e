#include "dialog/memory/MemoryText.hpp"

#include <gtest/gtest.h>

namespace dialog {
namespace {

MemoryText parsed(std::string_view text)
{
    MemoryFault fault = MemoryFault::Newer;
    MemoryText memory = MemoryText::parse(text, fault);
    EXPECT_EQ(fault, MemoryFault::None) << text;
    return memory;
}

MemoryFault faultOf(std::string_view text)
{
    MemoryFault fault = MemoryFault::None;
    const MemoryText memory = MemoryText::parse(text, fault);
    EXPECT_TRUE(memory.presets().empty());
    return fault;
}

KeptValues values(std::string tape, std::string length)
{
    return {std::move(tape), {{"VnTapeLength", std::move(length)}}};
}

TEST(MemoryText, IsReadAndWrittenAsPeopleWouldWriteIt)
{
    MemoryText memory;
    memory.keepLastUsed("tape", {"TC24", {{"VnTapeLength", "62.5"}, {"VnMargin", "3.0"}}});
    memory.savePreset({"Cables", values("TC12", "40.0")});
    EXPECT_EQ(memory.text(), R"({
  "version": 1,
  "lastUsed": [
    {
      "printer": "tape",
      "tape": "TC24",
      "options": {
        "VnTapeLength": "62.5",
        "VnMargin": "3.0"
      }
    }
  ],
  "presets": [
    {
      "name": "Cables",
      "tape": "TC12",
      "options": {
        "VnTapeLength": "40.0"
      }
    }
  ]
}
)");
    const MemoryText again = parsed(memory.text());
    EXPECT_EQ(again.text(), memory.text());
    EXPECT_EQ(again.lastUsed("tape", "TC24")->options.size(), 2u);
}

TEST(MemoryText, KeepsTheLastValuesOfEachPrinterAndTapeApart)
{
    MemoryText memory;
    memory.keepLastUsed("one", values("TC24", "10"));
    memory.keepLastUsed("two", values("TC24", "20"));
    memory.keepLastUsed("one", values("TC12", "30"));
    EXPECT_EQ(memory.lastUsed("one", "TC24"), values("TC24", "10"));
    EXPECT_EQ(memory.lastUsed("two", "TC24"), values("TC24", "20"));
    EXPECT_EQ(memory.lastUsed("one", "TC12"), values("TC12", "30"));
    EXPECT_EQ(memory.lastUsed("two", "TC12"), std::nullopt);
    EXPECT_EQ(memory.lastUsed("three", ""), std::nullopt);
}

TEST(MemoryText, AnswersTheTapeUsedLastWhenNoneIsAskedFor)
{
    MemoryText memory;
    memory.keepLastUsed("one", values("TC24", "10"));
    memory.keepLastUsed("one", values("TC12", "30"));
    memory.keepLastUsed("two", values("TC9", "50"));
    EXPECT_EQ(memory.lastUsed("one", ""), values("TC12", "30"));
    memory.keepLastUsed("one", values("TC24", "11"));
    EXPECT_EQ(memory.lastUsed("one", ""), values("TC24", "11"));
}

TEST(MemoryText, ForgetsTheOldestLastValuesBeyondTheirMost)
{
    MemoryText memory;
    for (std::size_t i = 0; i <= kMostLastUsed; ++i) {
        memory.keepLastUsed("printer " + std::to_string(i), values("TC24", "10"));
    }
    EXPECT_FALSE(memory.lastUsed("printer 0", "TC24"));
    EXPECT_TRUE(memory.lastUsed("printer 1", "TC24"));
    EXPECT_TRUE(memory.lastUsed("printer 200", "TC24"));
}

TEST(MemoryText, KeepsPresetsInTheOrderInWhichTheyWereSaved)
{
    MemoryText memory;
    memory.savePreset({"Shelves", values("TC24", "80")});
    memory.savePreset({"Cables", values("TC12", "40")});
    memory.savePreset({"Shelves", values("TC18", "90")});
    EXPECT_EQ(memory.presets(), (std::vector<Preset>{{"Shelves", values("TC18", "90")},
                                                     {"Cables", values("TC12", "40")}}));
    EXPECT_TRUE(memory.renamePreset("Shelves", "Boxes"));
    EXPECT_FALSE(memory.renamePreset("Shelves", "Crates"));
    EXPECT_EQ(memory.presets().front(), (Preset{"Boxes", values("TC18", "90")}));
    EXPECT_TRUE(memory.deletePreset("Boxes"));
    EXPECT_FALSE(memory.deletePreset("Boxes"));
    EXPECT_EQ(memory.presets(), (std::vector<Preset>{{"Cables", values("TC12", "40")}}));
}

TEST(MemoryText, KeepsFieldsAndEntriesThatItDoesNotKnow)
{
    MemoryText memory = parsed(R"({"colour": {"of": ["the", 1.5, null]}, "version": 1,
        "lastUsed": [7, {"printer": "tape", "tape": "TC24", "options": {}, "count": 3}],
        "presets": [{"name": "Cables", "icon": "c.png"}, "text", {"names": ["x"]}]})");
    memory.keepLastUsed("tape", values("TC24", "12"));
    memory.savePreset({"Cables", values("TC12", "40")});
    memory.renamePreset("Cables", "Wires");
    EXPECT_EQ(memory.text(), R"({
  "colour": {
    "of": [
      "the",
      1.5,
      null
    ]
  },
  "version": 1,
  "lastUsed": [
    {
      "printer": "tape",
      "tape": "TC24",
      "options": {
        "VnTapeLength": "12"
      },
      "count": 3
    },
    7
  ],
  "presets": [
    {
      "name": "Wires",
      "icon": "c.png",
      "tape": "TC12",
      "options": {
        "VnTapeLength": "40"
      }
    },
    "text",
    {
      "names": [
        "x"
      ]
    }
  ]
}
)");
}

TEST(MemoryText, TakesNumbersThatAPersonWroteAndLeavesOutWhatIsNoChoice)
{
    const MemoryText memory = parsed(R"({"version": 1, "presets": [{"name": "A", "tape": 12,
        "options": {"VnTapeLength": 62.5, "VnMargin": 3, "Resolution": null, "X": ["y"]}}]})");
    EXPECT_EQ(memory.presets(),
              (std::vector<Preset>{{"A", {"", {{"VnTapeLength", "62.5"}, {"VnMargin", "3"}}}}}));
}

TEST(MemoryText, CountsTheFirstOfSeveralPresetsWithOneNameAndDeletesAll)
{
    MemoryText memory = parsed(R"({"version": 1, "presets": [{"name": "A", "tape": "TC6"},
        {"name": "A", "tape": "TC9"}, {"name": ""}, {"tape": "TC12"}]})");
    ASSERT_EQ(memory.presets().size(), 1u);
    EXPECT_EQ(memory.presets().front().values.tape, "TC6");
    EXPECT_TRUE(memory.deletePreset("A"));
    EXPECT_TRUE(memory.presets().empty());
    EXPECT_FALSE(memory.deletePreset(""));
}

TEST(MemoryText, TellsDamagedTextFromThatOfANewerRelease)
{
    for (const char* text :
         {"", " ", "{", "[]", "7", "{}", "no", R"({"version": "1"})", R"({"version": 1.5})",
          R"({"version": 0})", R"({"version": -1})", R"({"version": 1, "presets": {}})",
          R"({"version": 1, "lastUsed": "none"})", R"({"version": 1} x)", "{\"version\": 1, \"\xff",
          R"({"version": 1, "n": 1e999})"}) {
        EXPECT_EQ(faultOf(text), MemoryFault::Damaged) << text;
    }
    EXPECT_EQ(faultOf(R"({"version": 2})"), MemoryFault::Newer);
    EXPECT_EQ(faultOf(R"({"version": 2, "presets": {}})"), MemoryFault::Newer);
    EXPECT_EQ(faultOf(R"({"version": 18446744073709551615})"), MemoryFault::Newer);
}

std::string nested(std::size_t depth)
{
    return R"({"version": 1, "x": )" + std::string(depth - 1, '[') + R"("[[[\"[[[")" +
           std::string(depth - 1, ']') + "}";
}

TEST(MemoryText, RefusesTextNestedDeeperThanItCouldWrite)
{
    EXPECT_NE(parsed(nested(64)).text().find("[[["), std::string::npos);
    EXPECT_EQ(faultOf(nested(65)), MemoryFault::Damaged);
    EXPECT_EQ(faultOf(nested(2000000)), MemoryFault::Damaged);
}

TEST(MemoryText, KeepsNamesInAnyScript)
{
    MemoryText memory;
    const std::vector<std::string> names = {"Kabel für Büro",
                                            "ラベル",
                                            "标签",
                                            "라벨",
                                            "اسم",
                                            "😀🏷️",
                                            "\"quoted\\\"",
                                            "line\nbreak",
                                            "a\tb",
                                            "%s%n{1}",
                                            "../../name",
                                            "e\u0301",
                                            std::string("nul\0in", 6),
                                            "\u2028",
                                            " ",
                                            std::string(5000, 'x')};
    for (const std::string& name : names) {
        memory.savePreset({name, values("TC12", name)});
    }
    const std::vector<Preset> again = parsed(memory.text()).presets();
    ASSERT_EQ(again.size(), names.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
        EXPECT_EQ(again[i], (Preset{names[i], values("TC12", names[i])}));
    }
}

TEST(MemoryText, WritesValuesThatAreNotUtf8WithReplacements)
{
    MemoryText memory;
    memory.savePreset({"A", {"TC12", {{"Choice", "a\xffz"}}}});
    EXPECT_EQ(parsed(memory.text()).presets().front().values.options.front().choice, "a\uFFFDz");
}

} // namespace
} // namespace dialog
