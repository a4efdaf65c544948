# One test program a folder, mirroring the folder that it tests.
include_guard()

# A folder's tests need no CMakeLists.txt of their own: they link the folder and the test support.
macro(vupuge_add_test_folders)
    foreach(folder ${ARGN})
        set(directory "${CMAKE_CURRENT_SOURCE_DIR}/${folder}")
        string(REPLACE "/" "_" target "${folder}")
        file(GLOB sources CONFIGURE_DEPENDS "${directory}/*.cpp" "${directory}/*.h")
        if(EXISTS "${directory}/CMakeLists.txt")
            add_subdirectory("${folder}")
        elseif(sources AND TARGET ${target})
            vupuge_test(${target}_tests SOURCES ${sources} LINKS ${target})
        endif()
    endforeach()
endmacro()

# vupuge_test(name SOURCES file... LINKS target...): a test program, one CTest entry a test.
function(vupuge_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE ${ARG_LINKS} test_support)
    target_precompile_headers(${name} REUSE_FROM test_support)
    target_include_directories(${name} PRIVATE "${CMAKE_SOURCE_DIR}/tests")
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300)
endfunction()
