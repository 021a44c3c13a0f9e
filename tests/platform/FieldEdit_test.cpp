#include "platform/FieldEdit.hpp"

#include <gtest/gtest.h>

using namespace printing;

namespace {

void expectRange(TextRange range, std::size_t location, std::size_t length)
{
    EXPECT_EQ(range.location, location);
    EXPECT_EQ(range.length, length);
}

} // namespace

TEST(FieldEdit, PutsTheCaretBehindATypedCharacter)
{
    // "12|": typing one character at the end.
    const FieldEdit edit{{2, 0}, 1, {2, 0}};
    expectRange(proposedSelection(edit), 3, 0);
    expectRange(originalSelection(edit), 2, 0);
}

TEST(FieldEdit, PutsTheCaretBehindTextThatReplacesASelection)
{
    const FieldEdit edit{{1, 3}, 2, {1, 3}};
    expectRange(proposedSelection(edit), 3, 0);
    expectRange(originalSelection(edit), 1, 3);
}

TEST(FieldEdit, MovesTheCaretBackWhenTheBackspaceKeyDeletes)
{
    // "12|": the affected character lies before the caret.
    const FieldEdit edit{{1, 1}, 0, {2, 0}};
    expectRange(proposedSelection(edit), 1, 0);
    expectRange(originalSelection(edit), 2, 0);
}

TEST(FieldEdit, BeginsTextDroppedElsewhereWhereItLands)
{
    // "|12|" selected, a character dropped at the end.
    const FieldEdit edit{{2, 0}, 1, {0, 2}};
    expectRange(proposedSelection(edit), 3, 0);
    expectRange(originalSelection(edit), 2, 0);
}

TEST(FieldEdit, FitsUpToTheEndOfTheText)
{
    EXPECT_TRUE(fits({{3, 0}, 1, {}}, 3));
    EXPECT_TRUE(fits({{1, 2}, 1, {}}, 3));
    EXPECT_FALSE(fits({{4, 0}, 1, {}}, 3));
    EXPECT_FALSE(fits({{1, 3}, 1, {}}, 3));
    EXPECT_FALSE(fits({{1, SIZE_MAX}, 1, {}}, 3));
}
