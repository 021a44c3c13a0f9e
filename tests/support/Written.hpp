// Written.hpp - what a piece of work writes to a descriptor, standard error or the system log.
//
//     EXPECT_EQ(logged([&] { log(nil, @"length %d", 12); }), Texts{"LOG length 12"});
#pragma once

#include "support/PanelTest.hpp"

#include <cstdio>
#include <functional>
#include <string>
#include <unistd.h>

inline std::string readAll(int fd)
{
    std::string result;
    char buffer[4096];
    ssize_t got = 0;
    while ((got = read(fd, buffer, sizeof buffer)) > 0)
        result.append(buffer, static_cast<std::size_t>(got));
    return result;
}

// What `work` writes to its descriptor; short enough for a pipe to hold.
inline std::string writtenTo(const std::function<void(int)>& work)
{
    int ends[2];
    EXPECT_EQ(pipe(ends), 0);
    work(ends[1]);
    close(ends[1]);
    const std::string result = readAll(ends[0]);
    close(ends[0]);
    return result;
}

inline std::string onStandardError(const std::function<void()>& work)
{
    return writtenTo([&](int fd) {
        const int before = dup(STDERR_FILENO);
        dup2(fd, STDERR_FILENO);
        work();
        fflush(stderr);
        dup2(before, STDERR_FILENO);
        close(before);
    });
}

// The system log's lines without what stands before the message: date, time, program, process.
inline Texts logged(const std::function<void()>& work)
{
    const std::string text = onStandardError(work);
    Texts lines;
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t end = text.find('\n', start);
        const std::string line = text.substr(start, end - start);
        const std::size_t message = line.find("] ");
        lines.push_back(message == line.npos ? line : line.substr(message + 2));
        if (end == text.npos)
            break;
        start = end + 1;
    }
    return lines;
}
