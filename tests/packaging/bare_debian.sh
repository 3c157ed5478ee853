#!/usr/bin/env bash
# Installs a Debian package of Ovri by apt in a bare Debian and lets the tool there estimate networks.
#
# usage: bare_debian.sh DEB DIRECTORY
#
# The bare system (of this machine's release, from its package sources) is made in DIRECTORY, which is
# removed at the end; DIRECTORY.tar is kept, and unpacked the next time. Status 0: it works; 1: it does
# not; 77: it cannot be tried here, the last line of the output says why.
set -euo pipefail
package=$(realpath "$1") root=$(realpath -m "$2")

skip() {
    echo "$*"
    exit 77
}
fail() {
    echo "FAILED: $*"
    exit 1
}

source /etc/os-release
[ "${ID:-}" = debian ] || skip "no Debian system"
[ "$(id -u)" -eq 0 ] || skip "only root can make a bare Debian"
command -v debootstrap >/dev/null || skip "debootstrap was not found"

inside() { chroot "$root" env -i HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 \
    DEBIAN_FRONTEND=noninteractive "$@"; }

# Debian's mirror of this machine.
mirror() {
    cat /etc/apt/sources.list.d/*.sources /etc/apt/sources.list 2>/dev/null |
        awk '/^URIs:/ && !found { found = $2 } /^deb / && !found { found = $2 }
             END { print found ? found : "http://deb.debian.org/debian" }'
}

mkdir -p "$(dirname "$root")"
rm -rf --one-file-system "$root"
if [ ! -e "$root.tar" ]; then
    debootstrap --variant=minbase "$VERSION_CODENAME" "$root" "$(mirror)" >"$root.log" 2>&1 ||
        skip "debootstrap could not make a bare Debian, see $root.log"
    tar -C "$root" -cf "$root.tar.new" .
    mv "$root.tar.new" "$root.tar"
    rm -rf --one-file-system "$root"
fi
mkdir -p "$root"
trap 'rm -rf --one-file-system "$root"' EXIT
tar -C "$root" -xf "$root.tar"
rm -f "$root/etc/apt/sources.list"
cp -r /etc/apt/sources.list* /etc/apt/apt.conf.d "$root/etc/apt/"
cp /usr/share/keyrings/debian-archive-keyring.* "$root/usr/share/keyrings/"
cp /etc/resolv.conf /etc/hosts "$root/etc/"
cp "$package" "$root/root/ovri.deb"

inside apt-get update -q || skip "the package lists could not be fetched"
if inside sh -c 'command -v ovri' >/dev/null; then
    fail "the bare Debian has the tool already"
fi
inside apt-get install -q -y --no-install-recommends --simulate /root/ovri.deb ||
    fail "apt cannot find what the package depends on"
inside apt-get install -q -y --no-install-recommends --download-only /root/ovri.deb ||
    skip "packages could not be fetched"
inside apt-get install -q -y --no-install-recommends /root/ovri.deb || fail "apt cannot install it"

# An edge list of six people, and the same in a format that igraph reads.
printf 'from,to\nAnn,Ben\nBen,Cid\nAnn,Cid\nCid,Dot\nDot,Eve\nEve,Fay\n' >"$root/root/friends.csv"
printf '%s\n' '*Vertices 6' '1 "Ann"' '2 "Ben"' '3 "Cid"' '4 "Dot"' '5 "Eve"' '6 "Fay"' \
    '*Edges' '1 2' '2 3' '1 3' '3 4' '4 5' '5 6' >"$root/root/friends.net"
for network in friends.csv friends.net; do
    table=$(inside sh -c "cd /root && ovri estimate --network $network --undirected \
        --effects edge --seed 1") || fail "ovri estimate of $network ends in status $?"
    echo "$table"
    # Six ties among fifteen dyads: the logit of 0.4 is -0.405.
    grep -Eq '^edge +-0\.[34]' <<<"$table" || fail "another estimate than that of $network"
    grep -q '^converged' <<<"$table" || fail "no verdict"
done
for file in man/man1/ovri.1 man/man1/ovri-estimate.1 bash-completion/completions/ovri \
    zsh/site-functions/_ovri doc/ovri/README.md; do
    [ -s "$root/usr/share/$file" ] || fail "/usr/share/$file is not there"
done
echo "The package installs and works in a bare $PRETTY_NAME."
