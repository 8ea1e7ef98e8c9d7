#include "tests/linux/support/FileSizeLimit.h"

#include <sys/resource.h>

#include <csignal>
#include <stdexcept>

namespace plotvane::test {
namespace {

// Both use the soft limit, which any user can lift again.
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

// Ignores the signal that comes with the limit: it would end the process, which a full disk does not.
FileSizeLimit::FileSizeLimit(std::size_t bytes)
    : m_before(Limit()), m_handlerBefore(std::signal(SIGXFSZ, SIG_IGN)) {
    if (!SetLimit(bytes)) throw std::runtime_error("cannot limit the size of files");
}

FileSizeLimit::~FileSizeLimit() {
    SetLimit(m_before);
    std::signal(SIGXFSZ, m_handlerBefore);
}

}  // namespace plotvane::test
