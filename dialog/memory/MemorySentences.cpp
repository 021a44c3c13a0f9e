#include "dialog/memory/MemorySentences.hpp"

#include "dialog/Messages.hpp"
#include "dialog/Translate.hpp"

namespace dialog {

namespace {

std::string problemOf(const MemoryResult& result)
{
    const std::string path = shown(result.path);
    switch (result.problem) {
    case MemoryProblem::NoFolder:
        return tr("Presets and last values cannot be kept: there is no home folder.");
    case MemoryProblem::NotReadable:
        return filled(tr("The presets in \"{1}\" cannot be read and are left alone: {2}."),
                      {path, shown(result.detail)});
    case MemoryProblem::NotWritable:
        return filled(tr("Presets and last values cannot be kept in \"{1}\": {2}."),
                      {path, shown(result.detail)});
    case MemoryProblem::Busy:
        return tr("Presets and last values cannot be kept: another print dialog is holding them.");
    case MemoryProblem::Newer:
        return filled(tr("The presets in \"{1}\" are of a newer release and are left alone."),
                      {path});
    case MemoryProblem::LeftDamaged:
        return filled(tr("The presets in \"{1}\" are damaged and are left alone."), {path});
    case MemoryProblem::NameTaken:
    case MemoryProblem::NoSuchPreset:
    case MemoryProblem::None:
        break;
    }
    return {};
}

} // namespace

std::string sentenceOf(const MemoryResult& result)
{
    std::string sentence = problemOf(result);
    if (!result.setAside.empty()) {
        sentence += sentence.empty() ? "" : " ";
        sentence += filled(tr("The presets in \"{1}\" were damaged; the file is now \"{2}\"."),
                           {shown(result.path), shown(result.setAside)});
    }
    return sentence;
}

std::string sentenceOf(NameFault fault, std::string_view name)
{
    switch (fault) {
    case NameFault::Empty:
        return tr("Give the preset a name.");
    case NameFault::TooLong:
        return filled(tr("The name may have at most {1} letters."),
                      {std::to_string(kMostNameLetters)});
    case NameFault::Reserved:
        return filled(tr("\"{1}\" is the name of another entry of the list; choose another name."),
                      {shown(name)});
    case NameFault::None:
        break;
    }
    return {};
}

std::string presetNameTaken(std::string_view name)
{
    return filled(tr("There is already a preset named \"{1}\"."), {shown(name)});
}

std::string noSuchPreset(std::string_view name)
{
    return filled(tr("There is no preset named \"{1}\"."), {shown(name)});
}

std::string fitSentence(std::string_view name, const std::vector<std::string>& misfits)
{
    std::string list;
    for (const std::string& misfit : misfits) {
        list += list.empty() ? "" : "; ";
        list += misfit;
    }
    return list.empty() ? list
                        : filled(tr("Not everything in \"{1}\" fits this printer: {2}."),
                                 {shown(name), list});
}

} // namespace dialog
