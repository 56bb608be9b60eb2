#!/usr/bin/env bash
# The README's C++ examples compile as written. A block with a TEST is a test file of its own;
# any other block is the body of a function. Usage: readme.sh README WORK_DIR COMPILER FLAGS...
set -euo pipefail
readme=$1 work=$2 compiler=$3
shift 3
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
        { echo '#include <gtest/gtest.h>'; cat "$example"; } > "$example.tu.cpp"
    else
        { echo '#include <ui/ui.hpp>'; echo 'void example() {'; cat "$example"; echo '}'; } > "$example.tu.cpp"
    fi
    "$compiler" "$@" -fsyntax-only "$example.tu.cpp" || { echo "in $readme, block $(basename "$example")"; exit 1; }
    count=$((count + 1))
done
[ "$count" -gt 0 ] || { echo "no C++ example found in $readme"; exit 1; }
echo "$count C++ examples of $readme compile"
