# What ships for Windows is compiled by MinGW's GCC. The tests there, which are the larger part of the build, are compiled by Clang
# in half of the time, for the same system and with the same C++ library, and GCC links all of it. Without a Clang that can
# do so, or with -DKEL_TEST_COMPILER=, GCC compiles the tests as well.
if(NOT WIN32)
    return()
endif()
find_program(KEL_TEST_COMPILER clang++ DOC "Clang for the tests of the Windows tier; empty to compile them by GCC")

# Clang takes GCC's headers of the C++ library and of Windows, but not those of GCC itself, of which it has its own, and
# nothing of /usr/include. Thread-local variables, of which the C++ library has some, are kept in GCC's way.
set(kel_test_compile "${KEL_TEST_COMPILER} --target=x86_64-w64-mingw32 -femulated-tls -nostdlibinc -nostdinc++")
foreach(folder ${CMAKE_CXX_IMPLICIT_INCLUDE_DIRECTORIES})
    if(folder MATCHES "/c\\+\\+(/|$)")
        string(APPEND kel_test_compile " -cxx-isystem ${folder}")
    elseif(NOT folder MATCHES "/gcc/")
        string(APPEND kel_test_compile " -idirafter ${folder}")
    endif()
endforeach()

# Once for each command: whether it compiles what the tests include.
if(KEL_TEST_COMPILER AND NOT KEL_TEST_COMPILER_TRIED STREQUAL kel_test_compile)
    set(trial ${CMAKE_BINARY_DIR}/CMakeFiles/TestCompiler.cpp)
    file(WRITE ${trial} "#include <filesystem>\n#include <mutex>\n#include <ranges>\n#include <windows.h>\n")
    separate_arguments(command UNIX_COMMAND "${kel_test_compile}")
    execute_process(COMMAND ${command} -std=c++20 -c ${trial} -o ${trial}.obj RESULT_VARIABLE failed OUTPUT_QUIET ERROR_QUIET)
    execute_process(COMMAND ${KEL_TEST_COMPILER} -dumpversion OUTPUT_VARIABLE version OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(failed)
        set(version)
        message(STATUS "${KEL_TEST_COMPILER} can't compile for Windows: GCC compiles the tests")
    endif()
    set(KEL_TEST_COMPILER_TRIED "${kel_test_compile}" CACHE INTERNAL "The command that was tried")
    set(KEL_TEST_COMPILER_VERSION "${version}" CACHE INTERNAL "Clang's version, or nothing if it can't compile the tests")
endif()

# Lets Clang compile the C++ targets of the calling folder and of those that it adds from here on.
macro(kel_compile_by_clang)
    if(KEL_TEST_COMPILER AND KEL_TEST_COMPILER_VERSION)
        set(CMAKE_CXX_COMPILER_ID Clang)
        set(CMAKE_CXX_COMPILER_VERSION ${KEL_TEST_COMPILER_VERSION})
        string(REPLACE "<CMAKE_CXX_COMPILER>" "${kel_test_compile}" CMAKE_CXX_COMPILE_OBJECT "${CMAKE_CXX_COMPILE_OBJECT}")
        # MFC's classes hide functions of their bases by others of the same name, and compare with the structures that they extend.
        string(REPLACE "<FLAGS>" "<FLAGS> -Wno-overloaded-virtual -Wno-ambiguous-reversed-operator"
            CMAKE_CXX_COMPILE_OBJECT "${CMAKE_CXX_COMPILE_OBJECT}")
        # The parameters are for GCC's memory.
        string(REGEX REPLACE "--param [^ ]+" "" CMAKE_CXX_FLAGS "${CMAKE_CXX_FLAGS}")
        set(CMAKE_CXX_COMPILE_OPTIONS_CREATE_PCH -Xclang -emit-pch -Xclang -include -Xclang <PCH_HEADER> -x c++-header)
        set(CMAKE_PCH_EXTENSION .pch)
    endif()
endmacro()
