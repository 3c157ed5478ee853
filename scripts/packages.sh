# Sourced by demo.sh and test.sh: installs Debian packages that are missing.

# What a build needs. igraph's reader of network files is left out where there is none.
build_packages=(
    g++=g++ cmake=cmake make=make
    /usr/include/CLI/CLI.hpp=libcli11-dev
    /usr/include/fmt/core.h=libfmt-dev
    /usr/include/toml++/toml.h=libtomlplusplus-dev
    /usr/include/nlohmann/json.hpp=nlohmann-json3-dev
    '/usr/include/igraph/igraph.h?libigraph-dev'
    # Makes PDF and PNG of figures; the tool does without.
    'rsvg-convert?librsvg2-bin'
)

# Each argument is PROBE=PACKAGE or PROBE?PACKAGE. A probe is a command, or the absolute path of a
# file, that shows that the package (or something as good) is there already. A package behind "?" is
# left out when the package lists do not know it.
#
# All that is missing is installed by one apt-get call, which is announced first. Where the package
# lists are empty they are fetched as part of the same step.
install_missing() {
    local entry probe package missing=() wanted=() as_root=()
    for entry in "$@"; do
        probe=${entry%%[=?]*}
        case $probe in
            /*) [ -e "$probe" ] || missing+=("$entry") ;;
            *) command -v "$probe" >/dev/null 2>&1 || missing+=("$entry") ;;
        esac
    done
    if [ ${#missing[@]} -eq 0 ]; then
        return 0
    fi
    if ! command -v apt-get >/dev/null 2>&1; then
        echo "Missing here: ${missing[*]##*[=?]}"
        echo "This is no Debian system, so please install what these packages hold and start again."
        return 1
    fi
    if [ "$(id -u)" -ne 0 ]; then
        as_root=(sudo)
    fi
    if [ -z "$(find /var/lib/apt/lists -maxdepth 1 -name '*_Packages*' 2>/dev/null | head -n 1)" ]; then
        echo "The package lists are empty: ${as_root[*]:+sudo }apt-get update"
        "${as_root[@]}" apt-get update -q
    fi
    for entry in "${missing[@]}"; do
        package=${entry##*[=?]}
        if [[ $entry == *=* ]] || apt-cache show "$package" >/dev/null 2>&1; then
            wanted+=("$package")
        else
            echo "The package lists do not know $package: going on without it."
        fi
    done
    if [ ${#wanted[@]} -eq 0 ]; then
        return 0
    fi
    echo "Installing what is missing: ${as_root[*]:+sudo }apt-get install ${wanted[*]}"
    apt_install() {
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get install -q -y --no-install-recommends "${wanted[@]}"
    }
    if ! apt_install; then
        echo "That failed. The package lists may be old: ${as_root[*]:+sudo }apt-get update, then again."
        "${as_root[@]}" apt-get update -q
        apt_install
    fi
}
