# What the scripts of this folder share; sourced, never run.
#
# Everything that these functions start ends with the script, however it ends: the virtual display, the window
# manager, the programs under Wine and what `watched` runs.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=$root/build
logs=$build/logs
mkdir -p "$logs"

# A bare environment (a service, `env -i`) lacks these; Wine, openbox and ccache need them.
export PATH=${PATH:-/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin}
export HOME=${HOME:-$build/home}
export LC_ALL=C.UTF-8
mkdir -p "$HOME"
# The scripts end the programs of their prefix, so they must not use the caller's.
unset WINEPREFIX

say() { printf '[%4d s] %s\n' "$SECONDS" "$*"; }
die() {
    printf 'error: %s\n' "$*" >&2
    exit 1
}

build_packages=(g++ cmake ninja-build g++-mingw-w64-x86-64-posix googletest)
test_packages=(libgtest-dev libgmock-dev libcmark-gfm-dev libcmark-gfm-extensions-dev libyaml-dev locales)
clang_packages=(clang libclang-rt-dev)  # for the presets native and fuzz
run_packages=(wine wine64 fonts-wine fonts-liberation xvfb openbox imagemagick)
package_packages=(git zip unzip cmark-gfm nsis imagemagick)

# need_packages PACKAGE...: installs the missing ones with apt.
need_packages() {
    local missing=() package as_root=()
    local installed
    command -v dpkg-query >/dev/null || die "this needs Debian (or a system like it) with these packages: $*"
    installed=$(dpkg-query -W -f '${Package} ${db:Status-Status}\n' "$@" 2>/dev/null || true)
    for package in "$@"; do
        grep -qx "$package installed" <<<"$installed" || missing+=("$package")
    done
    ((${#missing[@]})) || return 0

    if ((EUID != 0)); then
        # Without a terminal nobody can type a password, so sudo may not ask for one either.
        if ! command -v sudo >/dev/null || { [[ ! -t 0 ]] && ! sudo -n true 2>/dev/null; }; then
            die "missing packages; as root, please: apt-get install ${missing[*]}"
        fi
        as_root=(sudo)
    fi
    say "installing ${missing[*]}"
    "${as_root[@]}" apt-get -q update >"$logs/apt.log" 2>&1 &&
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q install -y --no-install-recommends \
            "${missing[@]}" >>"$logs/apt.log" 2>&1 </dev/null ||
        { tail -n 20 "$logs/apt.log" >&2; die "apt-get failed, see $logs/apt.log"; }
}

# take_turn: lets one script at a time run in a tree, because two would share the Wine prefix, and with it the
# single-instance mutex. A script that another script starts shares its turn.
take_turn() {
    [[ ${PLOTVANE_TURN:-} != "$root" ]] || return 0
    export PLOTVANE_TURN=$root
    exec 9>"$build/.lock"
    flock -n 9 || die "another script is running in $root"
}

scratch=""  # folder of our own, made when first needed
groups=()   # process groups of our own, by the id of their first process
prefixes=() # Wine prefixes in which we run programs

# watched COMMAND...: runs a command in a process group of its own and waits for it, so that an interrupted script can
# end it with everything that it started.
watched() {
    setsid "$@" 9>&- </dev/null &
    local first=$! status=0
    groups+=("$first")
    wait "$first" || status=$?
    unset 'groups[-1]'
    return "$status"
}

end_everything() {
    local status=$? group
    trap - EXIT INT TERM HUP
    for WINEPREFIX in "${prefixes[@]}"; do
        [[ -d $WINEPREFIX ]] || continue
        wineserver -k 2>/dev/null || true
        timeout 10 wineserver -w 2>/dev/null || wineserver -k9 2>/dev/null || true
    done
    for group in "${groups[@]}"; do
        kill -TERM -- "-$group" 2>/dev/null || true
    done
    wait
    [[ -z $scratch ]] || rm -rf "$scratch"
    exit "$status"
}
trap end_everything EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

# wait_for SECONDS COMMAND...: repeats the command until it succeeds; fails when the time is over.
wait_for() {
    local deadline=$((SECONDS + $1))
    shift
    until "$@"; do
        ((SECONDS < deadline)) || return 1
        sleep 0.02
    done
}

# start_display [WIDTHxHEIGHT]: starts a display of our own with a window manager. Without a window manager, Wine's
# windows have no title bar, and Wine waits two seconds each time a window disappears.
start_display() {
    scratch=$(mktemp -d)
    local number=$scratch/number ready=$scratch/ready
    setsid Xvfb -displayfd 8 -screen 0 "${1:-1280x1024}x24" -nolisten tcp -noreset \
        8>"$number" 9>&- >"$logs/xvfb.log" 2>&1 </dev/null &
    groups+=($!)
    wait_for 20 test -s "$number" || { cat "$logs/xvfb.log" >&2; die "the virtual display did not start"; }
    DISPLAY=:$(<"$number")
    export DISPLAY
    setsid openbox --sm-disable --startup "touch $ready" 9>&- >"$logs/openbox.log" 2>&1 </dev/null &
    groups+=($!)
    wait_for 20 test -e "$ready" || { cat "$logs/openbox.log" >&2; die "the window manager did not start"; }
}

# prepare_wine [NAME]: makes the prefix (Wine's idea of a Windows machine) in the build folder, unless it is there.
prepare_wine() {
    export WINEPREFIX=$build/${1:-wine} WINEARCH=win64 WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
    prefixes+=("$WINEPREFIX")
    local made=$WINEPREFIX/.made-2 # in its present form
    [[ -e $made ]] && return
    say "making the Wine prefix $WINEPREFIX"
    rm -rf "$WINEPREFIX"
    watched timeout 120 wineboot -i >"$logs/wineboot.log" 2>&1 || {
        cat "$logs/wineboot.log" >&2
        die "Wine could not make its prefix"
    }
    # The symbols on title bars. Debian's Wine does not find them where its package puts them.
    local signs=/usr/share/wine/fonts/marlett.ttf
    [[ ! -e $signs ]] || cp "$signs" "$WINEPREFIX/drive_c/windows/Fonts"
    # Windows has Arial. Without this entry, Wine replaces it with a font of the system's code page, which on a
    # Japanese system is not Liberation Sans, the one with the same widths.
    watched timeout 60 wine reg add 'HKCU\Software\Wine\Fonts\Replacements' \
        /v Arial /d 'Liberation Sans' /f >>"$logs/wineboot.log" 2>&1 || die "Wine does not keep its registry"
    timeout 60 wineserver -w || true  # the registry is written when the server ends
    # A drive on which nobody can make a file, not even root, whom no folder refuses one.
    ln -s /proc "$WINEPREFIX/dosdevices/r:"
    touch "$made"
}

# build_preset PRESET [TARGET...]: configures and builds, through ccache if it is installed. Warnings are errors if
# PLOTVANE_WERROR=ON is in the environment.
build_preset() {
    local preset=$1
    shift
    if command -v ccache >/dev/null; then
        export CCACHE_BASEDIR=$root CMAKE_C_COMPILER_LAUNCHER=ccache CMAKE_CXX_COMPILER_LAUNCHER=ccache
        export CCACHE_SLOPPINESS=pch_defines,time_macros  # or it gives up on precompiled headers
    fi
    watched cmake -S "$root" --preset "$preset" -DPLOTVANE_WERROR="${PLOTVANE_WERROR:-OFF}" \
        >"$logs/configure-$preset.log" 2>&1 || {
        cat "$logs/configure-$preset.log" >&2
        die "configuring the $preset build failed"
    }
    watched cmake --build "$build/$preset" ${1:+--target "$@"} || die "the $preset build failed"
}

# write_log ROWS STEP: prints a log as the host writes it, one row every STEP seconds. All twelve fields change from
# row to row.
write_log() {
    awk -v rows="$1" -v step="$2" 'BEGIN {
        OFS = ","; ORS = "\r\n"
        print "Friday,20,November,2026,10:15:30"
        print "038 906 019 FT,Engine control"
        print ""
        print ",Row A,\x27001,,,,Row B,\x27003,,,,Row C,\x27031"
        print ",,Engine speed,Road speed,Coolant,Supply,,Air mass,Throttle,Charge,Ignition,,Lambda,Lambda,Control,Flow"
        print ",,,,,,,,,,,,,,,"
        print "mark,time, /min, km/h, \xB0" "C, V,time, mg/str, %, mbar, %,time,,, %, l/h"
        for (row = 1; row <= rows; ++row) {
            time = sprintf("%.3f", row * step)
            wave = row % 400; if (wave > 200) wave = 400 - wave
            print row % 1000, time, 800 + 20 * wave, wave, 80 + wave / 10, 12 + wave / 100,
                time, 100 + wave, wave / 2, 1000 + wave, wave / 8,
                time, 0.9 + wave / 1000, 0.95 + wave / 2000, wave / 20, 1 + wave / 10, ""
        }
    }'
}
