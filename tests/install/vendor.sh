#!/usr/bin/env bash
# The same tree builds the library for a terminal, against the vendor's platform libraries and
# headers instead of our stand-ins. The stand-ins, installed on their own into a scratch root,
# play the vendor's SDK here. Usage: vendor.sh BUILD_DIR SOURCE_DIR WORK_DIR [CMAKE_ARGUMENT...]
# (a cross build passes its toolchain file and sysroot)
set -euo pipefail
build=$1 source=$2 work=$3
shift 3
rm -rf "$work"
log=$work.log
fail() { echo "$1"; tail -30 "$log"; exit 1; }
cmake --install "$build" --component platform --prefix "$work/sdk" > "$log" 2>&1 || fail "no SDK"
# One translation unit per batch of sources: the check is that the library finds everything in
# the vendor's headers, which the host trees already compile file by file.
cmake -S "$source" -B "$work/build" -G Ninja -DUI_PLATFORM=vendor -DUI_VENDOR_ROOT="$work/sdk" \
    -DCMAKE_UNITY_BUILD=ON "$@" \
    >> "$log" 2>&1 || fail "configure failed"
grep -q "Vendor platform: $work/sdk/lib" "$log" || fail "the vendor's libraries were not the ones found"
cmake --build "$work/build" >> "$log" 2>&1 || fail "build failed"
# Only the library and the application layer: none of our stand-ins, tests or simulator.
built=$(cd "$work/build" && find . -name '*.so*' -o -name '*.a' -o -name 'ui_tests' -o -name 'ui_demo' | sort | tr '\n' ' ')
[ "$built" = "./app/libui_app.a ./lib/libui.so ./lib/libui.so.1 ./lib/libui.so.1.2.1.0 " ] || fail "built: $built"
# The terminal's image takes the library; an application's build takes the application layer
# from its own component.
cmake --install "$work/build" --component library --prefix "$work/image" >> "$log" 2>&1 || fail "install failed"
installed=$(cd "$work/image" && find . -name '*.so*' -o -name '*.a' -o -name 'xui.h' -o -path '*osal*' -o -path '*/app/*' | sort | tr '\n' ' ')
[ "$installed" = "./lib/libui.so ./lib/libui.so.1 ./lib/libui.so.1.2.1.0 " ] || fail "installed: $installed"
cmake --install "$work/build" --component app --prefix "$work/image" >> "$log" 2>&1 || fail "app install failed"
installed=$(cd "$work/image" && find . -name '*.a' -o -path '*/app/*' -o -name 'uiApp*' -o -name 'ui-app.pc' | sort | tr '\n' ' ')
[ "$installed" = "./include/ui/app/Screen.hpp ./lib/cmake/ui/uiAppTargets-noconfig.cmake ./lib/cmake/ui/uiAppTargets.cmake ./lib/libui_app.a ./lib/pkgconfig/ui-app.pc " ] ||
    fail "installed with the application layer: $installed"
echo "built for the vendor's platform: $built"
