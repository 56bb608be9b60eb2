# The terminals' 32-bit ARM (armhf), built with Debian's cross toolchain against a sysroot of
# Debian's armhf libraries (make-sysroot.sh). The cross toolchain brings its own C and C++
# libraries; the sysroot brings everything else. Programs run under qemu-user.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)
set(CMAKE_LIBRARY_ARCHITECTURE arm-linux-gnueabihf)
set(CMAKE_C_COMPILER arm-linux-gnueabihf-gcc)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
# GCC notes on ARM that the passing of some arguments changed in GCC 7.1; everything here is
# built by one compiler, so the notes only bury the build's real messages.
set(CMAKE_CXX_FLAGS_INIT "-Wno-psabi")

set(UI_ARM_SYSROOT "" CACHE PATH "Debian armhf libraries unpacked by make-sysroot.sh")
# try_compile projects read this file again and need the same sysroot.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES UI_ARM_SYSROOT)
if(NOT IS_DIRECTORY "${UI_ARM_SYSROOT}/usr/lib/arm-linux-gnueabihf")
    message(FATAL_ERROR "UI_ARM_SYSROOT='${UI_ARM_SYSROOT}' is not an armhf sysroot; make one with "
                        "cmake/arm/make-sysroot.sh (./run arm does)")
endif()

# Libraries, headers and CMake packages come from the sysroot; programs from this machine.
set(CMAKE_FIND_ROOT_PATH "${UI_ARM_SYSROOT}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_SYSROOT_DIR} "${UI_ARM_SYSROOT}")
set(ENV{PKG_CONFIG_LIBDIR}
    "${UI_ARM_SYSROOT}/usr/lib/arm-linux-gnueabihf/pkgconfig:${UI_ARM_SYSROOT}/usr/share/pkgconfig")

# The linker follows the sysroot libraries' own dependencies (FreeType's libpng, say) there.
set(_ui_arm_libs "${UI_ARM_SYSROOT}/usr/lib/arm-linux-gnueabihf:${UI_ARM_SYSROOT}/lib/arm-linux-gnueabihf")
foreach(kind EXE SHARED MODULE)
    set(CMAKE_${kind}_LINKER_FLAGS_INIT "-Wl,-rpath-link,${_ui_arm_libs}")
endforeach()

# qemu-user runs the tests (and CMake's test discovery) with the cross toolchain's C library.
find_program(UI_QEMU_ARM qemu-arm REQUIRED)
set(CMAKE_CROSSCOMPILING_EMULATOR "${UI_QEMU_ARM};-L;/usr/arm-linux-gnueabihf;-E;LD_LIBRARY_PATH=${_ui_arm_libs}")
