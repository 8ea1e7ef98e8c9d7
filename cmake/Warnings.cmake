# Warnings are errors in both builds: what one compiler overlooks the other tends to see.
add_library(plotvane_warnings INTERFACE)
target_compile_options(plotvane_warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Werror)
