# Off by default: a newer compiler has warnings that nobody here has seen, and must still build the program.
option(PLOTVANE_WERROR "Make warnings errors; scripts/lint.sh and the machine that checks each change turn it on" OFF)

add_library(plotvane_warnings INTERFACE)
target_compile_options(plotvane_warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion)
if(PLOTVANE_WERROR)
    target_compile_options(plotvane_warnings INTERFACE -Werror)
endif()

# Once inlined, which happens only in optimised builds, GCC 12 takes "text" + std::to_string(number) for an overlapping
# copy. Other builds leave the option out, because clang-tidy reads their options and does not know it.
if(CMAKE_BUILD_TYPE STREQUAL "Release" AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(plotvane_warnings INTERFACE -Wno-restrict)
endif()
