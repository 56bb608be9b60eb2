#!/usr/bin/env bash
# The page's libraries for WebAssembly, built from Debian's own source packages: the versions this
# machine runs natively, with Debian's patches, so that the page draws the glyphs the native
# build draws. Everything lands under build/web: the private apt state that holds the source
# line, the sources, emscripten's cache and the installed libraries (build/web/sysroot). A
# library already installed there is not built again.
#
# deps.sh [ROOT]   (ROOT defaults to build/web of this checkout)
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
root=${1:-$here/../../build/web}
mkdir -p "$root"
root=$(cd "$root" && pwd)
prefix=$root/sysroot
mkdir -p "$prefix/include" "$prefix/lib" "$root/src" "$root/deps"

# Debian's emscripten ships its system libraries prebuilt, behind a frozen cache; ours is a
# copy of it (hard links) that the build may lock and read.
export EM_CACHE=$root/em-cache NODE_PATH=/usr/share/nodejs
[ -d "$EM_CACHE" ] || cp -al /usr/share/emscripten/cache "$EM_CACHE"
# Every object of a threaded wasm program must be built for shared memory; the library and its
# applications catch C++ exceptions, which emscripten leaves out unless asked.
export CFLAGS="-O2 -pthread" CXXFLAGS="-O2 -pthread -fexceptions"

# The system's apt has no source line: a state of our own with one.
apt_state=$root/apt
apt_options=(-o Dir::Etc::SourceList=/dev/null -o Dir::Etc::SourceParts="$apt_state/sources"
             -o Dir::State::Lists="$apt_state/lists" -o Dir::Cache="$apt_state/cache")
apt_get() { apt-get -q "${apt_options[@]}" "$@"; }
if [ ! -f "$apt_state/updated" ]; then
    mkdir -p "$apt_state/sources" "$apt_state/lists/partial" "$apt_state/cache/archives/partial"
    sed 's/^Types: deb$/Types: deb-src/' /etc/apt/sources.list.d/debian.sources > "$apt_state/sources/debian.sources"
    apt_get update > "$apt_state/update.log" 2>&1 || { cat "$apt_state/update.log"; exit 1; }
    touch "$apt_state/updated"
fi

