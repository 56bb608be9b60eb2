#!/usr/bin/env bash
# Installs the build into a scratch prefix and builds a consumer with find_package and with
# pkg-config. Usage: check.sh BUILD_DIR SOURCE_DIR WORK_DIR
set -euo pipefail
build=$1 source=$2 work=$3
rm -rf "$work" "$work.install.log"
# What a terminal image takes (the library, the platform) holds no host control; the testing kit does.
for component in library library_dev platform platform_dev; do
    cmake --install "$build" --prefix "$work/prefix" --component $component >> "$work.install.log" 2>&1 ||
        { cat "$work.install.log"; exit 1; }
done
prefix=$work/prefix
libdir=$(dirname "$(find "$prefix" -name 'libui.so' | head -1)")
for f in include/ui/ui.hpp include/ui/TextBox.hpp include/utl/thread.hpp include/ui-host/xui.h include/ui-host/osal/log.hpp; do
    [ -f "$prefix/$f" ] || { echo "missing $f"; exit 1; }
done
[ -n "$(find "$prefix" -name 'libui.so.1.2.1.0')" ] || { echo "no versioned libui"; exit 1; }
if find "$prefix" -name xui_host.hpp -o -name host.hpp | grep .; then
    echo "host controls installed"; exit 1
fi
for component in app session testing; do
    cmake --install "$build" --prefix "$work/prefix" --component $component >> "$work.install.log" 2>&1 ||
        { cat "$work.install.log"; exit 1; }
done
cmake -S "$source" -B "$work/cmake" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" > "$work.cmake.log" 2>&1 &&
    cmake --build "$work/cmake" >> "$work.cmake.log" 2>&1 || { cat "$work.cmake.log"; exit 1; }
LD_LIBRARY_PATH=$libdir "$work/cmake/consumer"
PKG_CONFIG_PATH=$libdir/pkgconfig c++ -std=c++17 "$source/main.cpp" -o "$work/pkgconfig_consumer" \
    $(PKG_CONFIG_PATH=$libdir/pkgconfig pkg-config --cflags --libs ui)
LD_LIBRARY_PATH=$libdir "$work/pkgconfig_consumer"
# The testing kit's pkg-config file names everything a suite links.
PKG_CONFIG_PATH=$libdir/pkgconfig pkg-config --libs ui-testing | grep -q -- -lui_testing ||
    { echo "ui-testing.pc does not link the kit"; exit 1; }
echo "installed, found by CMake and by pkg-config"
