#include "HostTest.h"

#include "Documents.h"
#include "Driver.h"
#include "Runtime.h"
#include "SystemRegistry.h"
#include "engine/DatabaseAccess.h"
#include "instruments/HostCalls.h"
#include "persistence/DialogStore.h"

#include <windows.h>

namespace ui {

namespace {

constexpr const wchar_t* dialogRoot = L"Software\\KelTests\\Dialogs";

std::string traceText() {
    std::string text = "Host calls:\n";
    for (const std::string& line : instruments::trace())
        text += "  " + line + "\n";
    return text;
}

} // namespace

std::vector<std::string> callsOf(const std::string& operation, const std::vector<std::string>& trace) {
    std::vector<std::string> calls;
    for (const std::string& line : trace)
        if (line.starts_with(operation + "("))
            calls.push_back(line);
    return calls;
}

std::vector<std::string> callsOf(const std::string& operation) {
    return callsOf(operation, instruments::trace());
}

std::filesystem::path programFolder() {
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::filesystem::path(path).parent_path();
}

HostTest::HostTest() = default;
HostTest::~HostTest() = default;

void HostTest::SetUp() {
    framework::DialogStore::setRoot(dialogRoot);
    forgetDialogs();
    runtime::reset();
    instruments::watch(true);
    setLastWords(traceText);
    m_modules = std::make_unique<runtime::ModuleLoader>();
}

void HostTest::TearDown() {
    if (HasFailure())
        std::fprintf(stderr, "%s", traceText().c_str());
    instruments::clearFaults();
    m_modules.reset();
    EXPECT_EQ(instruments::ledger(), std::vector<std::string>()) << "still open, or not given back";
    setLastWords([] { return std::string(); });
    instruments::watch(false);
    runtime::reset();
    framework::DialogStore::setRoot({});
    forgetDialogs();
}

void HostTest::loadModule() {
    const std::wstring problem = m_modules->load((programFolder() / L"KelLayerApps.xmod").wstring());
    ASSERT_EQ(problem, L"");
}

void HostTest::open(const TestDrawing& drawing) {
    auto opened = std::make_unique<KelDbDatabase>(false, false);
    engine::replaceDrawing(*opened, drawing.drawing());
    runtime::openDocument(std::move(opened), L"");
    instruments::clearTrace();
}

KelDbDatabase& HostTest::database() const {
    return runtime::currentDocument()->data();
}

KelDbLayerStateManager& HostTest::states() const {
    return *database().getLayerStateManager();
}

void HostTest::runCommand(const std::wstring& name) {
    const KelEdCommand* command = runtime::commandStack().lookup(name.c_str());
    ASSERT_NE(command, nullptr) << "there is no command of that name";
    command->function()();
}

void HostTest::forgetDialogs() {
    RegDeleteTreeW(HKEY_CURRENT_USER, dialogRoot);
}

std::wstring HostTest::resourceText(unsigned int id) {
    wchar_t text[512] = L"";
    LoadStringW(GetModuleHandleW(L"KelLayerAppsRes.dll"), id, text, 512);
    return text;
}

long HostTest::kept(const std::wstring& dialog, const std::wstring& key) {
    const std::optional<unsigned long> value = framework::DialogStore(dialog).number(key);
    return value ? static_cast<long>(*value) : -1;
}

void HostTest::keep(const std::wstring& dialog, const std::wstring& key, unsigned long value) {
    ASSERT_TRUE(framework::DialogStore(dialog).setNumber(key, value));
}

} // namespace ui
