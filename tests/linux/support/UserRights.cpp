#include "tests/linux/support/UserRights.h"

#include <linux/capability.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

namespace plotvane::test {
namespace {

constexpr std::uint32_t kPermissionsAreNothing = 1u << CAP_DAC_OVERRIDE;

using Capabilities = std::array<__user_cap_data_struct, 2>;

__user_cap_header_struct ThisProcess() {
    return {_LINUX_CAPABILITY_VERSION_3, 0};
}

// The capabilities in force, 0..31; what the process may put in force stays, so that they can come back.
std::uint32_t ExchangeEffective(std::uint32_t kept) {
    Capabilities capabilities{};
    auto header = ThisProcess();
    if (syscall(SYS_capget, &header, capabilities.data()) != 0) throw std::runtime_error("capget failed");
    const std::uint32_t before = capabilities[0].effective;
    capabilities[0].effective = capabilities[0].permitted & kept;
    header = ThisProcess();
    if (syscall(SYS_capset, &header, capabilities.data()) != 0) throw std::runtime_error("capset failed");
    return before;
}

}  // namespace

UserRights::UserRights() : m_before(ExchangeEffective(~kPermissionsAreNothing)) {}

UserRights::~UserRights() {
    ExchangeEffective(m_before);
}

}  // namespace plotvane::test
