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
for component in platform platform_dev; do
    cmake --install "$build" --component $component --prefix "$work/platform" >> "$log" 2>&1 || fail "no SDK"
done
# A vendor's SDK holds include/ and lib/; ours are under folders of our own.
mkdir -p "$work/sdk"
ln -s "$work/platform/include/ui-host" "$work/sdk/include"
ln -s "$(dirname "$(find "$work/platform" -name 'libxui.so' | head -1)")" "$work/sdk/lib"
ln -s "$work/platform/share" "$work/sdk/share"
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
# The terminal's image takes the library alone; an application's build takes its development
# files and the application layer from components of their own.
cmake --install "$work/build" --component library --prefix "$work/image" >> "$log" 2>&1 || fail "install failed"
installed=$(cd "$work/image" && find . -type f -o -type l | sort | tr '\n' ' ')
[ "$installed" = "./lib/libui.so.1 ./lib/libui.so.1.2.1.0 " ] || fail "installed: $installed"
for component in library_dev app; do
    cmake --install "$work/build" --component $component --prefix "$work/image" >> "$log" 2>&1 ||
        fail "$component install failed"
done
[ -f "$work/image/include/ui/ui.hpp" ] && [ -L "$work/image/lib/libui.so" ] || fail "no development files"
[ -z "$(cd "$work/image" && find . -name 'xui.h' -o -path '*osal*')" ] || fail "a stand-in was installed"
installed=$(cd "$work/image" && find . -name '*.a' -o -path '*/app/*' -o -name 'uiApp*' -o -name 'ui-app.pc' | sort | tr '\n' ' ')
[ "$installed" = "./include/ui/app/AppThread.hpp ./include/ui/app/Screen.hpp ./lib/cmake/ui/uiAppTargets-noconfig.cmake ./lib/cmake/ui/uiAppTargets.cmake ./lib/libui_app.a ./lib/pkgconfig/ui-app.pc " ] ||
    fail "installed with the application layer: $installed"

# An application for the terminal: the example, from the same sources as on a PC, against the
# library and the application layer as installed for the terminal and the SDK; no simulator,
# no tests. Then run on the device (a cross build's emulator, UI_EMULATOR): it shows its screen,
# takes the keys of an amount and plays a card its stubbed reader taps.
cmake -S "$source/examples/pay" -B "$work/example" -G Ninja -Dui_DIR="$work/image/lib/cmake/ui" \
    -DUI_VENDOR_ROOT="$work/sdk" "$@" >> "$log" 2>&1 || fail "the example does not configure"
cmake --build "$work/example" >> "$log" 2>&1 || fail "the example does not build"
example=$(cd "$work/example" && find . -type f \( -name 'pay-*' -o -name 'pay_tests' \) | sort | tr '\n' ' ')
[ "$example" = "./pay-terminal " ] || fail "the example built: $example"
mkdir -p "$work/device/res"
for entry in "$work/sdk/share/ui/res/"*; do
    [ "$(basename "$entry")" = strings ] || ln -s "$entry" "$work/device/res/"
done
ln -s "$source/examples/pay/res/strings" "$work/device/res/strings"
# The device's libraries are where its loader looks; here, the image's and the SDK's.
libs=$work/image/lib:$work/sdk/lib
emulator=${UI_EMULATOR:-}
if [[ $emulator =~ LD_LIBRARY_PATH=([^ ]*) ]]; then
    emulator="$emulator -E LD_LIBRARY_PATH=$libs:${BASH_REMATCH[1]}"
fi
# shellcheck disable=SC2086 # the emulator is a command line
(cd "$work/device" && LD_LIBRARY_PATH=$libs $emulator "$work/example/pay-terminal" --smoke) >> "$log" 2>&1 ||
    fail "the example does not run on the device"
# The README's road, its last step: the same project built for the terminal.
"$source/tests/install/road.sh" "$source/README.md" "$work/road"
cmake -S "$work/road" -B "$work/road/build" -G Ninja -Dui_DIR="$work/image/lib/cmake/ui" \
    -DUI_VENDOR_ROOT="$work/sdk" "$@" >> "$log" 2>&1 && cmake --build "$work/road/build" >> "$log" 2>&1 ||
    fail "the README's road does not build for the terminal"
[ -x "$work/road/build/hello-terminal" ] && [ ! -e "$work/road/build/hello-sim" ] || fail "the road built other programs"
echo "built for the vendor's platform: $built; the example runs there: $(grep '^amount' "$log"); the README's road builds"
