# mox_assemble_description(<variable> <BigEndian|LittleEndian> <xml file> <camera> [<fragment>...])
#
# Makes a camera's description of its own file and the fragments that it shares with others. The camera's file has the
# mark @FRAGMENTS@ where they go; @ENDIANESS@ stands for the byte order, and @BIT_n@ for the number of bit n, which
# big endian registers count from the other end. The result is written as XML, and as a C++ source beside it that
# defines <variable> as an array of pieces: compilers take string literals of 64 KB and no more.
function(mox_assemble_description variable ENDIANESS xml camera)
    set(folder "${CMAKE_CURRENT_SOURCE_DIR}/descriptions")
    set(FRAGMENTS "")
    foreach(fragment ${ARGN})
        file(READ "${folder}/${fragment}" text)
        string(APPEND FRAGMENTS "${text}")
    endforeach()
    foreach(bit RANGE 31)
        if(ENDIANESS STREQUAL "BigEndian")
            math(EXPR BIT_${bit} "31 - ${bit}")
        else()
            set(BIT_${bit} ${bit})
        endif()
    endforeach()
    # Twice: the fragments have marks too.
    file(READ "${folder}/${camera}" text)
    string(CONFIGURE "${text}" text @ONLY)
    string(CONFIGURE "${text}" text @ONLY)

    set(source "// Made of platform/simulated/descriptions/${camera} and its fragments.\n")
    string(APPEND source "#include \"${CMAKE_CURRENT_SOURCE_DIR}/descriptions.h\"\n\nnamespace MoxSdk {\n\n")
    string(APPEND source "const char *const ${variable}[] = {\n")
    string(LENGTH "${text}" length)
    set(at 0)
    while(at LESS length)
        string(SUBSTRING "${text}" ${at} 60000 piece)
        string(APPEND source "R\"mox(${piece})mox\",\n")
        math(EXPR at "${at} + 60000")
    endwhile()
    string(APPEND source "nullptr};\n\n} // namespace MoxSdk\n")

    # Both only when they differ, so that configuring again compiles nothing.
    file(CONFIGURE OUTPUT "${xml}" CONTENT "${text}" @ONLY)
    get_filename_component(target "${xml}" DIRECTORY)
    file(CONFIGURE OUTPUT "${target}/${variable}.cpp" CONTENT "${source}" @ONLY)
    list(TRANSFORM ARGN PREPEND "${folder}/")
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${folder}/${camera}" ${ARGN})
endfunction()
