# Switches and compiler settings of all rooms.

set(MOX_CAMERA_SDK_ROOT "" CACHE PATH "Root of the vendor's camera SDK (include/, lib/) to build against")
set(MOX_GENICAM_ROOT "" CACHE PATH "Root of the GenICam reference libraries (library/CPP/include, bin/) to build against")
option(MOX_WERROR "Treat warnings as errors" OFF)
set(MOX_SANITIZE "" CACHE STRING "Sanitizers to build with, as -fsanitize takes them")
option(MOX_COVERAGE "Measure test coverage" OFF)

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTOUIC ON)
set(CMAKE_AUTOUIC_SEARCH_PATHS "${CMAKE_CURRENT_SOURCE_DIR}/forms")
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "Kind of build" FORCE)
endif()

add_compile_options(-Wall -Wextra -Wshadow -Wnon-virtual-dtor -Wsuggest-override)
if(MOX_WERROR)
    add_compile_options(-Werror)
endif()
if(MOX_SANITIZE)
    add_compile_options(-fsanitize=${MOX_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
    add_link_options(-fsanitize=${MOX_SANITIZE})
endif()
if(MOX_COVERAGE)
    add_compile_options(--coverage)
    add_link_options(--coverage)
endif()
if(NOT MOX_SANITIZE)
    add_link_options(-Wl,--no-undefined)
endif()

# Qt 5.12 calls are used where 5.15 deprecates them; that is the one kind of warning that is switched off.
add_compile_definitions(QT_NO_DEPRECATED_WARNINGS)

# What the library's own rooms are compiled with; tests and the demo too.
add_library(MoxStrictQt INTERFACE)
target_compile_definitions(MoxStrictQt INTERFACE QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH
                                                 QT_STRICT_ITERATORS)
