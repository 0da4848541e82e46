# Tests, by area. The area of a test is the folder right below tests/unit or tests/ui in which it stands, whatever lies between;
# fuzz, tools and resources are areas too. Its tests carry the area's name as their label, and the target
# tests_<area> builds what they need, so that ./test <area> builds and runs just that.

# kel_add_test(name [COMMAND command...] [DEPENDS target...] [COST seconds] [WITHOUT_DESK])
# The command is the program `name` unless one is given. COST is how long it takes, roughly, where that is more than a few
# seconds: the runner starts the longest first, so that none of them is left to run alone at the end.
# Under Wine a test needs a keyboard, a pointer and a screen of its own, so the runner hands it one of the desks that
# tools/wine has set up; see docs/testing.md. A test that runs no Windows program does WITHOUT_DESK.
function(kel_add_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "WITHOUT_DESK" "COST" "COMMAND;DEPENDS")
    file(RELATIVE_PATH area ${CMAKE_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
    string(REGEX REPLACE "^tests/((unit|ui)/)?" "" area ${area})
    string(REGEX REPLACE "/.*" "" area ${area})
    if(NOT TARGET tests_${area})
        add_custom_target(tests_${area})
    endif()
    if(TARGET ${name})
        add_dependencies(tests_${area} ${name})
    endif()
    if(arg_DEPENDS)
        add_dependencies(tests_${area} ${arg_DEPENDS})
    endif()
    if(NOT arg_COMMAND)
        set(arg_COMMAND ${name})
    endif()
    add_test(NAME ${name} COMMAND ${arg_COMMAND})
    set_tests_properties(${name} PROPERTIES LABELS ${area})
    if(arg_COST)
        set_tests_properties(${name} PROPERTIES COST ${arg_COST})
    endif()
    if(WIN32 AND NOT arg_WITHOUT_DESK)
        set_tests_properties(${name} PROPERTIES RESOURCE_GROUPS desks:1)
    endif()
endfunction()
