#!/usr/bin/env bash
# Each part of the product includes only from the parts below it: the stand-ins; the library;
# the application layer; the session layer; the simulator and the kit beside each other; the
# demo and the examples. Usage: layers.sh SOURCE_DIR
set -euo pipefail
cd "$1"
status=0
check() { # FOLDERS... -- FORBIDDEN (an extended regular expression over the included name)
    local folders=() forbidden
    while [ "$1" != -- ]; do folders+=("$1"); shift; done
    forbidden=$2
    local found
    found=$(grep -rnE "^#include [<\"]($forbidden)" "${folders[@]}" --include='*.cpp' --include='*.hpp' \
        --include='*.h' || true)
    if [ -n "$found" ]; then
        echo "${folders[*]} include from a part above them:"
        echo "$found"
        status=1
    fi
}
check platform -- 'ui/'
check inc src -- 'ui/(app|session|simulator|kit)/|xui_host|osal/host'
check app -- 'ui/(session|simulator|kit)/|xui_host|osal/host'
check session -- 'ui/(simulator|kit)/'
check simulator -- 'ui/kit/'
check testing -- 'ui/simulator/'
check demo -- 'ui/kit/'
[ $status -eq 0 ] && echo "every part includes only from the parts below it"
exit $status
