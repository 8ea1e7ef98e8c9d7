# Options of compiler and linker that protect the program if input finds a mistake after all. Every library of the
# program is built with them, and tests/system/hardening/ExecutableTest.cpp checks the finished program.
add_library(plotvane_hardening INTERFACE)

if(WIN32)
    # Before a function with an array on its stack returns, it checks that nothing was written past the array. A call
    # that copies into an object of known size checks the size first.
    target_compile_options(plotvane_hardening INTERFACE -fstack-protector-strong)
    target_compile_definitions(plotvane_hardening INTERFACE $<$<NOT:$<CONFIG:Debug>>:_FORTIFY_SOURCE=2>)
    # libssp has the functions that check and copy. framework/StackGuard.cpp ends the process when a check fails,
    # because libssp's own way loads libraries, perhaps before the program has said where they may come from.
    target_link_libraries(plotvane_hardening INTERFACE plotvane_stack_guard ssp)

    # At another address in each run, anywhere in 64 bits; data is never run as code; and several users of one machine
    # may run it at once without the shims of older programs. Most linkers do all but the last without being asked.
    target_link_options(plotvane_hardening INTERFACE
        -Wl,--dynamicbase -Wl,--high-entropy-va -Wl,--nxcompat -Wl,--tsaware)

    # Control-flow guard, where compiler and linker know it. GCC does not, and clang does not before release 16.
    include(CheckCXXCompilerFlag)
    include(CheckLinkerFlag)
    check_cxx_compiler_flag(-mguard=cf PLOTVANE_COMPILER_GUARDS_CALLS)
    if(PLOTVANE_COMPILER_GUARDS_CALLS)
        check_linker_flag(CXX -mguard=cf PLOTVANE_LINKER_GUARDS_CALLS)
    endif()
    if(PLOTVANE_LINKER_GUARDS_CALLS)
        target_compile_options(plotvane_hardening INTERFACE -mguard=cf)
        target_link_options(plotvane_hardening INTERFACE -mguard=cf)
        target_compile_definitions(plotvane_hardening INTERFACE PLOTVANE_GUARDED_CALLS)
    endif()
endif()
