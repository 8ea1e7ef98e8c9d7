#include "tests/linux/support/FileSizeLimit.h"

#include <sys/resource.h>

#include <csignal>
#include <stdexcept>

namespace plotvane::test {
namespace {

// Only what the process asks of itself changes, so that the limit can be lifted again by any user.
std::size_t ExchangeLimit(std::size_t bytes) {
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const std::size_t before = limit.rlim_cur;
    limit.rlim_cur = bytes;
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0) throw std::runtime_error("cannot limit the size of files");
    return before;
}

}  // namespace

// The system would also end the process by a signal, which a full disk does not.
FileSizeLimit::FileSizeLimit(std::size_t bytes)
    : m_before(ExchangeLimit(bytes)), m_handlerBefore(std::signal(SIGXFSZ, SIG_IGN)) {}

FileSizeLimit::~FileSizeLimit() {
    ExchangeLimit(m_before);
    std::signal(SIGXFSZ, m_handlerBefore);
}

}  // namespace plotvane::test
