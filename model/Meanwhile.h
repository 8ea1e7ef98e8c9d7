#pragma once

namespace plotvane {

// True for the length of a scope.
class Meanwhile {
public:
    explicit Meanwhile(bool& flag) : m_flag(flag) { m_flag = true; }
    ~Meanwhile() { m_flag = false; }
    Meanwhile(const Meanwhile&) = delete;
    Meanwhile& operator=(const Meanwhile&) = delete;

private:
    bool& m_flag;
};

}  // namespace plotvane
