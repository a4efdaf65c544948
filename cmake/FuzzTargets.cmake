# SPDX-License-Identifier: MIT
include_guard()

# The targets of the folders whose headers a fuzz target's source includes.
function(vupuge_fuzz_target_folders result source)
    set(folders "")
    file(STRINGS "${source}" includes REGEX "^#include \"[a-z/]+/[A-Za-z0-9]+\\.h\"")
    foreach(include ${includes})
        string(REGEX REPLACE "^#include \"([a-z/]+)/.*" "\\1" folder "${include}")
        string(REPLACE "/" "_" target "${folder}")
        list(APPEND folders ${target})
    endforeach()
    list(REMOVE_DUPLICATES folders)
    set(${result} "${folders}" PARENT_SCOPE)
endfunction()
