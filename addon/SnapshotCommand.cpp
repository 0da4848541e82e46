#include "SnapshotCommand.h"

#include "KelEditor.h"
#include "KelRuntime.h"
#include "LayerSnapshotStore.h"

#include <algorithm>
#include <cwctype>
#include <string>

namespace {

constexpr const wchar_t* kCommandGroup = L"TREL_UiBase";
constexpr const wchar_t* kCommandName = L"LAYERSNAPSHOT";

/// What was typed behind the command: its first word in upper case, and the rest without the quotes around it.
struct Request {
    std::wstring option, name;
};

Request parsed(std::wstring text) {
    const auto trimmed = [](const std::wstring& part) {
        const std::size_t first = part.find_first_not_of(L" \t");
        return first == std::wstring::npos ? std::wstring()
                                           : part.substr(first, part.find_last_not_of(L" \t") + 1 - first);
    };
    text = trimmed(text);
    const std::size_t end = std::min(text.find_first_of(L" \t"), text.size());
    Request request{text.substr(0, end), trimmed(text.substr(end))};
    std::transform(request.option.begin(), request.option.end(), request.option.begin(),
                   [](wchar_t letter) { return static_cast<wchar_t>(std::towupper(letter)); });
    std::wstring& name = request.name;
    if (name.size() >= 2 && name.front() == L'"' && name.back() == L'"')
        name = name.substr(1, name.size() - 2);
    return request;
}

void tellFailure(Vorn::ErrorStatus status, const std::wstring& name, const wchar_t* done) {
    if (status == Vorn::eKeyNotFound)
        kelutPrintf(L"There is no layer snapshot \"%s\": LAYERSNAPSHOT LIST names them.\n", name.c_str());
    else
        kelutPrintf(L"The layer snapshot \"%s\" could not be %s: %s\n", name.c_str(), done,
                    vornErrorStatusText(status));
}

void save(const std::wstring& name) {
    if (const Vorn::ErrorStatus status = saveSnapshot(name.c_str()); status != Vorn::eOk)
        tellFailure(status, name, L"saved");
    else
        kelutPrintf(L"The layer snapshot \"%s\" is saved.\n", name.c_str());
}

void restore(const std::wstring& name) {
    if (const Vorn::ErrorStatus status = restoreSnapshot(name.c_str()); status != Vorn::eOk)
        tellFailure(status, name, L"restored");
    else
        kelutPrintf(L"The layer snapshot \"%s\" is restored.\n", name.c_str());
    // Also after a failure, which may have changed some of the layers.
    static_cast<void>(applyCurZdrLayerTableChanges());
    keledUpdateDisplay();
}

void remove(const std::wstring& name) {
    if (const Vorn::ErrorStatus status = deleteSnapshot(name.c_str()); status != Vorn::eOk)
        tellFailure(status, name, L"deleted");
    else
        kelutPrintf(L"The layer snapshot \"%s\" is deleted.\n", name.c_str());
}

void list() {
    KelArray<KelString> names;
    if (const Vorn::ErrorStatus status = getSnapshotNames(names); status != Vorn::eOk)
        kelutPrintf(L"The layer snapshots could not be read: %s\n", vornErrorStatusText(status));
    else if (names.isEmpty())
        kelutPrintf(L"The drawing has no layer snapshots.\n");
    else
        for (const KelString& name : names)
            kelutPrintf(L"%s\n", name.kwszPtr());
}

struct Option {
    const wchar_t* word;
    void (*run)(const std::wstring& name);
};
constexpr Option kOptions[] = {{L"SAVE", save}, {L"RESTORE", restore}, {L"DELETE", remove}};

void run() {
    const Request request = parsed(keledCommandArguments());
    if (request.option == L"LIST" && request.name.empty()) {
        list();
        return;
    }
    for (const Option& option : kOptions)
        if (request.option == option.word && !request.name.empty()) {
            option.run(request.name);
            return;
        }
    kelutPrintf(L"Type LAYERSNAPSHOT SAVE name, RESTORE name, DELETE name, or LIST.\n");
}

void runSnapshotCommand() {
    try {
        run();
    } catch (...) {
        kelutPrintf(L"There is not enough memory for LAYERSNAPSHOT.\n");
    }
}

KelEdCommandStack* commandStack() {
    return kelrtCast<KelEdCommandStack>(kelrtSystemRegistry()->at(kelrtCommandStackKey));
}

} // namespace

bool registerSnapshotCommand() {
    KelEdCommandStack* stack = commandStack();
    return stack && stack->addCommand(kCommandGroup, kCommandName, kCommandName, 0, runSnapshotCommand) == Vorn::eOk;
}

void unregisterSnapshotCommand() {
    if (KelEdCommandStack* stack = commandStack())
        stack->removeGroup(kCommandGroup);
}
