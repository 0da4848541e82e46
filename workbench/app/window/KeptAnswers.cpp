#include "KeptAnswers.h"

#include "persistence/RegistryKey.h"

namespace workbench {

namespace {

// A value for each folder, with its name: a number, 1 for one that may be looked into and 0 for one that may not.
constexpr const wchar_t* kKey = L"Software\\KelWorkbench\\OutsideFolders";
constexpr DWORD kLongestName = 16383;

} // namespace

std::vector<FolderAnswer> keptAnswers() {
    std::vector<FolderAnswer> answers;
    framework::RegistryKey key;
    std::wstring name(kLongestName + 1, L'\0');
    LSTATUS status = key.openForReading(kKey) ? ERROR_SUCCESS : ERROR_NO_MORE_ITEMS;
    for (DWORD index = 0; status == ERROR_SUCCESS || status == ERROR_MORE_DATA; ++index) {
        DWORD length = kLongestName + 1, type = REG_NONE, value = 0, size = sizeof value;
        status = RegEnumValueW(key.get(), index, name.data(), &length, nullptr, &type, reinterpret_cast<BYTE*>(&value),
                               &size);
        // What stands there may be anything; what isn't an answer is left out, and asked about again.
        if (status == ERROR_SUCCESS && type == REG_DWORD && size == sizeof value && value <= 1)
            answers.push_back({name.substr(0, length), value == 1});
    }
    return answers;
}

void keepAnswer(const FolderAnswer& answer) {
    const DWORD value = answer.mayLook ? 1 : 0;
    RegSetKeyValueW(HKEY_CURRENT_USER, kKey, answer.folder.c_str(), REG_DWORD, &value, sizeof value);
}

void forgetAnswer(const std::wstring& folder) {
    RegDeleteKeyValueW(HKEY_CURRENT_USER, kKey, folder.c_str());
}

} // namespace workbench
