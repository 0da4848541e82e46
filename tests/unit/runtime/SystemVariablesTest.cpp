// System variables.

#include "Documents.h"
#include "KelEditor.h"
#include "RuntimeTest.h"
#include "SystemVariables.h"

class SystemVariablesTest : public RuntimeTest {
  protected:
    void openDrawing() { runtime::openDocument(std::make_unique<KelDbDatabase>(true, false), L"C:\\plans\\house.zdr"); }
    std::wstring text(const wchar_t* name) {
        ResultBuffer result{};
        EXPECT_EQ(keledGetVar(name, &result), kResultNormal);
        EXPECT_EQ(result.type, kVariableString);
        const std::wstring out = result.value.string ? result.value.string : L"(null)";
        vorn_free(result.value.string);
        return out;
    }
    int number(const wchar_t* name) {
        ResultBuffer result{};
        EXPECT_EQ(keledGetVar(name, &result), kResultNormal);
        EXPECT_EQ(result.type, kVariableInt16);
        return result.value.int16;
    }
};

TEST_F(SystemVariablesTest, ReadsWhatTheDrawingAnswers) {
    openDrawing();
    EXPECT_EQ(text(L"CLAYER"), L"Base");
    EXPECT_EQ(number(L"LWDEFAULT"), 25);
    EXPECT_EQ(number(L"tilemode"), 1) << "case doesn't matter";
    EXPECT_EQ(number(L"CVPORT"), 0);
    EXPECT_EQ(text(L"ZDRNAME"), L"house.zdr");
    EXPECT_EQ(text(L"ZDRPREFIX"), L"C:\\plans\\");
}

TEST_F(SystemVariablesTest, ReadsEveryType) {
    openDrawing();
    ResultBuffer result{};
    EXPECT_EQ(keledGetVar(L"LTSCALE", &result), kResultNormal);
    EXPECT_EQ(result.type, kVariableReal);
    EXPECT_EQ(result.value.real, 1);
    EXPECT_EQ(keledGetVar(L"VIEWTWIST", &result), kResultNormal);
    EXPECT_EQ(result.type, kVariableAngle);
    EXPECT_EQ(keledGetVar(L"LAYERCOUNT", &result), kResultNormal);
    EXPECT_EQ(result.type, kVariableInt32);
    EXPECT_EQ(result.value.int32, 1);
}

TEST_F(SystemVariablesTest, EveryVariableOfTheTableCanBeRead) {
    openDrawing();
    for (const std::wstring& name : runtime::systemVariableNames()) {
        ResultBuffer result{};
        EXPECT_EQ(keledGetVar(name.c_str(), &result), kResultNormal) << std::string(name.begin(), name.end());
        if (result.type == kVariableString)
            vorn_free(result.value.string);
    }
}

TEST_F(SystemVariablesTest, KeepsAProfileThatWasSet) {
    EXPECT_EQ(text(L"CPROFILE"), L"Default");
    runtime::setProfile(L"Office");
    EXPECT_EQ(text(L"CPROFILE"), L"Office");
    runtime::reset();
    EXPECT_EQ(text(L"CPROFILE"), L"Default");
}

TEST_F(SystemVariablesTest, FailsWithoutSuchAVariableDrawingOrNode) {
    ResultBuffer result{};
    EXPECT_EQ(keledGetVar(L"NOSUCH", &result), kResultError);
    EXPECT_EQ(keledGetVar(nullptr, &result), kResultError);
    EXPECT_EQ(keledGetVar(L"CLAYER", &result), kResultError) << "no drawing is open";
    EXPECT_EQ(keledGetVar(L"CPROFILE", nullptr), kResultError);
    instruments::failCall("keledGetVar", 1);
    EXPECT_EQ(keledGetVar(L"CPROFILE", &result), kResultError);
}
