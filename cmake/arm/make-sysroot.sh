#!/usr/bin/env bash
# Makes a sysroot of Debian's armhf libraries for the cross build: the packages are downloaded
# with a private apt state and unpacked with dpkg -x. The machine's own dpkg never learns of
# armhf, so its amd64 packages can take updates that the armhf index lacks.
#
# Usage: make-sysroot.sh DIR PACKAGE...
set -euo pipefail
root=$(realpath -m "$1")
shift
stamp="$root/.packages"
wanted="$*"
if [ -f "$stamp" ] && [ "$(cat "$stamp")" = "$wanted" ]; then
    exit 0
fi

apt_dir="$root/.apt"
rm -rf "$root"
mkdir -p "$apt_dir/lists/partial" "$apt_dir/archives/partial" "$apt_dir/sources.list.d" "$root/debs"
touch "$apt_dir/status"
# Debian's own archives only: third-party repositories rarely carry armhf.
for f in /etc/apt/sources.list.d/*.sources /etc/apt/sources.list.d/*.list /etc/apt/sources.list; do
    [ -f "$f" ] && grep -q 'debian' "$f" && ! grep -q 'Architectures: *amd64' "$f" && cp "$f" "$apt_dir/sources.list.d/"
done
APT=(-o "Dir::State=$apt_dir" -o "Dir::State::status=$apt_dir/status" -o "Dir::Cache=$apt_dir"
     -o "Dir::Etc::SourceList=/dev/null" -o "Dir::Etc::SourceParts=$apt_dir/sources.list.d"
     -o "APT::Architecture=armhf" -o "APT::Architectures::=armhf" -o "Debug::NoLocking=1" -o "APT::Sandbox::User=root"
     -o "APT::Get::AllowUnauthenticated=false" -o "APT::Install-Recommends=false")
# An index that fails (a mirror mid-sync) is only a warning: what it lacks fails below.
apt-get "${APT[@]}" -qq update || echo "make-sysroot: some armhf indexes failed; using what arrived" >&2

# The whole dependency closure, less what the cross toolchain brings itself (its C library,
# libstdc++ and the kernel headers) and programs that would not run here anyway.
toolchain='^(libc6|libc6-dev|libc-dev-bin|libgcc-s1|libgcc-12-dev|libstdc\+\+6|libstdc\+\+-12-dev|gcc-12-base|linux-libc-dev|libcrypt1|libcrypt-dev|libnsl2|libnsl-dev|libtirpc3|libtirpc-dev|libtirpc-common|rpcsvc-proto|libasan8|libubsan1|libatomic1|libgomp1|libisl23|libmpc3|libmpfr6|libgmp10|cpp|cpp-12|gcc|gcc-12|g\+\+|g\+\+-12|binutils.*|libbinutils|libctf.*|libgprofng0|libjansson4|libkrb5.*|libk5crypto3|libgssapi-krb5-2|libcom-err2|libkeyutils1|libssl3|pkg-config|pkgconf|pkgconf-bin|libpkgconf3|perl.*|libperl.*|debconf|dpkg|tar|install-info|mime-support|media-types|tzdata|readline-common|libreadline8|libncursesw6|libdb5.3|libgdbm.*|libmpdec3|libpython3.*|python3.*|netbase|sensible-utils|libcc1-0|libhwasan0|liblsan0|libtsan2|libitm1|libquadmath0)$'
mapfile -t all < <(apt-get "${APT[@]}" -s install "$@" | awk '/^Inst /{print $2}')
[ ${#all[@]} -gt 0 ] || { echo "make-sysroot: apt found nothing to install for: $*" >&2; exit 1; }
keep=()
for p in "${all[@]}"; do
    [[ "$p" =~ $toolchain ]] || keep+=("$p")
done
(cd "$root/debs" && apt-get "${APT[@]}" -qq download "${keep[@]}")
for deb in "$root"/debs/*.deb; do
    dpkg-deb -x "$deb" "$root"
done
# Absolute links inside the packages point into the host; make them point into the sysroot.
find "$root" -type l -lname '/*' | while read -r link; do
    target=$(readlink "$link")
    ln -sfn "$root$target" "$link"
done
rm -rf "$root/debs" "$apt_dir/archives"
echo "$wanted" > "$stamp"
echo "make-sysroot: ${#keep[@]} armhf packages unpacked in $root"
