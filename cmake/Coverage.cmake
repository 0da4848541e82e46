# Counts which lines and branches of the code run, for tools/coverage. A program adds its counts to those of the programs before it
# when it ends, a DLL when it is unloaded; what ends by abort, TerminateProcess or a signal adds nothing.
option(KEL_COVERAGE "Count which lines run" OFF)
if(KEL_COVERAGE)
    # Threads count too, none of them loses the count of another. Warnings are left to the builds that ship and test: tests are
    # compiled by GCC here, which Clang compiles elsewhere, because they hold copies of inline functions and of whole sources.
    add_compile_options("$<$<COMPILE_LANGUAGE:C,CXX>:--coverage;-fprofile-update=atomic;-w>")
    add_link_options(--coverage)
endif()
