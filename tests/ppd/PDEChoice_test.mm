#include "support/PanelTest.hpp"

#include <cstdio>
#include <cstring>

@protocol ChoiceUnderTest <NSObject>
- (id)initWithChoice:(ppd_choice_t*)choice;
- (NSString*)userTitle;
- (NSString*)ppdTitle;
- (ppd_choice_t*)choice;
- (BOOL)isDefaultChoice;
@end

@interface NSObject (ChoiceMakerUnderTest)
+ (id<ChoiceUnderTest>)choiceWithChoice:(ppd_choice_t*)choice;
@end

namespace {

class ChoiceTest : public testing::Test
{
  protected:
    ppd_choice_t* record(int index) { return &optionOf(ppd_, "Resolution")->choices[index]; }

    static Class choiceClass() { return classNamed("PDEChoice"); }

    id<ChoiceUnderTest> wrap(ppd_choice_t* choice)
    {
        return [choiceClass() choiceWithChoice:choice];
    }

    PPDFile ppd_ = PPDText()
                       .option("Resolution", "Resolution",
                               {{"300dpi", "Entwurf – schnell"},
                                {"300x600dpi", "日本語"},
                                {"600dpi", "100% %@ %s"}},
                               "300x600dpi")
                       .open();
};

std::string describedAs(id object, const std::string& rest)
{
    char address[32];
    std::snprintf(address, sizeof address, "%p", static_cast<void*>(object));
    return std::string("<PDEChoice ") + address + " " + rest;
}

} // namespace

TEST_F(ChoiceTest, ShowsTheTextToTheUserAndTheKeywordToTheDialog)
{
    id<ChoiceUnderTest> choice = wrap(record(0));
    EXPECT_EQ(textOf([choice userTitle]), "Entwurf – schnell");
    EXPECT_EQ(textOf([choice ppdTitle]), "300dpi");
    EXPECT_EQ([choice choice], record(0));
    EXPECT_EQ(textOf([wrap(record(1)) userTitle]), "日本語");
}

TEST_F(ChoiceTest, MakesEachTitleOnce)
{
    id<ChoiceUnderTest> choice = wrap(record(0));
    EXPECT_EQ(ivarOf<id>(choice, "mUserTitle"), nil);
    EXPECT_EQ(ivarOf<id>(choice, "mPPDTitle"), nil);
    NSString* user = [choice userTitle];
    NSString* keyword = [choice ppdTitle];
    EXPECT_EQ(ivarOf<id>(choice, "mUserTitle"), user);
    EXPECT_EQ(ivarOf<id>(choice, "mPPDTitle"), keyword);
    std::strcpy(record(0)->text, "changed");
    std::strcpy(record(0)->choice, "changed");
    EXPECT_EQ([choice userTitle], user);
    EXPECT_EQ([choice ppdTitle], keyword);
}

TEST_F(ChoiceTest, ComparesTwoWrappersOfARecordByTheirKeyword)
{
    id<ChoiceUnderTest> one = wrap(record(1));
    id<ChoiceUnderTest> other = wrap(record(1));
    EXPECT_NE(one, other);
    EXPECT_TRUE([[one ppdTitle] isEqualToString:[other ppdTitle]]);
}

TEST_F(ChoiceTest, KnowsTheOptionsDefault)
{
    EXPECT_EQ([wrap(record(0)) isDefaultChoice], NO);
    EXPECT_EQ([wrap(record(1)) isDefaultChoice], YES);
    EXPECT_EQ([wrap(record(2)) isDefaultChoice], NO);
}

TEST_F(ChoiceTest, MindsTheLetterCaseAndTheWholeOfADefault)
{
    ppd_option_t* option = optionOf(ppd_, "Resolution");
    std::strcpy(option->defchoice, "300X600DPI");
    EXPECT_EQ([wrap(record(1)) isDefaultChoice], NO);
    std::strcpy(option->defchoice, "300x600dpi2");
    EXPECT_EQ([wrap(record(1)) isDefaultChoice], NO);
    std::strcpy(option->defchoice, "300x600");
    EXPECT_EQ([wrap(record(1)) isDefaultChoice], NO);
}

TEST_F(ChoiceTest, ComparesADefaultInItsFirst41CharactersOnly)
{
    // Full records, without a terminator; what stands behind them differs.
    ppd_option_t* option = optionOf(ppd_, "Resolution");
    static_assert(sizeof option->defchoice == 41 && sizeof record(0)->choice == 41);
    std::memset(option->defchoice, 'a', 41);
    std::memset(record(0)->choice, 'a', 41);
    std::strcpy(record(0)->text, "something else");
    EXPECT_EQ([wrap(record(0)) isDefaultChoice], YES);
    record(0)->choice[40] = 'b';
    EXPECT_EQ([wrap(record(0)) isDefaultChoice], NO);
}

