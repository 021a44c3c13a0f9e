#include "dialog/features/JobConflict.hpp"

#include "dialog/Translate.hpp"
#include "dialog/features/ConflictText.hpp"
#include "dialog/features/FeatureValue.hpp"
#include "dialog/features/Resolving.hpp"

namespace dialog {

namespace {

struct Refusal
{
    Constraints constraints;
    Marks marks;
    Features features;
    std::vector<Conflict> conflicts; // that a user can end; none when the job may be printed
};

Refusal refusalOf(const PPDFile& ppd)
{
    Refusal refusal;
    refusal.constraints = constraintsOf(ppd);
    refusal.marks = marksOf(ppd, refusal.constraints);
    refusal.conflicts = conflictsIn(refusal.constraints, refusal.marks);
    if (!refusal.conflicts.empty()) {
        refusal.features = featuresOf(ppd);
        std::erase_if(refusal.conflicts, [&](const Conflict& conflict) {
            return !canBeResolved(conflict, refusal.features);
        });
    }
    return refusal;
}

Failure failureOf(const Refusal& refusal)
{
    if (refusal.conflicts.empty()) {
        return {};
    }
    return {filled(tr("Not printed: {1}"), {conflictSentence(refusal.conflicts, refusal.features)}),
            ExitStatus::NoChoice};
}

// As the command line takes them.
std::string wordsFor(const std::vector<Change>& changes)
{
    std::string words;
    for (const Change& change : changes) {
        words += words.empty() ? "--set " : " --set ";
        words += shown(change.keyword + "=" + joinedChoices(change.choices));
    }
    return words;
}

} // namespace

Failure jobConflict(const PPDFile& ppd)
{
    return failureOf(refusalOf(ppd));
}

Failure jobConflict(const PPDFile& ppd, const WantedOptions& wanted)
{
    const Refusal refusal = refusalOf(ppd);
    Failure failure = failureOf(refusal);
    if (!failure) {
        return {};
    }
    ChoiceOrder order;
    for (const auto& [keyword, choice] : wanted) {
        noteChoice(order, keyword);
    }
    const Conflict& conflict = refusal.conflicts.front();
    const std::vector<Change> changes =
        changesToResolve(conflict, refusal.features, refusal.constraints, refusal.marks,
                         lastChosenIn(conflict, order));
    if (!changes.empty()) {
        failure.text = filled(tr("{1} A way out: {2}"), {failure.text, wordsFor(changes)});
    }
    return failure;
}

} // namespace dialog
