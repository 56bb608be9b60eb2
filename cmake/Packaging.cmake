# Debian packages (./run package): the library with its headers; the application layer; the
# host stand-ins of the platform libraries on their own, so that a terminal image never carries
# them; the session layer; the testing kit and the simulator's library beside each other; the
# demo program.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_VENDOR "ui")
set(CPACK_PACKAGE_CONTACT "UI library maintainers <maintainers@users.noreply.c-seed-05ea6409.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL library library_dev app platform platform_dev)
if(TARGET ui_session)
    list(APPEND CPACK_COMPONENTS_ALL session)
endif()
if(TARGET ui_testing)
    list(APPEND CPACK_COMPONENTS_ALL testing)
endif()
if(TARGET ui_simulator)
    list(APPEND CPACK_COMPONENTS_ALL simulator_dev)
endif()
if(TARGET ui_demo)
    list(APPEND CPACK_COMPONENTS_ALL simulator)
endif()
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libdevel)
# Dependencies on Debian's libraries come from the binaries themselves; ours from below.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_BINARY_DIR}/lib)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)

# The library as Debian splits one: the runtime, named after its soname's version, and the
# development package with the headers, the link name, the CMake package and the pkg-config file.
set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME libui${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_COMPONENT_LIBRARY_DESCRIPTION "User-interface library for card-payment terminals: the shared library")
set(CPACK_DEBIAN_LIBRARY_DEV_PACKAGE_NAME libui-dev)
set(CPACK_COMPONENT_LIBRARY_DEV_DESCRIPTION "User-interface library for card-payment terminals: headers, a CMake package and a pkg-config file")
set(CPACK_COMPONENT_LIBRARY_DEV_DEPENDS library)
set(CPACK_DEBIAN_LIBRARY_DEV_PACKAGE_DEPENDS "libboost-dev, libboost-date-time-dev, libboost-filesystem-dev, libboost-system-dev")

set(CPACK_DEBIAN_PLATFORM_PACKAGE_NAME libui-host-platform)
set(CPACK_COMPONENT_PLATFORM_DESCRIPTION "Host stand-ins for the terminal's graphics (xui) and platform-support (osal) libraries, to run the UI library on a PC; never for a terminal")
set(CPACK_DEBIAN_PLATFORM_DEV_PACKAGE_NAME libui-host-platform-dev)
set(CPACK_COMPONENT_PLATFORM_DEV_DESCRIPTION "Host stand-ins for the terminal's graphics (xui) and platform-support (osal) libraries: headers and link names")
set(CPACK_COMPONENT_PLATFORM_DEV_DEPENDS platform)
if(UI_PLATFORM STREQUAL "host")
    set(CPACK_COMPONENT_LIBRARY_DEPENDS platform)
    set(CPACK_COMPONENT_LIBRARY_DEV_DEPENDS library platform_dev)
endif()

set(CPACK_DEBIAN_APP_PACKAGE_NAME libui-app-dev)
set(CPACK_COMPONENT_APP_DESCRIPTION "Application layer of the UI library: a screen base, a prompt screen and the status header, as a static library with its headers, CMake component (app) and pkg-config file (ui-app)")
set(CPACK_COMPONENT_APP_DEPENDS library_dev)

set(CPACK_DEBIAN_SESSION_PACKAGE_NAME libui-session-dev)
set(CPACK_COMPONENT_SESSION_DESCRIPTION "Session layer of the UI library: session scripts, a headless player that plays one against an application on the host stand-ins and records it (pictures, GIF, timeline, WAV, storyboard), and the stand-ins' host controls")
set(CPACK_COMPONENT_SESSION_DEPENDS library_dev platform_dev)
set(CPACK_DEBIAN_SESSION_PACKAGE_DEPENDS "libgif-dev, libsndfile1-dev")

set(CPACK_DEBIAN_SIMULATOR_DEV_PACKAGE_NAME libui-simulator-dev)
set(CPACK_COMPONENT_SIMULATOR_DEV_DESCRIPTION "Simulator of the UI library: runs any application on it in a window (SDL2: the keyboard as keypad, the LEDs, the tones on the sound card) or headless, from the application's own main")
set(CPACK_COMPONENT_SIMULATOR_DEV_DEPENDS session)
set(CPACK_DEBIAN_SIMULATOR_DEV_PACKAGE_DEPENDS "libsdl2-dev, libboost-program-options-dev")

set(CPACK_DEBIAN_TESTING_PACKAGE_NAME libui-testing-dev)
set(CPACK_COMPONENT_TESTING_DESCRIPTION "Testing kit of the UI library: a GoogleTest library that runs an application's screens on the host stand-ins, presses keys, reads the screen, LEDs and tones and compares golden pictures; the stand-ins' host controls")
set(CPACK_COMPONENT_TESTING_DEPENDS library_dev app session)
set(CPACK_DEBIAN_TESTING_PACKAGE_DEPENDS "libgtest-dev, libgmock-dev")

set(CPACK_DEBIAN_SIMULATOR_PACKAGE_NAME ui-simulator)
set(CPACK_DEBIAN_SIMULATOR_PACKAGE_SECTION misc)
set(CPACK_COMPONENT_SIMULATOR_DESCRIPTION "Payment-terminal simulator: a demo payment application on the UI library, headless or in a window")
set(CPACK_COMPONENT_SIMULATOR_DEPENDS library platform)

include(CPack)
