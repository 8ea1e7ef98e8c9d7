#pragma once

#include <cstdint>

namespace plotvane::test {

// Tests may run as root, and permissions do not stop root. While this object lives, the permissions of files
// and folders count for this process too.
class UserRights {
public:
    UserRights();
    ~UserRights();
    UserRights(const UserRights&) = delete;
    UserRights& operator=(const UserRights&) = delete;

private:
    std::uint32_t m_before;  // capabilities
};

}  // namespace plotvane::test
