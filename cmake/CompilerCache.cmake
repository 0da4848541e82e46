# Compiles through ccache where it is installed; everything works without it. Paths below the root of the clone are taken
# as relative, so a clone in another folder gets the hits of this one, precompiled headers included. What a source includes is
# learned from the compiler's own list, which spares preprocessing it once more, and a precompiled header of a hundred megabytes
# is read once and not for each source.
find_program(KEL_CCACHE ccache DOC "Compiler cache; empty to compile without one")
if(KEL_CCACHE AND NOT KEL_COVERAGE) # what counts its lines knows the folder to count in, so it would only fill the cache
    set(launcher
        ${CMAKE_COMMAND} -E env
        CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}
        CCACHE_NOHASHDIR=1
        CCACHE_DEPEND=1
        CCACHE_INODECACHE=1
        CCACHE_PCH_EXTSUM=1
        CCACHE_SLOPPINESS=pch_defines,time_macros
        ${KEL_CCACHE})
    set(CMAKE_C_COMPILER_LAUNCHER ${launcher})
    set(CMAKE_CXX_COMPILER_LAUNCHER ${launcher})
endif()

# Paths in messages and debug information start at the root of the clone, whatever its folder is named.
add_compile_options("$<$<COMPILE_LANGUAGE:C,CXX>:-ffile-prefix-map=${CMAKE_SOURCE_DIR}/=>")
