# Debian packages, one for each component, made by "cpack" in a build directory for /usr, or by "./run package", which
# also takes Debian's compiler flags. Needs CMake 3.20, dpkg-dev and file.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME moxcameraguiapi)
set(CPACK_PACKAGE_CONTACT "MoxCameraGuiApi developers <developers@moxcameraguiapi.invalid>")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # the first line of each description is its summary
set(CPACK_PACKAGING_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ
                                                WORLD_EXECUTE)
set(CPACK_COMPONENTS_ALL runtime development demo)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# As in debian/changelog; sorts before what Debian itself would make of the same version.
set(CPACK_DEBIAN_PACKAGE_RELEASE 0mox1)
set(CPACK_DEBIAN_PACKAGE_SOURCE moxcameraguiapi)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")
set(exactRuntime "libmoxcameraguiapi1 (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")

# Adds documents, and the list of symbols; stops the packaging when the libraries do not keep to that.
set(CPACK_PRE_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/cmake/debian/complete.cmake")
set(CPACK_MOX_SOURCE_DIR "${PROJECT_SOURCE_DIR}")
set(CPACK_MOX_CONTROL_DIR "${PROJECT_BINARY_DIR}/debian")

set(about "Dialogs that a camera application opens with one call: selecting a camera,
every feature of a camera in a tree, its configuration by topic, and action
commands to many cameras at once.")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libmoxcameraguiapi1)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "Qt dialogs for machine-vision cameras - shared libraries
${about}

An open camera SDK comes along: simulated cameras, GigE Vision and USB3 Vision
cameras, and a GenApi runtime that evaluates their GenICam descriptions.")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${CPACK_MOX_CONTROL_DIR}/symbols"
                                               "${PROJECT_SOURCE_DIR}/cmake/debian/triggers")
set(CPACK_POST_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/cmake/debian/drop-scripts.cmake")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libmoxcameraguiapi-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${exactRuntime}, qtbase5-dev (>= 5.12)")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "Qt dialogs for machine-vision cameras - development files
${about}

Headers of the dialogs and of the camera SDK, the CMake package
MoxCameraGuiApi, files for pkg-config, and an example.")

set(CPACK_DEBIAN_DEMO_PACKAGE_NAME moxcameraguiapi-demo)
set(CPACK_DEBIAN_DEMO_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_DEMO_PACKAGE_DEPENDS "${exactRuntime}")
set(CPACK_DEBIAN_DEMO_PACKAGE_RECOMMENDS qttranslations5-l10n)
set(CPACK_DEBIAN_DEMO_DESCRIPTION "Qt dialogs for machine-vision cameras - demo application
A small camera application that opens every dialog of the library, on
simulated cameras that can be unplugged, slowed down and made to fail, or on
real GigE Vision and USB3 Vision cameras.")

include(CPack)
