# ui_discover_tests(TARGET [WORKING_DIRECTORY DIR] [PROPERTIES ...])
#
# Registers a GoogleTest suite on the testing kit with CTest, every test a process of its own:
# some of the library's state is the process's by design (the header icons' pictures, shared by
# every instance and never cleared; the published canvas sizes; the multi-tap position), so a
# test run after another could see the first one's. The library reads its resources (the font,
# the LED pictures, the strings) from res/ under the working directory, as on a terminal: by
# default the tests run in a folder whose res/ is the default resources (UI_RESOURCE_DIR); an
# application with resources of its own names the folder that holds its res/.
include(GoogleTest)

function(ui_discover_tests target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "WORKING_DIRECTORY" "PROPERTIES")
    set(directory ${arg_WORKING_DIRECTORY})
    if(NOT directory)
        set(directory ${CMAKE_CURRENT_BINARY_DIR}/${target}.run)
        file(MAKE_DIRECTORY ${directory})
        file(CREATE_LINK ${UI_RESOURCE_DIR} ${directory}/res SYMBOLIC)
    endif()
    # Listing the tests runs the program: give an emulator (a cross build) the time it needs.
    gtest_discover_tests(${target} WORKING_DIRECTORY ${directory} DISCOVERY_TIMEOUT 60
                         PROPERTIES ${arg_PROPERTIES})
endfunction()
