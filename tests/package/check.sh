#!/usr/bin/env bash
# Installs the Debian packages into a scratch root and checks what each holds and depends on,
# then that they work from there: a consumer builds against the root with find_package, and the
# installed simulator plays a session. Usage: check.sh PACKAGE_DIR EXPECTED_FILES WORK_DIR
set -euo pipefail
packages=$(realpath "$1") expected=$(realpath "$2") work=$(realpath -m "$3")
here=$(cd "$(dirname "$0")" && pwd)
rm -rf "$work"
mkdir -p "$work/root"
root=$work/root
arch=$(gcc -print-multiarch)
version=$(grep -o 'project(ui VERSION [0-9.]*' "$here/../../CMakeLists.txt" | cut -d' ' -f3)

: > "$work/files.txt"
for deb in "$packages"/*.deb; do
    name=$(dpkg-deb -f "$deb" Package)
    dpkg-deb -x "$deb" "$root"
    dpkg-deb -c "$deb" | awk '{ print $6 }' | grep -v '/$' |
        sed "s|^\./||; s|$arch|MULTIARCH|; s|^|$name: |" >> "$work/files.txt"
    echo "$name: Depends: $(dpkg-deb -f "$deb" Depends)" >> "$work/depends.txt"
done
sort -o "$work/files.txt" "$work/files.txt"
diff -u "$expected" "$work/files.txt" || { echo "the packages hold other files than $expected"; exit 1; }

requires() { # PACKAGE TEXT: the package's Depends field holds the text
    local field
    field=$(grep "^$1: " "$work/depends.txt")
    [[ $field == *"$2"* ]] || { echo "$1 should depend on $2: $field"; exit 1; }
}
requires libui1 "libui-host-platform (= $version)"
requires libui-dev "libui1 (= $version)"
requires libui-dev libboost-dev
requires libui-host-platform libfreetype6
requires libui-host-platform-dev "libui-host-platform (= $version)"
requires ui-simulator "libui1 (= $version)"
requires libui-testing-dev "libui-dev (= $version)"
requires libui-testing-dev libgtest-dev
requires libui-testing-dev "libui-app-dev (= $version)"
requires libui-app-dev "libui-dev (= $version)"
requires libui-testing-dev "libui-session-dev (= $version)"
requires libui-session-dev "libui-dev (= $version)"
requires libui-session-dev libsndfile1-dev
requires libui-simulator-dev "libui-session-dev (= $version)"
requires libui-simulator-dev libsdl2-dev
# Neither the application layer nor the simulator, nor what they stand on, pulls in GoogleTest.
for package in libui-app-dev libui-session-dev libui-simulator-dev ui-simulator; do
    if grep "^$package: " "$work/depends.txt" | grep -q "gtest\|gmock\|libui-testing"; then
        echo "$package depends on the testing kit or GoogleTest"
        exit 1
    fi
done
if grep "^libui1: " "$work/depends.txt" | grep -q -- "-dev"; then
    echo "the runtime depends on development packages"
    exit 1
fi
if grep "^libui-host-platform: " "$work/depends.txt" | grep -q "libui1 \|libui-dev"; then
    echo "the stand-ins depend on the library"
    exit 1
fi

# A consumer finds the library in the root with find_package.
export LD_LIBRARY_PATH=$root/usr/lib/$arch
cmake -S "$here/../install" -B "$work/consumer" -G Ninja -DCMAKE_PREFIX_PATH="$root/usr" > "$work/consumer.log" 2>&1 &&
    cmake --build "$work/consumer" >> "$work/consumer.log" 2>&1 || { cat "$work/consumer.log"; exit 1; }
"$work/consumer/consumer"

# The example application's suite builds against the root, as an application team's would, and
# passes in any order, each test in its process.
cmake -S "$here/../../examples/pay" -B "$work/example" -G Ninja -DCMAKE_PREFIX_PATH="$root/usr" \
    > "$work/example.log" 2>&1 && cmake --build "$work/example" >> "$work/example.log" 2>&1 ||
    { cat "$work/example.log"; exit 1; }
(cd "$work/example" && ctest --schedule-random --output-on-failure > "$work/example-tests.log" 2>&1) ||
    { cat "$work/example-tests.log"; exit 1; }
grep -q '^100% tests passed' "$work/example-tests.log" || { cat "$work/example-tests.log"; exit 1; }

# The same suite built with pkg-config alone, as a team without CMake would, links and passes.
pc() { PKG_CONFIG_PATH=$root/usr/lib/$arch/pkgconfig pkg-config "$@"; }
example=$here/../../examples/pay
c++ -std=c++17 -I"$example" -DPAY_STRINGS="\"$example/res/strings/en.txt\"" "$example/PayScreen.cpp" \
    "$example/tests/PayScreenTest.cpp" -o "$work/pay_tests_pkgconfig" $(pc --cflags --libs ui-testing gtest_main) \
    > "$work/pkgconfig.log" 2>&1 || { cat "$work/pkgconfig.log"; exit 1; }
mkdir -p "$work/run" && ln -sfn "$root/usr/share/ui/res" "$work/run/res"
(cd "$work/run" && "$work/pay_tests_pkgconfig" > "$work/pkgconfig-tests.log" 2>&1) ||
    { cat "$work/pkgconfig-tests.log"; exit 1; }

# The simulator runs from the root, its data found beside it, its output where it was asked.
printf 'clock 2026-11-22 09:30\nkey ENTER\nshot menu\n' > "$work/short.session"
(cd "$work" && "$root/usr/bin/ui-simulator" --script short.session --out out > simulator.log 2>&1) ||
    { cat "$work/simulator.log"; exit 1; }
[ -s "$work/out/03_menu.png" ] || { echo "the simulator drew nothing"; cat "$work/simulator.log"; exit 1; }

# The README's road for a new application, as written, from an empty folder: it builds against
# the root, its test passes, its screen records a session headless and opens in the window.
"$here/../install/road.sh" "$here/../../README.md" "$work/road"
(cd "$work/road" && cmake -S . -B build -G Ninja -DCMAKE_PREFIX_PATH="$root/usr" && cmake --build build &&
    ctest --test-dir build --output-on-failure && ln -s "$root/usr/share/ui/res" res &&
    build/hello-sim --script hello.session --out out &&
    SDL_AUDIODRIVER=dummy xvfb-run -a build/hello-sim --window --quit-after-script --script hello.session) \
    > "$work/road.log" 2>&1 || { cat "$work/road.log"; exit 1; }
[ -s "$work/road/out/01_key_ENTER.png" ] || { echo "the road's screen recorded nothing"; cat "$work/road.log"; exit 1; }

echo "$(ls "$packages"/*.deb | wc -l) packages, $(wc -l < "$work/files.txt") files, as listed in $expected;"
echo "installed into $root: a consumer builds against them, the example's suite passes (built with CMake and with"
echo "pkg-config), the simulator plays a session, and the README's road builds, tests and runs"