# source NAME BINARY: unpacks (patched) the source package NAME at the version of the installed
# binary package BINARY, or the newest listed that downloads; prints the folder.
source_of() {
    local name=$1 binary=$2 dir=$root/src/$1
    if [ ! -f "$dir/.unpacked" ]; then
        local want versions version
        want=$(dpkg-query -W -f='${Version}' "$binary" 2>/dev/null || true)
        versions=$(apt-cache "${apt_options[@]}" showsrc "$name" 2>/dev/null | awk '/^Version:/ { print $2 }' |
            sort -rV | uniq)
        rm -rf "$root/src/$name.download" && mkdir -p "$root/src/$name.download"
        for version in $want $versions; do
            (cd "$root/src/$name.download" && apt_get source --download-only "$name=$version" > fetch.log 2>&1) &&
                break
            rm -f "$root/src/$name.download"/*.{dsc,xz,gz,bz2}
        done
        local dsc
        dsc=$(ls "$root/src/$name.download"/*.dsc 2>/dev/null | head -1)
        [ -n "$dsc" ] || { echo "cannot download the source of $name" >&2; exit 1; }
        rm -rf "$dir"
        dpkg-source --no-check -x "$dsc" "$dir" > "$root/src/$name.unpack.log"
        touch "$dir/.unpacked"
    fi
    echo "$dir"
}

cmake_install() { # cmake_install NAME SOURCE [OPTIONS...]
    local name=$1 src=$2
    shift 2
    emcmake cmake -S "$src" -B "$root/deps/$name" -G Ninja -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_INSTALL_PREFIX="$prefix" -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_FIND_ROOT_PATH="$prefix" \
        -DBUILD_SHARED_LIBS=OFF "$@" > "$root/deps/$name.log" 2>&1 &&
        cmake --build "$root/deps/$name" --target install >> "$root/deps/$name.log" 2>&1 ||
        { tail -30 "$root/deps/$name.log"; exit 1; }
}

# c_library NAME SOURCE FILES...: a library that is only a handful of C files, built as such.
c_library() {
    local name=$1 src=$2
    shift 2
    mkdir -p "$root/deps/$name"
    rm -f "$root/deps/$name"/*.o
    for c in "$@"; do
        emcc $CFLAGS -c "$src/$c.c" -o "$root/deps/$name/$c.o"
    done
    emar rcs "$prefix/lib/lib$name.a" "$root/deps/$name"/*.o
}

built() { [ -f "$prefix/.$1" ]; }
done_with() { touch "$prefix/.$1"; echo "built $1 ($(($(date +%s) - start)) s)"; }

start=$(date +%s)
if ! built zlib; then
    # Debian's source leaves out the Windows files its CMake build names: the C files alone.
    src=$(source_of zlib zlib1g)
    CFLAGS="$CFLAGS -DHAVE_UNISTD_H -DHAVE_STDARG_H" c_library z "$src" adler32 compress crc32 deflate gzclose gzlib gzread gzwrite infback inffast inflate \
        inftrees trees uncompr zutil
    cp "$src/zlib.h" "$src/zconf.h" "$prefix/include/"
    # What libpng and FreeType name when they are looked up with pkg-config.
    mkdir -p "$prefix/lib/pkgconfig"
    version=$(sed -n 's/^#define ZLIB_VERSION "\(.*\)"/\1/p' "$src/zlib.h")
    printf 'prefix=%s\nName: zlib\nDescription: zlib compression library\nVersion: %s\nLibs: -L${prefix}/lib -lz\nCflags: -I${prefix}/include\n' \
        "$prefix" "$version" > "$prefix/lib/pkgconfig/zlib.pc"
    done_with zlib
fi
if ! built libpng; then
    src=$(source_of libpng1.6 libpng16-16)
    cmake_install libpng "$src" -DPNG_SHARED=OFF -DPNG_TESTS=OFF \
        -DPNG_EXECUTABLES=OFF -DPNG_HARDWARE_OPTIMIZATIONS=OFF -DZLIB_ROOT="$prefix"
    done_with libpng
fi
if ! built freetype; then
    # As the native library is configured where it matters for glyphs, with the zlib above (as
    # Debian's uses the system's) rather than its own copy.
    src=$(source_of freetype libfreetype6)
    cmake_install freetype "$src" -DFT_DISABLE_HARFBUZZ=ON -DFT_DISABLE_BZIP2=ON \
        -DFT_DISABLE_PNG=ON -DFT_DISABLE_BROTLI=ON -DFT_REQUIRE_ZLIB=ON
    done_with freetype
fi
if ! built giflib; then
    # giflib builds with a plain Makefile.
    src=$(source_of giflib libgif7)
    c_library gif "$src" dgif_lib egif_lib gifalloc gif_err gif_font gif_hash openbsd-reallocarray quantize
    cp "$src/gif_lib.h" "$prefix/include/"
    done_with giflib
fi
if ! built sndfile; then
    # WAV only: none of the external codecs.
    src=$(source_of libsndfile libsndfile1)
    cmake_install sndfile "$src" -DBUILD_PROGRAMS=OFF -DBUILD_EXAMPLES=OFF \
        -DBUILD_TESTING=OFF -DENABLE_EXTERNAL_LIBS=OFF -DENABLE_MPEG=OFF -DENABLE_CPACK=OFF -DBUILD_REGTEST=OFF
    done_with sndfile
fi
if ! built boost; then
    # The headers, and the three compiled parts the library names (date_time and system are
    # stubs in this version; filesystem is real).
    src=$(source_of boost1.74 libboost1.74-dev)
    rm -rf "$prefix/include/boost"
    # The source is modular: each library's headers under libs/*/include, merged here.
    find "$src/libs" -type d -path '*/include/boost' -prune | while read -r headers; do
        cp -r "$headers" "$prefix/include/"
    done
    mkdir -p "$root/deps/boost"
    (
        cd "$root/deps/boost"
        flags=(-std=c++17 $CXXFLAGS -DNDEBUG -DBOOST_ALL_NO_LIB -I"$prefix/include")
        # The sources each library's Jamfile names.
        for part in filesystem:"$(cd "$src/libs/filesystem/src" && ls ./*.cpp)" \
            date_time:gregorian/greg_month.cpp system:error_code.cpp; do
            rm -f ./*.o
            for cpp in ${part#*:}; do
                em++ "${flags[@]}" -c "$src/libs/${part%%:*}/src/$cpp" -o "$(basename "$cpp" .cpp).o"
            done
            emar rcs "$prefix/lib/libboost_${part%%:*}.a" ./*.o
        done
    )
    done_with boost
fi
echo "wasm libraries in $prefix ($(($(date +%s) - start)) s)"
