// A PPD's bytes through the dialog's look at them, the print library and every question to it.
#include "dialog/ppd/PPDFile.hpp"
#include "fuzz/Options.hpp"

#include <cstdio>
#include <cstdlib>

namespace {

void require(bool holds, const char* sentence)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", sentence);
    std::abort();
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    dialog::Failure failure;
    dialog::PPDFile ppd = dialog::PPDFile::fromBytes("fuzzed", bytes, failure);
    require((ppd.record() == nullptr) == !failure.text.empty(),
            "a PPD is opened, or there is a sentence why not");
    require(failure.text.find('\n') == failure.text.npos, "a sentence is one line");
    if (ppd.record() == nullptr)
        return 0;
    require(ppd.reopened().sizes().size() == ppd.sizes().size(),
            "a PPD opened again has its sizes");
    for (const dialog::PPDFile::Size& paper : ppd.sizes()) {
        if (ppd.mark("PageSize", paper.name))
            ppdPageSize(ppd.record(), paper.name.c_str());
    }
    for (ppd_option_t* option : fuzz::optionsOf(ppd.record())) {
        // In two groups there may be options of the same keyword; only one of them is ever found.
        if (ppdFindOption(ppd.record(), option->keyword) != option)
            continue;
        for (int i = 0; i < option->num_choices; ++i) {
            const std::string choice = option->choices[i].choice;
            require(ppd.mark(option->keyword, choice), "a listed choice can be marked");
        }
        ppd.setDefault(option->keyword, "Other");
        ppd.marked(option->keyword);
    }
    ppd.modelName();
    return 0;
}
