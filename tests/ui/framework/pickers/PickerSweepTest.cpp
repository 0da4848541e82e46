// The pickers, replayed with each of their calls failing once.

#include "SweepFixture.h"

#include "OrvUiPickers.h"

using testing::IsSupersetOf;

namespace {

/// What every picker calls, and what this one calls beside it.
std::set<std::string> allOf(std::set<std::string> ownCalls) {
    ownCalls.insert(
        {kHostCall,           "_Znwy",          "RegOpenKeyExW",  "RegQueryValueExW",   "RegCreateKeyExW",
         "RegSetValueExW",    "FindResourceW",  "LoadResource",   "LockResource",       "CreateDialogIndirectParamW",
         "SetWindowsHookExW", "SetWindowPos",   "GetWindowRect",  "GetModuleHandleExW", "CreateFileW",
         "GetFileSizeEx",     "ReadFile",       "GetProcAddress", "CreateXmlReader",    "EnumDisplayMonitors",
         "GetMonitorInfoW",   "CreateWindowExW"});
    return ownCalls;
}

TEST_F(FrameworkSweep, ofTheColorPicker) {
    KelCmColor five;
    five.setColorIndex(5);
    scenario = [five] {
        KelCmColor color;
        color.setRGB(9, 9, 9);
        const KelCmColor untouched = color;
        int answer = -1;
        answered([&] { answer = keledSetColorDialogTrueColor(color, false, five, 7); });
        EXPECT_EQ(color, answer == kColorChosen ? five : untouched);
        return answer == kColorChosen;
    };
    EXPECT_THAT(sweep(kFewCalls), IsSupersetOf(allOf({"RegisterClassW", "SetWindowTextW", "BeginPaint"})));
}

TEST_F(FrameworkSweep, ofTheLinetypePicker) {
    scenario = [this] {
        wchar_t* name = nullptr;
        KelDbObjectId chosen;
        bool answer = false;
        answered([&] { answer = keledLinetypeDialog(linetypeId(L"Dashed"), false, name, chosen); });
        EXPECT_EQ(answer, name != nullptr);
        EXPECT_EQ(chosen.isNull(), !answer);
        kelutDelBuffer(name);
        return answer;
    };
    EXPECT_THAT(sweep(2), IsSupersetOf(allOf({"BeginDeferWindowPos", "DeferWindowPos", "EndDeferWindowPos",
                                              "MapDialogRect", "SaveDC"})));
}

TEST_F(FrameworkSweep, ofTheLineweightPicker) {
    scenario = [] {
        int chosen = -3;
        bool answer = false;
        answered([&] { answer = keledLineWeightDialog(25, false, chosen); });
        EXPECT_EQ(chosen, answer ? 25 : -3);
        return answer;
    };
    EXPECT_THAT(sweep(2), IsSupersetOf(allOf({"BeginDeferWindowPos", "DeferWindowPos", "EndDeferWindowPos",
                                              "MapDialogRect", "SaveDC"})));
}

TEST_F(FrameworkSweep, ofThePlotStylePicker) {
    scenario = [] {
        wchar_t* chosen = nullptr;
        bool answer = false;
        answered([&] { answer = keledPlotstyleDialog(L"Normal", false, chosen); });
        EXPECT_EQ(answer, chosen != nullptr);
        kelutDelBuffer(chosen);
        return answer;
    };
    EXPECT_THAT(sweep(2),
                IsSupersetOf(allOf({"BeginDeferWindowPos", "DeferWindowPos", "EndDeferWindowPos", "MapDialogRect"})));
}

} // namespace
