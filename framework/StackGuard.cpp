// What the compiler's checks of the stack and of copies need from a program: a number that no attacker can
// foresee, and what happens when a check fails. The compiler's own library has both too, but asks Windows for
// the number in a way that loads libraries by name alone, before the program has had a chance to say where
// they may come from.
#include <windows.h>

#include <cstdint>

namespace {

// Ends the process at once, without running anything of it: what a handler would use may be overwritten.
// Windows reports it as an overrun of a buffer on the stack, and the exit code is 0xC0000409.
[[noreturn]] void EndWithoutUnwinding() {
    __asm__ volatile("int $0x29" : : "c"(FAST_FAIL_STACK_COOKIE_CHECK_FAILURE));
    __builtin_unreachable();
}

// One bit of what goes in changes about half of what comes out.
std::uint64_t Mix(std::uint64_t number) {
    number = (number ^ (number >> 33)) * 0xFF51AFD7ED558CCDu;
    number = (number ^ (number >> 33)) * 0xC4CEB9FE1A85EC53u;
    return number ^ (number >> 33);
}

}  // namespace

// The names are the compiler's.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {

std::uintptr_t __stack_chk_guard = 0;

[[noreturn]] void __stack_chk_fail() {
    EndWithoutUnwinding();
}
[[noreturn]] void __chk_fail() {
    EndWithoutUnwinding();
}

}  // extern "C"
// NOLINTEND(bugprone-reserved-identifier)

namespace {

// Before any other constructor, while no function is active that looks at the number: this file is built
// without the checks. EncodePointer mixes in a number that Windows draws for each process, the stack lies at
// another address in each, and the counter moves millions of times a second. The lowest byte stays 0, so that
// no overrun by a text can write the right one.
[[gnu::constructor(101)]] void ChooseGuard() {
    LARGE_INTEGER count;
    ::QueryPerformanceCounter(&count);
    FILETIME now;
    ::GetSystemTimeAsFileTime(&now);
    auto number = reinterpret_cast<std::uint64_t>(::EncodePointer(&now));
    number = Mix(number ^ static_cast<std::uint64_t>(count.QuadPart));
    number = Mix(number ^ (std::uint64_t{now.dwHighDateTime} << 32 | now.dwLowDateTime));
    number = Mix(number ^ (std::uint64_t{::GetCurrentProcessId()} << 32 | ::GetCurrentThreadId()));
    __stack_chk_guard = number & ~std::uint64_t{0xFF};
}

}  // namespace
