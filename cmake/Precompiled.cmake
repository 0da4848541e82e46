# Headers of others take longer to read than most of our sources take to compile, so all targets of one kind share them
# precompiled: the standard library's, the system's for the Windows tier, GoogleTest's for tests. Our own headers are left
# out, because a change of one would compile everything again. A source still includes what it uses; configuring with
# -DKEL_PRECOMPILED=OFF compiles without, and finds a source that doesn't.
option(KEL_PRECOMPILED "Share precompiled headers of the system and of libraries" ON)

set(kel_precompiled_standard
    <algorithm>
    <array>
    <bit>
    <cmath>
    <cstdint>
    <cstring>
    <cwchar>
    <filesystem>
    <functional>
    <map>
    <memory>
    <optional>
    <ranges>
    <span>
    <string>
    <string_view>
    <unordered_map>
    <utility>
    <variant>
    <vector>)
set(kel_precompiled_windows
    <windows.h>
    <commctrl.h>
    <commdlg.h>
    <shellapi.h>)

# The compiler finds the precompiled file beside the header. What CMake says to Clang instead has whole paths in a form that the
# compiler cache can't make relative to the clone.
set(CMAKE_CXX_COMPILE_OPTIONS_USE_PCH -include <PCH_HEADER>)

# kel_precompile(name header... [LINK library...]): an object library whose precompiled headers others reuse.
function(kel_precompile name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" LINK)
    file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp CONTENT "// Empty: what counts is what is precompiled with it.\n")
    add_library(${name} OBJECT EXCLUDE_FROM_ALL ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
    target_link_libraries(${name} PRIVATE ${arg_LINK})
    target_precompile_headers(${name} PRIVATE ${arg_UNPARSED_ARGUMENTS})
    kel_precompiled_options(${name})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        # Templates that the headers use are instantiated here once, and not again in each source.
        target_compile_options(${name} PRIVATE -fpch-instantiate-templates)
        # A precompiled header of Clang's knows the folder that it was made in, so each clone makes its own. For the compiler
        # cache this sum stands for it, so that what is compiled with it is shared all the same; the headers inside are looked
        # at one by one in any case.
        file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/CMakeFiles/${name}.dir/cmake_pch.hxx.pch.sum
            CONTENT "${CMAKE_CXX_COMPILER_VERSION} ${arg_UNPARSED_ARGUMENTS}\n")
    endif()
endfunction()

function(kel_precompiled_options target)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # The compiler cache looks into the precompiled header and not only at its date. GCC 12 forgets in a precompiled
        # header which warnings the system's headers are excused from, and takes the copy of a literal for an overflow.
        target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-fpch-preprocess -Wno-array-bounds -Wno-stringop-overread>)
    endif()
endfunction()

# Whether a target links, directly or through others, a library whose name matches.
function(kel_links target pattern answer)
    set(${answer} FALSE PARENT_SCOPE)
    set(seen)
    set(waiting ${target})
    while(waiting)
        list(POP_FRONT waiting next)
        string(REGEX REPLACE "^\\$<LINK_ONLY:(.*)>$" "\\1" next "${next}")
        if(next MATCHES "${pattern}")
            set(${answer} TRUE PARENT_SCOPE)
            return()
        endif()
        if(TARGET ${next} AND NOT next IN_LIST seen)
            list(APPEND seen ${next})
            foreach(property LINK_LIBRARIES INTERFACE_LINK_LIBRARIES)
                # An imported or interface library has no LINK_LIBRARIES.
                get_target_property(libraries ${next} ${property})
                if(libraries)
                    list(APPEND waiting ${libraries})
                endif()
            endforeach()
        endif()
    endwhile()
endfunction()

# kel_share_precompiled(folder STANDARD library [WINDOWS library] [LINKING pattern]): every C++ target of the folder and of
# those below it reuses one of the libraries, the second one if it sees <windows.h>. With a pattern only targets that link
# such a library do.
function(kel_share_precompiled folder)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "STANDARD;WINDOWS;LINKING" "")
    if(NOT KEL_PRECOMPILED)
        return()
    endif()
    get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
    foreach(target ${targets})
        get_target_property(type ${target} TYPE)
        get_target_property(sources ${target} SOURCES)
        get_target_property(own ${target} PRECOMPILE_HEADERS)
        get_target_property(reused ${target} PRECOMPILE_HEADERS_REUSE_FROM)
        if(type STREQUAL "INTERFACE_LIBRARY" OR own OR reused OR NOT sources MATCHES "\\.cpp")
            continue()
        endif()
        if(arg_LINKING)
            kel_links(${target} "${arg_LINKING}" wanted)
            if(NOT wanted)
                continue()
            endif()
        endif()
        kel_links(${target} "^(kelmfc|user32|kernel32)$" sees_windows)
        if(WIN32 AND sees_windows)
            target_precompile_headers(${target} REUSE_FROM ${arg_WINDOWS})
        else()
            target_precompile_headers(${target} REUSE_FROM ${arg_STANDARD})
        endif()
        kel_precompiled_options(${target})
    endforeach()
    get_property(subfolders DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
    list(FILTER subfolders INCLUDE REGEX "^${CMAKE_SOURCE_DIR}/") # the code of others stays as it is
    foreach(subfolder ${subfolders})
        kel_share_precompiled(${subfolder} ${ARGN})
    endforeach()
endfunction()
