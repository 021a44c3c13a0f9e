#include "dialog/Answer.hpp"

#include "dialog/Translate.hpp"

#include <cstdio>

namespace dialog {

void answer(const std::string& text)
{
    std::fwrite(text.data(), 1, text.size(), stdout);
}

ExitStatus endOfAnswer(ExitStatus status)
{
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) {
        return status;
    }
    std::fprintf(stderr, "tape-print: %s\n", tr("The answer cannot be written."));
    return status == ExitStatus::Printed ? ExitStatus::NotWritten : status;
}

} // namespace dialog
