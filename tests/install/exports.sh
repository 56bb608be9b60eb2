#!/usr/bin/env bash
# The shared library exports the names its headers declare, and nothing else: every exported
# symbol lies in namespace ui or utl, or is a class or function that a header declares at
# global scope. Usage: exports.sh LIBRARY NM INCLUDE_DIR
set -euo pipefail
library=$1 nm=$2 include=$3

# Global-scope names of the headers: classes, structs, enums and functions outside a namespace.
allowed=$(awk 'FNR == 1 { depth = 0 }
    $1 == "namespace" && index($0, "{") { depth++ }
    $1 == "}" && $2 == "//" && $3 == "namespace" { depth-- }
    depth == 0 && $1 ~ /^(class|struct|enum)$/ { name = $2; sub(/[^A-Za-z0-9_].*/, "", name); print name }
    depth == 0 && /^[A-Za-z].*[A-Za-z0-9_][(]/ && $1 !~ /^(namespace|typedef|using|return|class|struct)$/ {
        line = $0; sub(/[(].*/, "", line); n = split(line, word, /[ *&]/); print word[n] }' \
    "$include"/ui/*.hpp | sort -u)
allowed=$(printf 'ui\nutl\n%s\n' "$allowed")

# The first name of each mangled symbol: past the special prefixes (typeinfo, vtable, VTT,
# thunks, guard variables, local statics) and the nested-name marker with its qualifiers.
symbols=$("$nm" -D --defined-only "$library")
first_names=$(awk '$2 != "A" { print $3 }' <<< "$symbols" | sed 's/@.*//' |
    sed -E 's/^_Z(T[ISVT]|Th[n0-9]+_|Tv[n0-9]+_[n0-9]+_|GV)?Z?N?[rVKRO]*//' |
    awk 'match($0, /^[0-9]+/) { print substr($0, RLENGTH + 1, substr($0, 1, RLENGTH)); next }
         /^S[a-z]/ { print "std"; next }
         { print "(" $0 ")" }' | sort | uniq -c)

status=0
exported=0
while read -r count name; do
    exported=$((exported + count))
    if ! grep -qx -- "$name" <<< "$allowed"; then
        echo "exported but not the interface: $count symbol(s) under $name"
        status=1
    fi
done <<< "$first_names"
# The interface itself is there: a sample from each kind of name.
for symbol in _ZN2ui13UserInterface10initializeEv _ZTVN2ui5LabelE _Z8WrapTextRKNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEEj; do
    grep -Eq " $symbol(@|$)" <<< "$symbols" || { echo "not exported: $symbol"; status=1; }
done
[ $status -eq 0 ] && echo "$exported symbols exported, all of the interface"
exit $status
