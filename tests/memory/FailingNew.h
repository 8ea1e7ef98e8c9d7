#pragma once

#include <cstddef>

namespace plotvane::test {

// While it lives, one of the program's requests for memory by `new` fails: the one with this number. The next
// request has the number 1.
class RequestFails {
public:
    explicit RequestFails(std::size_t request);
    ~RequestFails();
    RequestFails(const RequestFails&) = delete;
    RequestFails& operator=(const RequestFails&) = delete;

    // Whether that request has come.
    bool HasFailed() const;
};

}  // namespace plotvane::test
