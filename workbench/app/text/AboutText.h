// What the program tells about itself.
#pragma once

#include <span>
#include <string>

namespace workbench {

/// Something of others that is in what is built.
struct Library {
    const wchar_t* name;
    const wchar_t* license;
};

std::span<const Library> libraries();

/// The program, its version, what it is for, and the libraries with their licenses.
std::wstring aboutText();

} // namespace workbench
