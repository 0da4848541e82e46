#include "instruments/HostCalls.h"
#include "KelRuntime.h"
#include "model/NameTable.h"
#include "objects/RtClass.h"

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

using instruments::HostCall;

KELRT_DEFINE_CLASS(KelEdCommand, KelRtObject)
KELRT_DEFINE_CLASS(KelEdCommandStack, KelRtObject)

namespace {

class RegisteredCommand : public KelEdCommand {
  public:
    RegisteredCommand(const wchar_t* group, const wchar_t* globalName, const wchar_t* localName, int flags,
                      KelEdCommandFunction body)
        : m_group(group), m_globalName(globalName), m_localName(localName), m_flags(flags), m_function(body) {}

    const wchar_t* groupName() const override { return m_group.c_str(); }
    const wchar_t* globalName() const override { return m_globalName.c_str(); }
    const wchar_t* localName() const override { return m_localName.c_str(); }
    int commandFlags() const override { return m_flags; }
    KelEdCommandFunction function() const override { return m_function; }

    bool answersTo(std::wstring_view name) const {
        return zdr::equalFolded(m_globalName, name) || zdr::equalFolded(m_localName, name);
    }
    bool isOfGroup(std::wstring_view group) const { return zdr::equalFolded(m_group, group); }

  private:
    std::wstring m_group;
    std::wstring m_globalName;
    std::wstring m_localName;
    int m_flags;
    KelEdCommandFunction m_function;
};

bool isGiven(const wchar_t* text) {
    return text && *text;
}

} // namespace

struct KelEdCommandStack::Commands {
    std::vector<std::unique_ptr<RegisteredCommand>> oldestFirst;
};

KelEdCommandStack::KelEdCommandStack() : m_commands(new Commands) {}

KelEdCommandStack::~KelEdCommandStack() {
    delete m_commands;
}

Vorn::ErrorStatus KelEdCommandStack::addCommand(const wchar_t* group, const wchar_t* globalName,
                                                const wchar_t* localName, int flags, KelEdCommandFunction function,
                                                void* uiContext, int functionCode, void* resourceHandle,
                                                KelEdCommand** added) {
    HostCall call("addCommand", group, globalName, localName, flags, function != nullptr, uiContext, functionCode,
                  resourceHandle, added);
    if (added)
        *added = nullptr;
    return call.status([&] {
        if (!isGiven(group) || !isGiven(globalName) || !function)
            return Vorn::eInvalidInput;
        m_commands->oldestFirst.push_back(std::make_unique<RegisteredCommand>(
            group, globalName, isGiven(localName) ? localName : globalName, flags, function));
        if (added)
            *added = m_commands->oldestFirst.back().get();
        return Vorn::eOk;
    });
}

Vorn::ErrorStatus KelEdCommandStack::removeGroup(const wchar_t* group) {
    HostCall call("removeGroup", group);
    if (const auto status = call.fault())
        return call.answer(*status);
    const std::wstring_view wanted = group ? group : L"";
    const auto removed =
        std::erase_if(m_commands->oldestFirst, [wanted](const auto& command) { return command->isOfGroup(wanted); });
    return call.answer(removed ? Vorn::eOk : Vorn::eKeyNotFound);
}

KelEdCommand* KelEdCommandStack::lookup(const wchar_t* name) const {
    HostCall call("lookup", name);
    const std::wstring_view wanted = name ? name : L"";
    const auto& commands = m_commands->oldestFirst;
    const auto newest = std::find_if(commands.rbegin(), commands.rend(),
                                     [wanted](const auto& command) { return command->answersTo(wanted); });
    return call.answer(newest == commands.rend() ? nullptr : newest->get());
}

int KelEdCommandStack::count() const {
    return static_cast<int>(m_commands->oldestFirst.size());
}

KelEdCommand* KelEdCommandStack::at(int index) const {
    const bool inside = index >= 0 && index < count();
    return inside ? m_commands->oldestFirst[static_cast<std::size_t>(index)].get() : nullptr;
}
