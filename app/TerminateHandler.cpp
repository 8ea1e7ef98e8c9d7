#include <cstdlib>

// GCC's library calls this when nobody catches an exception. Its own version writes the exception's name to
// the console and ends the program. This one only ends the program: there is no console, and the code that
// reads names takes 46 KB of the executable. The library prescribes these names.
// NOLINTBEGIN(bugprone-reserved-identifier)
namespace __gnu_cxx {

[[noreturn]] void __verbose_terminate_handler();

void __verbose_terminate_handler() {
    std::abort();
}

}  // namespace __gnu_cxx
// NOLINTEND(bugprone-reserved-identifier)
