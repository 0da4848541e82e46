// The file dialog, and addresses typed into it, replayed with each of their calls failing once.

#include "SweepFixture.h"

#include "HandleCount.h"
#include "ImportFaults.h"
#include "OrvUiPickers.h"
#include "persistence/DialogStore.h"

using testing::IsSupersetOf;

namespace {

TEST_F(FrameworkSweep, ofTheFileDialog) {
    wchar_t folder[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, folder);
    const std::wstring path = std::wstring(folder) + L"framework-sweep.las";
    systemKeepsHandles = true; // Wine's file dialog does
    for (const int flags : {0, 1}) {
        std::fclose(_wfopen(path.c_str(), L"wb"));
        ASSERT_TRUE(framework::DialogStore(L"FrameworkTestsSweep").setText(L"Folder", folder));
        scenario = [&path, flags] {
            if (flags == 1)
                _wremove(path.c_str());
            ResultBuffer* chain = nullptr;
            int answer = 0;
            answered([&] {
                answer = keledGetFileNavDialog(L"Pick", L"framework-sweep.las", L"las", L"FrameworkTestsSweep", flags,
                                               &chain);
            });
            EXPECT_EQ(answer == kResultNormal, chain != nullptr);
            EXPECT_TRUE(!chain || chain->value.string) << "a chain without its path";
            const bool done = chain && chain->value.string;
            kelutRelRb(chain);
            return done;
        };
        EXPECT_THAT(sweep(1), IsSupersetOf({kHostCall, "_Znwy", "RegOpenKeyExW", "RegQueryValueExW", "RegCreateKeyExW",
                                            "RegSetValueExW", "GetFileAttributesW", "_wcsdup",
                                            flags == 0 ? "GetOpenFileNameW" : "GetSaveFileNameW"}));
    }
    _wremove(path.c_str());
}

TEST_F(FrameworkSweep, ofAnAddressTypedIntoTheFileDialog) {
    systemKeepsHandles = true; // Wine's file dialog does
    for (const std::wstring typed : {L"https://server.example/a.las", L"ftp://server.example/a.las"}) {
        const bool isTaken = typed.starts_with(L"https");
        scenario = [&typed, isTaken] {
            ui::Script script;
            script.ifStillOpen().type(typed).then(confirmOrLeave());
            ResultBuffer* chain = nullptr;
            int answer = 0;
            ui::perform(script, [&] {
                answer = keledGetFileNavDialog(L"Pick", nullptr, L"las", L"FrameworkTestsSweep", 0, &chain);
            });
            EXPECT_EQ(answer == kResultNormal, chain != nullptr);
            EXPECT_TRUE(!chain || chain->value.string == typed);
            const bool done = isTaken == (chain != nullptr);
            kelutRelRb(chain);
            return done;
        };
        EXPECT_THAT(sweep(1), IsSupersetOf({kHostCall, "_Znwy", "GetOpenFileNameW"}));
    }
}

TEST_F(FrameworkSweep, aFileDialogThatDoesNotOpenKeepsNoHandle) {
    const ImportFaults faults;
    const auto ask = [] {
        ResultBuffer* chain = nullptr;
        ImportFaults::begin("GetOpenFileNameW", 1);
        EXPECT_EQ(keledGetFileNavDialog(L"Pick", nullptr, L"las", L"FrameworkTestsSweep", 0, &chain), kResultCancel);
        EXPECT_TRUE(ImportFaults::struck());
        ImportFaults::end();
        EXPECT_EQ(chain, nullptr);
    };
    ask();
    const auto before = countHandles();
    ask();
    EXPECT_EQ(countHandles(), before);
}

} // namespace
