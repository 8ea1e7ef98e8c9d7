# The same cross build with clang, for its warnings. Headers and libraries, including the standard library, are those of
# mingw-w64's own compiler.
include("${CMAKE_CURRENT_LIST_DIR}/mingw-w64-x86_64.cmake")

execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-libgcc-file-name
                OUTPUT_VARIABLE libgcc OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
get_filename_component(gcc_folder "${libgcc}" DIRECTORY)

foreach(language C CXX)
    set(CMAKE_${language}_COMPILER_TARGET x86_64-w64-mingw32)
endforeach()
set(CMAKE_C_COMPILER clang)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_CXX_FLAGS_INIT
    "-stdlib++-isystem${gcc_folder}/include/c++ -stdlib++-isystem${gcc_folder}/include/c++/x86_64-w64-mingw32")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-fuse-ld=lld -L${gcc_folder}")
# The GNU compiler adds this by itself.
set(CMAKE_CXX_STANDARD_LIBRARIES "-lpthread")
