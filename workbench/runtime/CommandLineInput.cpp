#include "CommandLineInput.h"

#include "KelEditor.h"
#include "instruments/HostCalls.h"

#include <utility>

namespace {

const wchar_t* g_arguments = L"";

} // namespace

const wchar_t* keledCommandArguments() {
    instruments::HostCall call("keledCommandArguments");
    return call.answer(g_arguments);
}

namespace runtime {

CommandArguments::CommandArguments(const std::wstring& text) : m_before(std::exchange(g_arguments, text.c_str())) {}

CommandArguments::~CommandArguments() {
    g_arguments = m_before;
}

} // namespace runtime
