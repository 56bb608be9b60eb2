#!/usr/bin/env bash
# The README's road for a new application, as written: each block fenced with a file name
# (```cpp HelloScreen.cpp) becomes that file in an empty folder. Usage: road.sh README DIR
set -euo pipefail
readme=$1 dir=$2
rm -rf "$dir"
mkdir -p "$dir"
awk -v dir="$dir" '
    /^```[a-z]+ [^ ]+$/ { file = dir "/" $2; inside = 1; next }
    /^```$/ { inside = 0; next }
    inside { print > file }
' "$readme"
for file in CMakeLists.txt HelloScreen.hpp HelloScreen.cpp HelloSim.cpp HelloTest.cpp HelloTerminal.cpp hello.session; do
    [ -f "$dir/$file" ] || { echo "the README's road has no $file"; exit 1; }
done
