# shellcheck shell=bash
# Sourced by the commands: installs those Debian packages of dev/packages.txt that are missing.

# vesk_packages GROUP...: names of the packages that stand in one of the groups.
vesk_packages() {
    local list="$1"
    shift
    local group
    for group in "$@"; do
        awk -v group="$group" '!/^#/ && $2 == group { print $1 }' "$list"
    done
}

# vesk_missing PACKAGE...: those that aren't installed.
vesk_missing() {
    local package state
    for package in "$@"; do
        state=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null) || state=absent
        [ "$state" = installed ] || echo "$package"
    done
}

# vesk_apt ARGUMENT...: apt-get as root or through sudo, without questions.
vesk_apt() {
    local -a command=(env DEBIAN_FRONTEND=noninteractive
        apt-get -y -o DPkg::Lock::Timeout=120 "$@")
    if [ "$(id -u)" -ne 0 ]; then
        command=(sudo "${command[@]}")
    fi
    "${command[@]}"
}

# vesk_setup ROOT GROUP...: makes the packages of the groups available, or ends with a message.
vesk_setup() {
    local root="$1"
    shift
    if ! command -v dpkg-query >/dev/null 2>&1; then
        echo "setup: this isn't a Debian system; install the counterparts of dev/packages.txt" \
            "yourself. Going on." >&2
        return 0
    fi
    local -a wanted missing
    mapfile -t wanted < <(vesk_packages "$root/dev/packages.txt" "$@")
    mapfile -t missing < <(vesk_missing "${wanted[@]}")
    if [ "${#missing[@]}" -eq 0 ]; then
        return 0
    fi
    echo "setup: installing ${#missing[@]} Debian packages: ${missing[*]}"
    if [ "$(id -u)" -ne 0 ] && ! command -v sudo >/dev/null 2>&1; then
        echo "setup: this needs root or sudo. As root, run: apt-get install ${missing[*]}" >&2
        return 1
    fi
    local attempt
    for attempt in 1 2; do
        if vesk_apt update && vesk_apt install --no-install-recommends "${missing[@]}"; then
            return 0
        fi
        if [ "$attempt" -eq 1 ]; then
            echo "setup: that failed, trying once more" >&2
            sleep 5
        fi
    done
    echo "setup: the packages couldn't be installed; see apt's message above" >&2
    return 1
}

# vesk_locale: a UTF-8 locale where the machine has none, so that Chinese paths survive.
vesk_locale() {
    if [ "$(locale charmap 2>/dev/null)" != UTF-8 ]; then
        export LC_ALL=C.UTF-8
    fi
}
