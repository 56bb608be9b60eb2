#!/usr/bin/env bash
# The README's C++ examples compile as written. A block with a TEST is a test file of its own,
# and is one of the examples' tests word for word, so that it runs in their suite; any other
# block is the body of a function. Usage: readme.sh README EXAMPLES_DIR WORK_DIR COMPILER FLAGS...
set -euo pipefail
readme=$1 examples=$2 work=$3 compiler=$4
shift 4
rm -rf "$work"
mkdir -p "$work"
awk -v dir="$work" '
    /^```cpp$/ { n++; file = dir "/example" n ".cpp"; inside = 1; next }
    /^```$/ { inside = 0; next }
    inside { print > file }
' "$readme"
count=0
for example in "$work"/example*.cpp; do
    if grep -q '^TEST' "$example"; then
        { echo '#include <gtest/gtest.h>'; echo '#define PAY_STRINGS "en.txt"'; cat "$example"; } > "$example.tu.cpp"
        test=$(sed -n '/^TEST/,/^}/p' "$example")
        found=no
        for source in $(find "$examples" -name '*.cpp'); do
            [[ "$(cat "$source")" == *"$test"* ]] && found=yes
        done
        [ $found = yes ] || { echo "in $readme, block $(basename "$example"): its test is in no example"; exit 1; }
    else
        { echo '#include <ui/ui.hpp>'; echo 'void example() {'; cat "$example"; echo '}'; } > "$example.tu.cpp"
    fi
    "$compiler" "$@" -fsyntax-only "$example.tu.cpp" || { echo "in $readme, block $(basename "$example")"; exit 1; }
    count=$((count + 1))
done
[ "$count" -gt 0 ] || { echo "no C++ example found in $readme"; exit 1; }
echo "$count C++ examples of $readme compile"
