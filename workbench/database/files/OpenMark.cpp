// What marks have in common on all systems.
#include "SystemFile.h"

#include <utility>

namespace zdr {

OpenMark::OpenMark(OpenMark&& other) noexcept : OpenMark() {
    *this = std::move(other);
}

OpenMark& OpenMark::operator=(OpenMark&& other) noexcept {
    std::swap(m_path, other.m_path);
    std::swap(m_handle, other.m_handle);
    std::swap(m_isOthers, other.m_isOthers);
    return *this;
}

} // namespace zdr
