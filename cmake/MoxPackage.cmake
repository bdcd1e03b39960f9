# What describes the installation to others: the CMake package MoxCameraGuiApi and the files of pkg-config.

include(CMakePackageConfigHelpers)

configure_package_config_file("${CMAKE_CURRENT_LIST_DIR}/MoxCameraGuiApiConfig.cmake.in"
                              "${PROJECT_BINARY_DIR}/MoxCameraGuiApiConfig.cmake"
                              INSTALL_DESTINATION "${MOX_INSTALL_CMAKEDIR}" PATH_VARS MOX_INSTALL_TRANSLATIONSDIR)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/MoxCameraGuiApiConfigVersion.cmake"
                                 COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/MoxCameraGuiApiConfig.cmake"
              "${PROJECT_BINARY_DIR}/MoxCameraGuiApiConfigVersion.cmake"
        DESTINATION "${MOX_INSTALL_CMAKEDIR}" COMPONENT development)
install(EXPORT MoxCameraGuiApiTargets NAMESPACE Mox:: DESTINATION "${MOX_INSTALL_CMAKEDIR}" COMPONENT development)

# Under /usr they name that, so that pkg-config leaves out what compilers know; elsewhere they go by where they lie.
if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
    set(MOX_PC_PREFIX "/usr")
else()
    file(RELATIVE_PATH up "${CMAKE_INSTALL_PREFIX}/${MOX_INSTALL_PKGCONFIGDIR}" "${CMAKE_INSTALL_PREFIX}")
    string(REGEX REPLACE "/$" "" MOX_PC_PREFIX "\${pcfiledir}/${up}")
endif()
set(pcFiles moxcameraguiapi)
if(TARGET MoxCameraApi) # a vendor's SDK is described by its vendor
    list(APPEND pcFiles moxcameraapi)
endif()
foreach(name IN LISTS pcFiles)
    configure_file("${CMAKE_CURRENT_LIST_DIR}/${name}.pc.in" "${PROJECT_BINARY_DIR}/${name}.pc" @ONLY)
    install(FILES "${PROJECT_BINARY_DIR}/${name}.pc" DESTINATION "${MOX_INSTALL_PKGCONFIGDIR}" COMPONENT development)
endforeach()
