# mox_add_test(<name> SOURCES <files...> [LIBRARIES <targets...>] [X11] [THREADS] [TIMEOUT <seconds>])
#
# A QtTest executable that CTest runs on the offscreen platform, or with X11 under Xvfb with a window manager. A Qt
# warning that the test did not announce fails it. The thread sanitizer runs those with the label "threads": all that the
# open SDK is a part of, with its own threads, and those that say THREADS.
function(mox_add_test name)
    cmake_parse_arguments(arg "X11;THREADS" "TIMEOUT" "SOURCES;LIBRARIES" ${ARGN})
    add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE MoxStrictQt MoxTestSupport ${arg_LIBRARIES})
    set_target_properties(${name} PROPERTIES UNITY_BUILD OFF) # the few sources of a test may use the same names
    if(arg_X11)
        add_test(NAME ${name} COMMAND "${PROJECT_SOURCE_DIR}/tests/support/with-x11" $<TARGET_FILE:${name}>)
        set(environment "QT_QPA_PLATFORM=xcb")
    else()
        add_test(NAME ${name} COMMAND ${name})
        set(environment "QT_QPA_PLATFORM=offscreen")
    endif()
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 120)
    endif()
    if(MOX_SANITIZE)
        math(EXPR arg_TIMEOUT "3 * ${arg_TIMEOUT}") # they take their time, most of all on a busy machine
    endif()
    list(APPEND environment "LC_ALL=C.UTF-8" "QT_LOGGING_RULES=" "XDG_CONFIG_HOME=${CMAKE_CURRENT_BINARY_DIR}/${name}.config"
         "QT_XCB_GL_INTEGRATION=none" # the X11 tests have no use for a GL driver
         "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/support/lsan.supp"
         "TSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/support/tsan.supp"
         "UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1")
    # Full stacks tell whether a leak is that of a library under the windows; they are too slow for the rest.
    if("${arg_LIBRARIES}" MATCHES "Gui|Demo")
        list(APPEND environment "ASAN_OPTIONS=fast_unwind_on_malloc=0")
    endif()
    set_tests_properties(${name} PROPERTIES ENVIRONMENT "${environment}" TIMEOUT ${arg_TIMEOUT}
                         FAIL_REGULAR_EXPRESSION "QWARN  :;QCRITICAL :")
    if(arg_X11)
        # Looking for a free display number, two servers may find the same one.
        set_tests_properties(${name} PROPERTIES LABELS x11 RESOURCE_LOCK x11)
    endif()
    if(arg_THREADS OR "${arg_LIBRARIES}" MATCHES "MoxPlatform|MoxSdk|MoxDemo|Mox::")
        set_property(TEST ${name} APPEND PROPERTY LABELS threads)
    endif()
endfunction()
