#include "tests/linux/support/FileSizeLimit.h"

#include <sys/resource.h>

#include <csignal>
#include <stdexcept>

namespace plotvane::test {
namespace {

// Only what the process asks of itself changes, so that the limit can be lifted again by any user.
std::size_t Limit() {
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    return limit.rlim_cur;
}

bool SetLimit(std::size_t bytes) {
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = bytes;
    return setrlimit(RLIMIT_FSIZE, &limit) == 0;
}

}  // namespace

// The system would also end the process by a signal, which a full disk does not.
FileSizeLimit::FileSizeLimit(std::size_t bytes)
    : m_before(Limit()), m_handlerBefore(std::signal(SIGXFSZ, SIG_IGN)) {
    if (!SetLimit(bytes)) throw std::runtime_error("cannot limit the size of files");
}

FileSizeLimit::~FileSizeLimit() {
    SetLimit(m_before);
    std::signal(SIGXFSZ, m_handlerBefore);
}

}  // namespace plotvane::test
