# One interface target that every target of ours links: warnings are errors. Code of others (GoogleTest, FlatBuffers,
# nlohmann/json) is included as SYSTEM and doesn't see these.
add_library(kel_warnings INTERFACE)
target_compile_options(kel_warnings INTERFACE -Wall -Wextra -Wshadow -Werror)

# Portable code has no excuse for a silent narrowing; Win32's integer types would make this noise elsewhere.
add_library(kel_portable_warnings INTERFACE)
target_link_libraries(kel_portable_warnings INTERFACE kel_warnings)
target_compile_options(kel_portable_warnings INTERFACE -Wconversion)
