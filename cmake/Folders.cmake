# One folder, one target.
#
# A folder's own CMakeLists.txt calls vupuge_folder() or vupuge_executable(). Includes are written
# from the root ("enex/EvernoteXMLResource.h"), but the root itself is on no include path: each
# target offers only a link to its own folder, so a file sees the headers of the targets that its
# folder links, and the compiler refuses every other include.
include_guard()

set(VUPUGE_HEADERS "${CMAKE_BINARY_DIR}/headers")

macro(vupuge_add_folders)
    foreach(folder ${ARGN})
        file(GLOB has_sources CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/${folder}/*.cpp")
        if(has_sources AND EXISTS "${CMAKE_SOURCE_DIR}/${folder}/CMakeLists.txt")
            add_subdirectory("${folder}")
        endif()
    endforeach()
endmacro()

# The target of the folder that CMake is reading: platform/core is platform_core.
function(vupuge_target_name result)
    file(RELATIVE_PATH folder "${CMAKE_SOURCE_DIR}" "${CMAKE_CURRENT_SOURCE_DIR}")
    string(REPLACE "/" "_" name "${folder}")
    set(${result} "${name}" PARENT_SCOPE)
endfunction()

function(vupuge_offer_headers target)
    file(RELATIVE_PATH folder "${CMAKE_SOURCE_DIR}" "${CMAKE_CURRENT_SOURCE_DIR}")
    set(root "${VUPUGE_HEADERS}/${target}")
    get_filename_component(parent "${root}/${folder}" DIRECTORY)
    file(MAKE_DIRECTORY "${parent}")
    file(CREATE_LINK "${CMAKE_CURRENT_SOURCE_DIR}" "${root}/${folder}" SYMBOLIC)
    target_include_directories(${target} PUBLIC "${root}")
endfunction()

function(vupuge_require_order target)
    foreach(dependency ${ARGN})
        if(NOT dependency MATCHES "::" AND NOT TARGET ${dependency})
            message(FATAL_ERROR "${target} links ${dependency}, which does not stand below it")
        endif()
    endforeach()
endfunction()

# vupuge_folder(LINKS target...): a static library of every source in this folder.
function(vupuge_folder)
    cmake_parse_arguments(ARG "" "" "LINKS;RESOURCES" ${ARGN})
    vupuge_target_name(target)
    vupuge_require_order(${target} ${ARG_LINKS})
    file(GLOB sources CONFIGURE_DEPENDS "*.cpp" "*.h")
    add_library(${target} STATIC ${sources} ${ARG_RESOURCES})
    vupuge_offer_headers(${target})
    target_link_libraries(${target} PUBLIC ${ARG_LINKS} Qt6::Core)
    target_precompile_headers(${target} REUSE_FROM precompiled)
endfunction()

# vupuge_executable(NAME SOURCES file... LINKS target...): a program in build/<preset>/bin.
function(vupuge_executable name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    vupuge_require_order(${name} ${ARG_LINKS})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE ${ARG_LINKS})
    target_precompile_headers(${name} REUSE_FROM precompiled)
endfunction()
