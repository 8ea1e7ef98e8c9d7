# Warnings are errors in both builds: what one compiler overlooks the other tends to see.
add_library(plotvane_warnings INTERFACE)
target_compile_options(plotvane_warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Werror)

# GCC 12 takes "text" + std::to_string(number) for an overlapping copy once it is inlined, which only the
# optimised cross build does; clang-tidy, which reads the native build's options, does not know this one.
if(MINGW AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(plotvane_warnings INTERFACE -Wno-restrict)
endif()
