# Runs in cpack when the packages are made. CPack writes scripts that call ldconfig into a package with libraries; here
# the trigger does that, as Debian wants it.

foreach(package IN LISTS CPACK_PACKAGE_FILES)
    if(NOT package MATCHES "/${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME}_")
        continue()
    endif()
    set(root "${CPACK_MOX_CONTROL_DIR}/unpacked")
    file(REMOVE_RECURSE "${root}")
    execute_process(COMMAND dpkg-deb --raw-extract "${package}" "${root}" COMMAND_ERROR_IS_FATAL ANY)
    file(REMOVE "${root}/DEBIAN/postinst" "${root}/DEBIAN/postrm")
    execute_process(COMMAND dpkg-deb --root-owner-group --build "${root}" "${package}" OUTPUT_QUIET
                    COMMAND_ERROR_IS_FATAL ANY)
endforeach()
