# Runs in cpack between installing and packing. Adds what only Debian asks for: copyright and changelogs, compressed
# manual pages, and the control file with the runtime package's symbols.

set(debian "${CPACK_MOX_SOURCE_DIR}/cmake/debian")
set(version "${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}")
file(STRINGS "${debian}/changelog" latest LIMIT_COUNT 1)
if(NOT latest MATCHES "^moxcameraguiapi \\(${version}\\) ")
    message(FATAL_ERROR "${debian}/changelog begins with another version than ${version}")
endif()

# Without time and name inside, as Debian asks.
function(compress file)
    execute_process(COMMAND gzip -9nf "${file}" COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(READ "${CPACK_MOX_SOURCE_DIR}/LICENSE" license)
string(REGEX REPLACE "^.*Copyright \\(c\\) ([^\n]*)\n\n(.*)$" "\\1" holder "${license}")
set(text "${CMAKE_MATCH_2}")
string(REGEX REPLACE "\n+$" "" text "${text}")
string(REPLACE "\n\n" "\n.\n" text "${text}")
string(REPLACE "\n" "\n " text "${text}")

foreach(component IN LISTS CPACK_COMPONENTS_ALL)
    string(TOUPPER "${component}" upper)
    set(root "${CPACK_TEMPORARY_DIRECTORY}/${component}${CPACK_PACKAGING_INSTALL_PREFIX}")
    set(documents "${root}/share/doc/${CPACK_DEBIAN_${upper}_PACKAGE_NAME}")
    file(MAKE_DIRECTORY "${documents}")
    file(WRITE "${documents}/copyright"
         "Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/
Upstream-Name: MoxCameraGuiApi

Files: *
Copyright: ${holder}
License: Expat
 ${text}
")
    configure_file("${CPACK_MOX_SOURCE_DIR}/CHANGELOG.md" "${documents}/changelog" COPYONLY)
    configure_file("${debian}/changelog" "${documents}/changelog.Debian" COPYONLY)
    compress("${documents}/changelog")
    compress("${documents}/changelog.Debian")
    file(GLOB_RECURSE pages "${root}/share/man/*.[1-9]")
    foreach(page IN LISTS pages)
        compress("${page}")
    endforeach()
endforeach()
set(root "${CPACK_TEMPORARY_DIRECTORY}/development${CPACK_PACKAGING_INSTALL_PREFIX}")
file(COPY "${CPACK_MOX_SOURCE_DIR}/examples" DESTINATION "${root}/share/doc/${CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME}")

# A symbol that appears or disappears makes this fail and print the difference. The version has to be the package's,
# revision and all: to dpkg-gensymbols a symbol is lost only in a later version than that which it came with.
file(MAKE_DIRECTORY "${CPACK_MOX_CONTROL_DIR}")
execute_process(
    COMMAND dpkg-gensymbols -c4 "-p${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME}" "-v${version}"
            "-I${debian}/${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME}.symbols" "-P${CPACK_TEMPORARY_DIRECTORY}/runtime"
            "-O${CPACK_MOX_CONTROL_DIR}/symbols"
    RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "The libraries' symbols differ from ${debian}/${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME}.symbols")
endif()
