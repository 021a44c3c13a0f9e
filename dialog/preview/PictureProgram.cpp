// tape-print-picture: the document on its standard input becomes a picture on its standard output.
//
// tape-print starts it and reads what packed() wrote.  Whatever a document does to the libraries
// that read it ends here, with the memory and the time that a label may take.

#include "dialog/preview/DocumentPicture.hpp"
#include "dialog/preview/PictureMaker.hpp"

#include <cerrno>
#include <exception>
#include <string>

#include <csignal>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

// The sanitizer's own tables are larger than what a document may take.
#if defined(__has_feature) && __has_feature(address_sanitizer)
constexpr rlim_t kMostMemory = RLIM_INFINITY;
#else
constexpr rlim_t kMostMemory = rlim_t{1024} * 1024 * 1024;
#endif
constexpr rlim_t kMostSeconds = 10; // of a processor
constexpr unsigned kDeadline = 30;  // seconds altogether

void limit(int resource, rlim_t most)
{
    const struct rlimit bounds = {most, most};
    setrlimit(resource, &bounds);
}

void keepWithinBounds()
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    alarm(kDeadline);
    limit(RLIMIT_CPU, kMostSeconds);
    limit(RLIMIT_CORE, 0);
    limit(RLIMIT_AS, kMostMemory);
}

// One byte more than is looked at tells that there is more.
std::string readDocument()
{
    std::string bytes;
    std::string piece(std::size_t{64} * 1024, '\0');
    while (bytes.size() <= dialog::kMostDocumentBytes) {
        const ssize_t count = read(STDIN_FILENO, piece.data(), piece.size());
        if (count > 0) {
            bytes.append(piece, 0, static_cast<std::size_t>(count));
        } else if (count == 0 || errno != EINTR) {
            break;
        }
    }
    return bytes;
}

bool writeAll(const std::string& bytes)
{
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t count = write(STDOUT_FILENO, bytes.data() + done, bytes.size() - done);
        if (count > 0) {
            done += static_cast<std::size_t>(count);
        } else if (errno != EINTR) {
            return false;
        }
    }
    return true;
}

dialog::DocumentPicture make()
{
    try {
        return dialog::makePicture(readDocument());
    } catch (const std::bad_alloc&) {
        return dialog::DocumentPicture::failed(dialog::PictureProblem::TooLarge);
    } catch (const std::exception&) {
        return dialog::DocumentPicture::failed(dialog::PictureProblem::Damaged);
    }
}

} // namespace

int main()
{
    keepWithinBounds();
    return writeAll(dialog::packed(make())) ? 0 : 1;
}
