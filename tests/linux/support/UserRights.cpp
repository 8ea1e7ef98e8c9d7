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

bool Ask(long call, Capabilities& capabilities) {
    __user_cap_header_struct thisProcess{_LINUX_CAPABILITY_VERSION_3, 0};
    return syscall(call, &thisProcess, capabilities.data()) == 0;
}

std::uint32_t Effective() {
    Capabilities capabilities{};
    if (!Ask(SYS_capget, capabilities)) throw std::runtime_error("cannot ask for rights");
    return capabilities[0].effective;
}

// Only the rights in force change; the permitted ones stay, so that they can be put in force again.
bool SetEffective(std::uint32_t effective) {
    Capabilities capabilities{};
    if (!Ask(SYS_capget, capabilities)) return false;
    capabilities[0].effective = effective;
    return Ask(SYS_capset, capabilities);
}

}  // namespace

UserRights::UserRights() : m_before(Effective()) {
    if (!SetEffective(m_before & ~kPermissionsAreNothing)) throw std::runtime_error("cannot give up rights");
}

UserRights::~UserRights() {
    SetEffective(m_before);
}

}  // namespace plotvane::test
