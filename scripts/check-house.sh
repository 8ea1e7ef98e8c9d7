#!/usr/bin/env bash
# Checks in a second what the compilers do not: that no include runs against the layers, that no source file
# is over 400 lines and no function over 60. Prints what it finds; silent when all is well.
set -euo pipefail
cd "$(dirname "$0")/.."

longest_file=400
longest_function=60
failures=0

# A room, and the rooms that it may include. Bottom first: each line names only rooms above it.
layers='
res:
base:
framework:
model:           base
controls:        base framework
scaling:         base framework controls model res
meter:           base framework res
plot/chart:      base framework controls model scaling
plot/binding:    base model scaling plot/chart
logs:            base framework model scaling res
history:         base framework model scaling plot/chart
link:            base framework model scaling plot/chart plot/binding logs res
app:             base framework controls model scaling meter plot/chart plot/binding logs link history res
tools/drives:    base model
tools/sim:       base model tools/drives
tools/samples:   base model scaling tools/drives
'

check_includes() {
    git grep -n '^#include "' -- '*.cpp' '*.h' | awk -v layers="$layers" '
        function room_of(path,   part) {
            split(path, part, "/")
            return (part[1] "/" part[2]) in allowed ? part[1] "/" part[2] : part[1]
        }
        BEGIN {
            lines = split(layers, line, "\n")
            for (i = 1; i <= lines; ++i) {
                if (split(line[i], name, / *: */) < 2) continue
                allowed[name[1]] = " " name[1] " " name[2] " "
            }
        }
        {
            split($0, field, ":")
            split($0, quoted, "\"")
            from = room_of(field[1])
            if (!(from in allowed)) next  # tests, fuzzers and benches may see everything
            to = room_of(quoted[2])
            if (index(allowed[from], " " to " ")) next
            printf "%s:%s: %s must not include %s\n", field[1], field[2], from, quoted[2]
            found = 1
        }
        END { exit found }'
}

check_files() {
    git ls-files -z '*.cpp' '*.h' | xargs -0 awk -v longest="$longest_file" '
        FNR == longest + 1 { printf "%s: over %d lines; it does two jobs\n", FILENAME, longest; found = 1 }
        END { exit found }'
}

# In formatted code a function begins at the last unindented line before its body and ends with an unindented
# brace.
check_functions() {
    git ls-files -z '*.cpp' '*.h' | xargs -0 awk -v longest="$longest_function" '
        FNR == 1 { begin = 0 }
        /^[A-Za-z_]/ { if (!begin) { begin = FNR; name = $0 } }
        /^(namespace|class|struct|enum|union|extern "C")/ || /^(BEGIN|END)_MESSAGE_MAP/ || /[;,]$/ && begin == FNR { begin = 0 }
        /^[^(]* =( |$)/ && begin == FNR { begin = 0 }  # a value, such as a table
        /^}/ {
            if (begin && /^}$/ && FNR - begin + 1 > longest) {
                printf "%s:%d: %d lines, over %d: %s\n", FILENAME, begin, FNR - begin + 1, longest, name
                found = 1
            }
            begin = 0
        }
        END { exit found }'
}

check_includes || failures=1
check_files || failures=1
check_functions || failures=1
exit "$failures"
