#include "FileDialogFixture.h"

#include "persistence/DialogStore.h"

FileDialog::FileDialog() {
    wchar_t path[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, path);
    folder = std::wstring(path) + L"framework-tests";
    CreateDirectoryW(folder.c_str(), nullptr);
    makeFile(L"plan.las");
}

FileDialog::~FileDialog() {
    kelutRelRb(chain);
    for (const std::wstring& file : m_files)
        DeleteFileW(file.c_str());
    RemoveDirectoryW(folder.c_str());
}

void FileDialog::makeFile(const std::wstring& name) {
    m_files.push_back(folder + L'\\' + name);
    CloseHandle(CreateFileW(m_files.back().c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
}

void FileDialog::untilDialogAgain(ui::Script& script) {
    script.waitUntil("the dialog again", [](const ui::View& view) { return view.has(ui::kFileNameBox); });
}

int FileDialog::ask(int flags, const ui::Script& script, const wchar_t* name) {
    kelutRelRb(chain);
    chain = nullptr;
    ui::Script whole;
    whole.waitForControl(ui::kFileNameBox).then(script);
    int answer = 0;
    ui::perform(whole, [&] { answer = keledGetFileNavDialog(title, name, extensions, key, flags, &chain); });
    return answer;
}

std::wstring FileDialog::chosen() const {
    return chain && chain->type == kVariableString && !chain->next ? chain->value.string : L"";
}

std::optional<std::wstring> FileDialog::keptFolder(const wchar_t* key) {
    return framework::DialogStore(key).text(L"Folder");
}
