# The terminal's own graphics library (xui) and platform-support library (osal), from the
# vendor's SDK or sysroot, in place of our host stand-ins. Defines the targets xui and osal.
set(UI_VENDOR_ROOT "" CACHE PATH "The vendor's SDK or sysroot: include/ and lib/, or usr/include and usr/lib")

# In a cross build the root is a path of this machine, not one inside the toolchain's sysroot.
set(_ui_vendor_find HINTS ${UI_VENDOR_ROOT} ${UI_VENDOR_ROOT}/usr CMAKE_FIND_ROOT_PATH_BOTH)
find_path(UI_XUI_INCLUDE_DIR xui.h ${_ui_vendor_find} PATH_SUFFIXES include REQUIRED)
find_library(UI_XUI_LIBRARY xui ${_ui_vendor_find} PATH_SUFFIXES lib lib/${CMAKE_LIBRARY_ARCHITECTURE} REQUIRED)
find_path(UI_OSAL_INCLUDE_DIR osal/log.hpp ${_ui_vendor_find} PATH_SUFFIXES include REQUIRED)
find_library(UI_OSAL_LIBRARY osal ${_ui_vendor_find} PATH_SUFFIXES lib lib/${CMAKE_LIBRARY_ARCHITECTURE} REQUIRED)
message(STATUS "Vendor platform: ${UI_XUI_LIBRARY}, ${UI_OSAL_LIBRARY}")

add_library(xui SHARED IMPORTED GLOBAL)
set_target_properties(xui PROPERTIES IMPORTED_LOCATION ${UI_XUI_LIBRARY}
    INTERFACE_INCLUDE_DIRECTORIES ${UI_XUI_INCLUDE_DIR})
add_library(osal SHARED IMPORTED GLOBAL)
set_target_properties(osal PROPERTIES IMPORTED_LOCATION ${UI_OSAL_LIBRARY}
    INTERFACE_INCLUDE_DIRECTORIES ${UI_OSAL_INCLUDE_DIR}
    INTERFACE_LINK_LIBRARIES "Boost::date_time;Boost::system;Threads::Threads")
