# The vendor's camera SDK and the GenICam reference libraries in place of the open ones.
#
# Header names and include paths are those of platform/include. This needs both roots.

foreach(root MOX_CAMERA_SDK_ROOT MOX_GENICAM_ROOT)
    if(NOT ${root})
        message(FATAL_ERROR "Building against the vendor's SDK needs both MOX_CAMERA_SDK_ROOT and MOX_GENICAM_ROOT")
    endif()
endforeach()

# A changed root means other libraries.
unset(MOX_VENDOR_API CACHE)
unset(MOX_VENDOR_GENAPI CACHE)
unset(MOX_VENDOR_GCBASE CACHE)
find_library(MOX_VENDOR_API NAMES MoxCameraApi libMoxCameraApi.so.1 PATHS "${MOX_CAMERA_SDK_ROOT}/lib"
             NO_DEFAULT_PATH REQUIRED)
find_library(MOX_VENDOR_GENAPI NAMES GenApi_gcc421_v3_0 PATHS "${MOX_GENICAM_ROOT}/bin/Linux64_x64"
             "${MOX_GENICAM_ROOT}/lib" NO_DEFAULT_PATH REQUIRED)
find_library(MOX_VENDOR_GCBASE NAMES GCBase_gcc421_v3_0 PATHS "${MOX_GENICAM_ROOT}/bin/Linux64_x64"
             "${MOX_GENICAM_ROOT}/lib" NO_DEFAULT_PATH REQUIRED)

add_library(MoxPlatformHeaders INTERFACE)
target_include_directories(MoxPlatformHeaders SYSTEM INTERFACE "${MOX_CAMERA_SDK_ROOT}/include"
                                                               "${MOX_GENICAM_ROOT}/library/CPP/include")
add_library(MoxPlatform INTERFACE)
target_link_libraries(MoxPlatform INTERFACE MoxPlatformHeaders "${MOX_VENDOR_API}" "${MOX_VENDOR_GENAPI}"
                                            "${MOX_VENDOR_GCBASE}")
add_library(Mox::CameraApi ALIAS MoxPlatform)

# The vendor's SDK is not installed along, and so Mox::CameraApi is no part of the CMake package. The installed library
# finds the vendor's where they are now.
set(CMAKE_INSTALL_RPATH_USE_LINK_PATH ON)
