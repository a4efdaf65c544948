# Compiler settings that hold for every target.
include_guard()

option(VUPUGE_TESTS "Build the tests" ON)
option(VUPUGE_BENCHMARKS "Build the benchmarks" ON)
option(VUPUGE_FUZZERS "Build the fuzz targets (clang only)" OFF)
set(VUPUGE_SANITIZE "" CACHE STRING "Sanitizers, as in -fsanitize=")

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")

if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "" FORCE)
endif()

find_program(CCACHE ccache)
if(CCACHE)
    # The precompiled header defeats the cache unless told that its time stamps do not matter.
    set(CMAKE_CXX_COMPILER_LAUNCHER
        ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
        ${CCACHE})
endif()

find_program(LLD ld.lld)
if(LLD)
    add_link_options(-fuse-ld=lld)
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast
                    -Wno-missing-field-initializers)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # What the compiler defines must be found in the header again; -fpch-preprocess lets ccache see it.
    add_compile_options(-fpch-preprocess)
endif()
add_compile_definitions(QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_STRICT_ITERATORS)

if(VUPUGE_SANITIZE)
    add_compile_options(-fsanitize=${VUPUGE_SANITIZE} -fno-omit-frame-pointer -g1)
    add_link_options(-fsanitize=${VUPUGE_SANITIZE})
endif()
