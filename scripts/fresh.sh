#!/usr/bin/env bash
# fresh.sh [bookworm|trixie|sid [user]]: tries what the README promises. Makes an empty Debian of that name (default:
# trixie), clones the committed tree into it and runs scripts/run.sh and scripts/test.sh there, with nothing installed
# and nothing in the environment. Shows the last lines of both; their whole output and the picture are in build/fresh
# afterwards. Fails if one of the two fails.
#
# With `user`, an ordinary user without any rights runs the two. Where packages are missing, root installs those that
# the script asks for, and the user runs it again.
#
# Needs root, about 8 GB of disk and the archive from which this machine's apt installs. The new Debian has mounts and
# process ids of its own, so nothing of it remains when the script ends, however it ends.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/common.sh

usage="usage: scripts/fresh.sh [bookworm|trixie|sid [user]]"
name=${1:-trixie} account=${2:-root}
(($# <= 2)) || die "$usage"
[[ $name == bookworm || $name == trixie || $name == sid ]] || die "$usage"
[[ $account == root || $account == user ]] || die "$usage"
((EUID == 0)) || die "this needs root: it mounts, and changes the root folder"

results=$build/fresh
debian=$results/$name
tree=/plotvane # in the new Debian
keys=/usr/share/keyrings/debian-archive-keyring.gpg
last_lines=6

# Where apt finds the packages of the Debian that runs here.
archive() {
    local codename
    codename=$(sed -n 's/^VERSION_CODENAME=//p' /etc/os-release)
    apt-get indextargets --format '$(RELEASE) $(COMPONENT) $(REPO_URI)' 'Identifier: Packages' |
        awk -v codename="$codename" '$1 == codename && $2 == "main" && !found { found = 1; print $3 }'
}

make_debian() {
    local mirror log=$results/$name-debootstrap.log
    mirror=$(archive)
    [[ -n $mirror ]] || die "apt knows no archive of this Debian"
    say "making an empty Debian, $name"
    debootstrap --variant=minbase --keyring="$keys" "$name" "$debian" "$mirror" >"$log" 2>&1 || {
        tail -n "$last_lines" "$log" >&2
        die "debootstrap failed; if it lacks a key, a newer debian-archive-keyring may have it"
    }
}

# Lets the new Debian reach the archive as this machine does: names, proxies, certificates.
connect_debian() {
    local settings=$debian/etc/apt/apt.conf.d/99-this-machine certificates=/usr/local/share/ca-certificates
    cp -L /etc/resolv.conf /etc/hosts "$debian/etc"
    apt-config dump | grep -E '^Acquire::(https?::|Check-|Force|Retries)' >"$settings" || true
    [[ -z ${http_proxy:-} ]] || echo "Acquire::http::Proxy \"$http_proxy\";" >>"$settings"
    [[ -z ${https_proxy:-} ]] || echo "Acquire::https::Proxy \"$https_proxy\";" >>"$settings"
    [[ ! -d $certificates ]] || cp -rL "$certificates" "$debian${certificates%/*}"
    [[ ! -x $debian/usr/sbin/update-ca-certificates ]] || chroot "$debian" update-ca-certificates >/dev/null
}

# Clones through a bundle, because git refuses to clone a tree that belongs to another user.
clone_tree() {
    local bundle=$debian/tree.bundle
    repository() { git -c safe.directory="$root" "$@"; }
    [[ -z $(repository status --porcelain) ]] || say "warning: the tree has changes that no commit holds"
    say "cloning: $(repository log -1 --format='%h, %s')"
    repository bundle create --quiet "$bundle" HEAD
    git -c advice.detachedHead=false clone --quiet "$bundle" "$debian$tree"
    rm "$bundle"
}

make_account() {
    [[ $account == root ]] || chroot "$debian" useradd --create-home "$account"
    chroot "$debian" chown -R "$account:" "$tree"
}

# The packages that a script has asked for in its log; none if it had all.
packages_asked_for() { sed -n 's/^error: missing packages; as root, please: apt-get install //p' "$1"; }

in_debian() { chroot "$debian" /usr/bin/env -i DEBIAN_FRONTEND=noninteractive "$@" </dev/null; }

install_in_debian() {
    say "installing what it asks for"
    in_debian apt-get -q update && in_debian apt-get -q install -y --no-install-recommends "$@"
}

run_script() { chroot --userspec="$account" "$debian" /usr/bin/env -i "$tree/$1" </dev/null; }

# try run|test: runs that script there and shows how it ended.
try() {
    local script=scripts/$1.sh log=$results/$name-$1.log begin=$SECONDS status=0 packages
    say "running $script as $account"
    run_script "$script" >"$log" 2>&1 || status=$?
    read -ra packages < <(packages_asked_for "$log") || true
    if ((${#packages[@]})); then
        status=0
        { install_in_debian "${packages[@]}" && run_script "$script"; } >"$log" 2>&1 || status=$?
    fi
    say "$script ended with $status after $((SECONDS - begin)) s; its last lines:"
    tail -n "$last_lines" "$log" | sed 's/^/    /'
    return "$status"
}

show_versions() {
    chroot "$debian" /usr/bin/env -i /bin/bash -c '
        . /etc/os-release
        echo "$PRETTY_NAME"
        for program in x86_64-w64-mingw32-g++-posix g++ clang cmake wine; do
            "$program" --version 2>/dev/null | head -1
        done' | sed 's/^/    /'
}

# Has mounts and process ids of its own, which end with it.
try_all() {
    local failures=0
    make_debian
    connect_debian
    clone_tree
    make_account
    # No /sys: many containers have none.
    mount -t proc proc "$debian/proc"
    mount -t tmpfs -o mode=1777 tmpfs "$debian/dev/shm"
    try run || failures=1
    cp "$debian$tree/build/run/live.png" "$results/$name-live.png" || failures=1
    try test || failures=1
    say "the versions were:"
    show_versions
    return "$failures"
}

# Kills what runs in the new Debian: nothing of it is kept.
end_debian() {
    local status=$? group
    trap - EXIT INT TERM HUP
    for group in "${groups[@]}"; do
        kill -KILL -- "-$group" 2>/dev/null || true
    done
    wait 2>/dev/null
    # A process that is ending may still be writing; repeat until all are gone.
    wait_for 60 rm -rf --one-file-system "$debian" 2>/dev/null || say "warning: $debian could not be removed"
    exit "$status"
}

if [[ -n ${PLOTVANE_FRESH:-} ]]; then
    try_all
    exit
fi

need_packages debootstrap debian-archive-keyring gpgv git
mkdir -p "$results"
exec 9>"$results/.lock-$name"
flock -n 9 || die "another script makes $debian"
trap end_debian EXIT
rm -rf --one-file-system "$debian" "$results/$name"-* # left by a killed run, and by the last one
PLOTVANE_FRESH=1 watched unshare --mount --pid --fork --kill-child "$0" "$name" "$account" || die "$name: see above"
say "both commands work on $name; their output and the picture: $results/$name-*"
