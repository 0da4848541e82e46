# The C++ runtime is linked as DLLs, so that exceptions, dynamic_cast, new and delete work across our own DLLs. They are
# copied beside the programs, where Windows looks first.
foreach(dll libstdc++-6.dll libgcc_s_seh-1.dll)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${dll} OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
    file(COPY ${path} DESTINATION ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
endforeach()
file(COPY /usr/x86_64-w64-mingw32/lib/libwinpthread-1.dll DESTINATION ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