TEST_F(ChoiceTest, DescribesItself)
{
    id<ChoiceUnderTest> first = wrap(record(0));
    EXPECT_EQ(textOf([first description]),
              describedAs(first, "userTitle:\"Entwurf – schnell\" ppdTitle:\"300dpi\" marked:NO "
                                 "choice:1 of 3>"));
    id<ChoiceUnderTest> marked = wrap(record(1));
    EXPECT_EQ(textOf([marked description]),
              describedAs(marked, "userTitle:\"日本語\" ppdTitle:\"300x600dpi\" marked:YES "
                                  "choice:2 of 3>"));
    id<ChoiceUnderTest> last = wrap(record(2));
    EXPECT_EQ(textOf([last description]),
              describedAs(last, "userTitle:\"100% %@ %s\" ppdTitle:\"600dpi\" marked:NO "
                                "choice:3 of 3>"));
}

TEST_F(ChoiceTest, TakesAnyNonZeroMarkForMarked)
{
    record(2)->marked = 2;
    EXPECT_NE(textOf([wrap(record(2)) description]).find("marked:YES"), std::string::npos);
    record(2)->marked = 0;
}

TEST_F(ChoiceTest, HasNoTitleOutOfBytesThatAreNotValid)
{
    std::strcpy(record(0)->text, "half \xe3\x83");
    std::strcpy(record(0)->choice, "caf\xc3\xa9"); // UTF-8, but keywords are ASCII
    id<ChoiceUnderTest> choice = wrap(record(0));
    EXPECT_EQ([choice userTitle], nil);
    EXPECT_EQ([choice ppdTitle], nil);
    EXPECT_NE([choice description], nil);
}

TEST_F(ChoiceTest, IsMadeAutoreleased)
{
    id<ChoiceUnderTest> choice = nil;
    {
        const ScopedPool pool;
        choice = [wrap(record(0)) retain];
        EXPECT_EQ([choice retainCount], 2u);
    }
    EXPECT_EQ([choice retainCount], 1u);
    [choice release];
}

TEST_F(ChoiceTest, IsMadeAsAPlainChoiceEvenBySubclasses)
{
    Class subclass = objc_allocateClassPair(choiceClass(), "SpecialChoice", 0);
    objc_registerClassPair(subclass);
    id choice = [subclass choiceWithChoice:record(0)];
    EXPECT_EQ([choice class], choiceClass());
}

TEST_F(ChoiceTest, ReleasesItsTitlesWhenItGoes)
{
    const ScopedPool pool;
    id choice = [[choiceClass() alloc] initWithChoice:record(0)];
    NSString* const titles[] = {[[choice userTitle] retain], [[choice ppdTitle] retain]};
    for (NSString* title : titles)
        EXPECT_EQ([title retainCount], 2u);
    [choice release];
    for (NSString* title : titles) {
        EXPECT_EQ([title retainCount], 1u);
        [title release];
    }
}

TEST_F(ChoiceTest, IsNoMoreWhenItsLastOwnerLetsGo)
{
    const LivingObjects living("PDEChoice");
    id choice = [[choiceClass() alloc] initWithChoice:record(0)];
    EXPECT_EQ(living.count(), 1);
    [choice release];
    EXPECT_EQ(living.count(), 0);
}

TEST_F(ChoiceTest, BeginsWithoutTitlesWhateverStoodInItsPlace)
{
    id choice = [choiceClass() alloc];
    ivarOf<NSString*>(choice, "mUserTitle") = @"of another";
    ivarOf<NSString*>(choice, "mPPDTitle") = @"of another";
    choice = [choice initWithChoice:record(1)];
    EXPECT_EQ(textOf([choice userTitle]), "日本語");
    EXPECT_EQ(textOf([choice ppdTitle]), "300x600dpi");
    [choice release];
}

TEST_F(ChoiceTest, IsNothingWhereItsSuperclassMakesNothing)
{
    const FailingInit failing(choiceClass());
    EXPECT_EQ([[choiceClass() alloc] initWithChoice:record(0)], nil);
}

TEST_F(ChoiceTest, HasItsVariablesInOrder)
{
    unsigned count = 0;
    Ivar* const list = class_copyIvarList(choiceClass(), &count);
    Texts names;
    for (unsigned i = 0; i < count; ++i)
        names.push_back(ivar_getName(list[i]));
    free(list);
    EXPECT_EQ(names, (Texts{"mUserTitle", "mPPDTitle", "mChoice"}));
    EXPECT_EQ(class_getSuperclass(choiceClass()), [NSObject class]);
}

TEST_F(ChoiceTest, LivesWithoutARecordOrAnOption)
{
    id<ChoiceUnderTest> none = wrap(nullptr);
    EXPECT_EQ([none choice], nullptr);
    EXPECT_EQ([none userTitle], nil);
    EXPECT_EQ([none ppdTitle], nil);
    EXPECT_EQ([none isDefaultChoice], NO);
    EXPECT_NE([none description], nil);
    ppd_choice_t stray{};
    std::strcpy(stray.choice, "300dpi");
    id<ChoiceUnderTest> alone = wrap(&stray);
    EXPECT_EQ([alone isDefaultChoice], NO);
    EXPECT_EQ(textOf([alone description]),
              describedAs(alone, "userTitle:\"\" ppdTitle:\"300dpi\" marked:NO choice:0 of 0>"));
}
