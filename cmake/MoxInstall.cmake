# Where things go when they are installed. Each room installs what is its own, in the component "runtime", "development"
# or "demo"; MoxPackage adds what describes the whole. An application that takes the project in by add_subdirectory and
# wants none of these rules in its own installation says EXCLUDE_FROM_ALL there.

include(GNUInstallDirs)

set(MOX_INSTALL_HEADERSDIR "${CMAKE_INSTALL_INCLUDEDIR}/moxcameraguiapi")
set(MOX_INSTALL_SDKHEADERSDIR "${CMAKE_INSTALL_INCLUDEDIR}/moxcameraapi")
set(MOX_INSTALL_CMAKEDIR "${CMAKE_INSTALL_LIBDIR}/cmake/MoxCameraGuiApi")
set(MOX_INSTALL_PKGCONFIGDIR "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
set(MOX_INSTALL_TRANSLATIONSDIR "${CMAKE_INSTALL_DATADIR}/moxcameraguiapi/translations")

# Under /usr the dynamic linker finds the libraries by itself, and Debian wants no search path there. Under any other
# prefix they find each other, and the demo finds them, also after the prefix has moved.
if(NOT DEFINED CMAKE_INSTALL_RPATH AND NOT CMAKE_INSTALL_PREFIX STREQUAL "/usr")
    file(RELATIVE_PATH binToLib "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_LIBDIR}")
    set(CMAKE_INSTALL_RPATH "$ORIGIN" "$ORIGIN/${binToLib}")
endif()
