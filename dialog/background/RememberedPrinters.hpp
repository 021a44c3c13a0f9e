// RememberedPrinters.hpp - the queues that the print server offered last, for when it does not
// answer.
//
// A text file of the user's cache: a line for the version and one for the server, three for each
// queue, and one that counts them.  Plain C++ and POSIX.
#pragma once

#include "dialog/printers/PrintServer.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dialog {

// A queue that cannot be written on lines (a line break in its name) is left out.
std::string rememberedText(std::string_view server, const std::vector<Queue>& queues);

// No value for a text that is damaged in any way, cut short, or about another server.
std::optional<std::vector<Queue>> queuesOfText(std::string_view text, std::string_view server);

// Where the file is; empty when the user has no folder for such things.
std::string rememberedPrintersPath();

// Empty when there is nothing to be remembered.  A path that names no regular file is not opened.
std::vector<Queue> recallPrinters(const std::string& path, std::string_view server);

// The file appears whole or stays as it was.  False when it could not be written; nothing else
// depends on it.  A file that says the same already is left alone.
bool rememberPrinters(const std::string& path, std::string_view server,
                      const std::vector<Queue>& queues);

} // namespace dialog
