#include "dialog/features/JobConflict.hpp"

#include "dialog/Translate.hpp"
#include "dialog/features/ConflictText.hpp"

namespace dialog {

Failure jobConflict(const PPDFile& ppd)
{
    const Constraints constraints = constraintsOf(ppd);
    if (constraints.empty()) {
        return {};
    }
    std::vector<Conflict> conflicts = conflictsIn(constraints, marksOf(ppd, constraints));
    if (conflicts.empty()) {
        return {};
    }
    const Features features = featuresOf(ppd);
    std::erase_if(conflicts,
                  [&](const Conflict& conflict) { return !canBeResolved(conflict, features); });
    if (conflicts.empty()) {
        return {};
    }
    return {filled(tr("Not printed: {1}"), {conflictSentence(conflicts, features)}),
            ExitStatus::NoChoice};
}

} // namespace dialog
