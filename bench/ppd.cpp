// ppd.cpp - the rows about opening a PPD, beside one pass over the same file.
#include "bench/LabelPrinter.hpp"
#include "bench/Meter.hpp"
#include "dialog/ppd/PPDFile.hpp"
#include "dialog/ppd/PPDSizes.hpp"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <unistd.h>

namespace bench {
namespace {

// A file that goes with the program.
class Temporary
{
  public:
    explicit Temporary(const std::string& text)
    {
        const int descriptor = mkstemp(path_);
        if (descriptor < 0 ||
            write(descriptor, text.data(), text.size()) != static_cast<ssize_t>(text.size())) {
            std::perror("bench_ppd");
            std::exit(1);
        }
        close(descriptor);
    }
    ~Temporary() { unlink(path_); }
    Temporary(const Temporary&) = delete;
    Temporary& operator=(const Temporary&) = delete;

    std::string path() const { return path_; }

  private:
    char path_[32] = "/tmp/bench-ppd.XXXXXX";
};

std::string contents(const std::string& path)
{
    std::ifstream in(path, std::ios::binary | std::ios::ate);
    std::string text(static_cast<std::size_t>(in.tellg()), '\0');
    in.seekg(0).read(text.data(), static_cast<std::streamsize>(text.size()));
    return text;
}

void mustBe(bool good)
{
    if (!good) {
        std::fputs("bench_ppd: the PPD is not read as it should be\n", stderr);
        std::exit(1);
    }
}

void measure(Meter& meter, int sizes, int choices)
{
    const std::string at =
        " sizes=" + std::to_string(sizes) + " choices=" + std::to_string(choices);
    const Temporary file(labelPrinter(sizes, choices).text());
    meter.compare({{"open PPD" + at,
                    [&] {
                        dialog::Failure failure;
                        const auto ppd = dialog::PPDFile::fromPath(file.path(), failure);
                        mustBe(ppd.record() != nullptr && ppd.record()->num_sizes == sizes);
                    }},
                   {"one pass" + at, [&] {
                        const std::string text = contents(file.path());
                        mustBe(dialog::PPDSizes::take(text).has_value() ==
                               (sizes >= static_cast<int>(dialog::kManySizes)));
                    }}});
}

} // namespace
} // namespace bench

// bench_ppd SIZES CHOICES ...
int main(int argc, char** argv)
{
    bench::Meter meter;
    for (int i = 1; i + 1 < argc; i += 2)
        bench::measure(meter, std::atoi(argv[i]), std::atoi(argv[i + 1]));
    return 0;
}
