#include "SweepFixture.h"

#include "GuiObjects.h"
#include "HandleCount.h"
#include "ImportFaults.h"
#include "instruments/HostCalls.h"
#include "persistence/DialogStore.h"

#include <algorithm>

namespace {

/// Everything that stands below a key: its values with their types.
std::set<std::wstring> valuesBelow(const std::wstring& path) {
    std::set<std::wstring> values;
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
        return values;
    wchar_t name[256];
    DWORD type = 0;
    for (DWORD i = 0, size = 256; RegEnumValueW(key, i, name, &size, nullptr, &type, nullptr, nullptr) == 0;
         ++i, size = 256)
        values.insert(path + L'\\' + name + L" of type " + std::to_wstring(type));
    for (DWORD i = 0, size = 256; RegEnumKeyExW(key, i, name, &size, nullptr, nullptr, nullptr, nullptr) == 0;
         ++i, size = 256)
        values.merge(valuesBelow(path + L'\\' + name));
    RegCloseKey(key);
    return values;
}

/// The number of the call that fails next: every call up to `most`, and after that fewer and fewer.
int next(int nth, int most) {
    return nth < most ? nth + 1 : nth + std::max(nth / 2, 1);
}

} // namespace

FrameworkSweep::Held FrameworkSweep::heldNow() {
    return {countWindows(), countGdiObjects().value_or(0), countHandles().value_or(0),
            valuesBelow(framework::DialogStore::root())};
}

void FrameworkSweep::SetUp() {
    open(ui::TestDrawing().linetype(L"Dashed").drawing());
    ASSERT_TRUE(m_owner.CreateEx(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 60, 40, nullptr, nullptr));
    m_owner.SetActiveWindow();
}

void FrameworkSweep::TearDown() {
    m_owner.DestroyWindow();
}

void FrameworkSweep::answered(const std::function<void()>& action) {
    ui::perform(confirmOrLeave(), action);
}

std::set<std::string> FrameworkSweep::sweep(int mostCallsOfAFunction) {
    const ImportFaults faults(libraries);
    // Has the system and the libraries make what they make once and keep.
    for (int i = 0; i < 2; ++i)
        EXPECT_TRUE(scenario());
    m_held = heldNow();
    run("nothing", nullptr, 0);
    int failures = 0;
    std::set<std::string> struck;
    for (const std::string& function : ImportFaults::functions()) {
        // The instruments use memory for their lines, which isn't what is to fail here.
        instruments::watch(function != ImportFaults::kMemory);
        const int calls = callsOf(function);
        for (int nth = 1; nth <= calls && !HasFailure(); nth = next(nth, mostCallsOfAFunction)) {
            run(function, function.c_str(), nth);
            if (ImportFaults::struck()) {
                ++failures;
                struck.insert(function);
            }
        }
    }
    for (int nth = 1; !HasFailure() && failsHostCall(nth); ++nth) {
        ++failures;
        struck.insert(kHostCall);
    }
    RecordProperty("failures", failures);
    return struck;
}

int FrameworkSweep::callsOf(const std::string& function) {
    // The calls are counted once for all functions, and once more for memory, because other memory is used while the
    // instruments are off.
    if (function == ImportFaults::kMemory || m_calls.empty()) {
        ImportFaults::begin();
        scenario();
        ImportFaults::end();
        for (const std::string& each : ImportFaults::functions())
            m_calls[each] = ImportFaults::calls(each);
    }
    const int calls = m_calls[function];
    if (function == ImportFaults::kMemory)
        m_calls.clear();
    return calls;
}

bool FrameworkSweep::failsHostCall(int nth) {
    run(kHostCall, nullptr, nth);
    const bool struck = instruments::faultStruck();
    instruments::clearFaults();
    return struck;
}

void FrameworkSweep::run(const std::string& what, const char* function, int nth) {
    SCOPED_TRACE("failing: " + what + ", call " + std::to_string(nth));
    runOnce(function, nth);
    Held after = heldNow();
    // The first time that a look of a control is drawn the system may keep something for good, so more handles are a
    // fault only when every repeat adds some.
    for (int again = 0; again < 3 && !HasFailure() && hasGrown(after); ++again) {
        m_held.drawing = after.drawing;
        m_held.handles = after.handles;
        runOnce(function, nth);
        after = heldNow();
    }
    if (!HasFailure())
        expectNothingLeft(after);
}

void FrameworkSweep::runOnce(const char* function, int nth) {
    if (function)
        ImportFaults::begin(function, nth);
    else if (nth > 0)
        instruments::failAnyCall(nth);
    try {
        scenario();
    } catch (const std::bad_alloc&) {
        ADD_FAILURE() << "a lack of memory has come out";
    }
    ImportFaults::end();
}

bool FrameworkSweep::hasGrown(const Held& now) const {
    return now.drawing > m_held.drawing || (!systemKeepsHandles && now.handles > m_held.handles);
}

void FrameworkSweep::expectNothingLeft(const Held& after) {
    EXPECT_EQ(after.windows, m_held.windows) << "windows";
    EXPECT_LE(after.drawing, m_held.drawing) << "drawing objects";
    EXPECT_TRUE(systemKeepsHandles || after.handles <= m_held.handles) << "handles: " << after.handles;
    std::vector<std::wstring> lost;
    std::ranges::set_difference(m_held.kept, after.kept, std::back_inserter(lost));
    EXPECT_THAT(lost, testing::IsEmpty());
    EXPECT_THAT(instruments::ledger(), testing::IsEmpty());
    EXPECT_TRUE(IsWindowEnabled(m_owner.GetSafeHwnd())) << "the owner";
    m_owner.SetActiveWindow();
}
