# The header-only libraries come from Debian's packages. The Windows build must never see the rest of /usr/include, so
# each library is linked by name into a folder of the build tree, and only that folder is on the include path.
set(KEL_HEADER_ONLY_DIR ${CMAKE_BINARY_DIR}/header-only)
file(MAKE_DIRECTORY ${KEL_HEADER_ONLY_DIR})
foreach(library flatbuffers nlohmann CLI)
    if(NOT EXISTS /usr/include/${library})
        message(FATAL_ERROR "/usr/include/${library} is missing; run tools/setup")
    endif()
    file(CREATE_LINK /usr/include/${library} ${KEL_HEADER_ONLY_DIR}/${library} SYMBOLIC)
endforeach()
add_library(kel_header_only INTERFACE)
target_include_directories(kel_header_only SYSTEM INTERFACE ${KEL_HEADER_ONLY_DIR})
find_program(FLATC flatc REQUIRED)
