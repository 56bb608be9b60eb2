# ui_web_page(TARGET NAME name [TITLE text] [PRELOAD file@/path ...]): links TARGET, a program whose
# main calls ui::simulator::run, as a browser page: WebAssembly with threads and C++ exceptions,
# the files it reads (res/, its session) preloaded into one data file, and the page beside it, in
# ${CMAKE_BINARY_DIR}/web/NAME: index.html, page.js, page.css, app.js, app.wasm, app.worker.js
# and app.data. Serve that folder with the two headers shared memory needs:
#   Cross-Origin-Opener-Policy: same-origin
#   Cross-Origin-Embedder-Policy: require-corp
set(UI_WEB_PAGE_DIR ${CMAKE_CURRENT_LIST_DIR} CACHE INTERNAL "the page's files")
function(ui_web_page target)
    cmake_parse_arguments(PAGE "" "NAME;TITLE" "PRELOAD" ${ARGN})
    set(folder ${CMAKE_BINARY_DIR}/web/${PAGE_NAME})
    set_target_properties(${target} PROPERTIES OUTPUT_NAME app SUFFIX .js RUNTIME_OUTPUT_DIRECTORY ${folder})
    set(preload)
    foreach(entry IN LISTS PAGE_PRELOAD)
        list(APPEND preload "SHELL:--preload-file ${entry}")
    endforeach()
    # The library's threads stay threads: a pool of workers for its own, its thread pool's (one
    # per hardware thread) and the application's; main() runs on one of them, so that the page's
    # thread never blocks. Memory does not grow under threads: sized for the panel's buffers, the
    # pictures and a session's recording.
    target_link_options(${target} PRIVATE -pthread -fexceptions -sPROXY_TO_PTHREAD
        "-sPTHREAD_POOL_SIZE=navigator.hardwareConcurrency+8" -sINITIAL_MEMORY=268435456
        -sEXPORTED_RUNTIME_METHODS=ccall -sEXPORTED_FUNCTIONS=_main,_malloc,_free ${preload})
    set(PAGE_TITLE ${PAGE_TITLE})
    configure_file(${UI_WEB_PAGE_DIR}/index.html ${folder}/index.html @ONLY)
    configure_file(${UI_WEB_PAGE_DIR}/page.js ${folder}/page.js COPYONLY)
    configure_file(${UI_WEB_PAGE_DIR}/page.css ${folder}/page.css COPYONLY)
endfunction()
