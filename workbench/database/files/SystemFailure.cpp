#include "SystemFailure.h"

#include "Refusal.h"

namespace zdr {

void writeFailure(const std::wstring& action, std::int64_t error) {
    throw Refusal{Vorn::eFileWriteFailed,
                  L"can't be written: " + action + L" failed, because of \"" + errorText(error) + L"\""};
}

} // namespace zdr
