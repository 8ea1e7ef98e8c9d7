// overrun HOW COUNT: writes COUNT bytes into an array of sixteen, built with the options of the program.
// Exits with 0 if nothing stops it.
//
//   stack    byte by byte, in an array on the stack
//   memory   by memcpy, in a global array
//   text     by strcpy, in the same array
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

namespace {

constexpr std::size_t kSize = 16;

char g_elsewhere[kSize];
char g_after[1024];  // bytes written past the array land here, where nobody needs them

[[gnu::noinline]] void OverrunStack(std::size_t count) {
    volatile char array[kSize];
    volatile char* const start = array;
    for (std::size_t i = 0; i < count; ++i) start[i] = 'x';
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    const std::string_view how = argv[1];
    const std::string bytes(std::strtoul(argv[2], nullptr, 10), 'x');
    if (how == "stack") OverrunStack(bytes.size());
    if (how == "memory") std::memcpy(g_elsewhere, bytes.data(), bytes.size());
    if (how == "text") std::strcpy(g_elsewhere, bytes.c_str());
    return g_elsewhere[0] == 'y' || g_after[0] == 'y';
}
