# Language level, warnings and sanitizers for everything in the tree.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")

option(MRL_BENCHMARKS "Build the programs under bench/" OFF)
option(MRL_INTEROP "Offer the targets of tests/interop, for `make interop`" OFF)
option(MRL_FUZZ "Build the fuzzers under tests/fuzz, with clang" OFF)
set(MRL_SANITIZE "" CACHE STRING "Sanitizers to compile with, for example address,undefined")
option(MRL_COVERAGE "Compile for gcov" OFF)

find_program(MRL_CCACHE ccache)
if(MRL_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${MRL_CCACHE}")
endif()

file(RELATIVE_PATH mrl_source_from_build "${CMAKE_BINARY_DIR}" "${PROJECT_SOURCE_DIR}")
file(RELATIVE_PATH mrl_build_from_source "${PROJECT_SOURCE_DIR}" "${CMAKE_BINARY_DIR}")
add_compile_options(
    -Wall -Wextra -Wpedantic -Werror
    $<$<COMPILE_LANGUAGE:CXX>:-Wshadow>
    $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor>
    $<$<COMPILE_LANGUAGE:CXX>:-Wold-style-cast>
    $<$<COMPILE_LANGUAGE:CXX>:-Wconversion>
    $<$<COMPILE_LANGUAGE:CXX>:-Wno-sign-conversion>
    # Optimising, g++ 12 takes "text" + std::string for an overlapping copy.
    $<$<AND:$<CONFIG:Release>,$<CXX_COMPILER_ID:GNU>>:-Wno-restrict>
    # The library calls itself directly; nobody puts functions in front of its own.
    $<$<AND:$<CONFIG:Release>,$<CXX_COMPILER_ID:GNU>>:-fno-semantic-interposition>
    # Back traces carry file names: relative to the project, never of the machine it was built on.
    # The last form is what a compiler cache that is shared by several build directories makes of the first.
    -ffile-prefix-map=${PROJECT_SOURCE_DIR}/=
    -ffile-prefix-map=${CMAKE_BINARY_DIR}/=
    -ffile-prefix-map=${mrl_source_from_build}=)

if(MRL_SANITIZE)
    add_compile_options(-fsanitize=${MRL_SANITIZE} -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${MRL_SANITIZE})
    if(MRL_SANITIZE MATCHES "undefined")
        add_compile_options(-fno-sanitize-recover=undefined)
    endif()
endif()
if(MRL_COVERAGE)
    # Threads count too. Reports look for generated sources from the project's root.
    add_compile_options(--coverage -fprofile-update=atomic -ffile-prefix-map=${CMAKE_BINARY_DIR}/=${mrl_build_from_source}/)
    add_link_options(--coverage)
endif()
