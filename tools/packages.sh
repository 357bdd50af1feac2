# shellcheck shell=bash
# Sourced by ./run and ./test, not executed: makes sure that the Debian packages of a list are installed. packages.txt has
# what both always need, packages-*.txt what one of their commands or lanes needs besides.

# The package names of file $1, one a line; everything behind a number sign is commentary.
packages_listed() {
    sed -e 's/#.*//' -e 's/[[:space:]]//g' -e '/^$/d' "$1"
}

# The packages of file $1 that are not fully installed, one a line.
packages_missing() {
    local package status
    while read -r package; do
        status=$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) || status=absent
        [ "$status" = installed ] || echo "$package"
    done < <(packages_listed "$1")
}

# Installs as root what file $1 asks for and the machine lacks. Nothing missing needs neither root nor network.
# Anybody else gets the exact command to have run and status 1.
ensure_packages() {
    local list=$1 missing
    if [ ! -f "$list" ] || [ ! -r "$list" ]; then
        echo "the list of packages cannot be read: $list" >&2
        return 1
    fi
    mapfile -t missing < <(packages_missing "$list")
    [ ${#missing[@]} -gt 0 ] || return 0

    if [ "$(id -u)" -ne 0 ]; then
        echo "These packages are missing; install them and try again:" >&2
        echo "  sudo apt-get install --no-install-recommends ${missing[*]}" >&2
        return 1
    fi
    echo "Installing missing packages: ${missing[*]}" >&2
    if ! DEBIAN_FRONTEND=noninteractive apt-get update -qq >&2 ||
        ! DEBIAN_FRONTEND=noninteractive apt-get install -qq -y --no-install-recommends "${missing[@]}" >&2; then
        echo "apt-get could not install: ${missing[*]}" >&2
        return 1
    fi
}
