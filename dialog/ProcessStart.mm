#include "dialog/ProcessStart.h"

#include "dialog/UTF8.hpp"

#include <Foundation/Foundation.h>

#include <vector>

namespace dialog {

void beginToolkit(char** environment)
{
    @try {
        // Its first use reads the process's own words and variables, in any case.
        [NSProcessInfo class];
    } @catch (id exception) {
        // They are replaced at once.
    }
    static char program[] = "tape-print";
    char* words[] = {program, nullptr};
    std::vector<char*> variables;
    for (char** variable = environment; *variable != nullptr; ++variable) {
        if (isUTF8(*variable)) {
            variables.push_back(*variable);
        }
    }
    variables.push_back(nullptr);
    GSInitializeProcess(1, words, variables.data());
}

} // namespace dialog
