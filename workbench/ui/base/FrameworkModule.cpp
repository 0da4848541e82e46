#include "FrameworkModule.h"

namespace framework {

HMODULE frameworkModule() {
    HMODULE self = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&frameworkModule), &self);
    return self;
}

} // namespace framework
