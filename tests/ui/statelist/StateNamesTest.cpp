// Whether a text may be a state's name: what is asked of the host, and what the user is told.
#include "StateNames.h"

#include "Driver.h"
#include "HostTest.h"
#include "instruments/HostCalls.h"
#include "resource.h"

#include <afxwin.h>

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::ElementsAreArray;
using ui::Script;
using ui::View;

namespace {

using Calls = std::vector<std::string>;

class StateNames : public ui::HostTest {
  protected:
    void SetUp() override {
        HostTest::SetUp();
        open(ui::TestDrawing().state(L"Taken", MaskColor));
        m_resources = LoadLibraryW(L"KelLayerAppsRes.dll");
        ASSERT_NE(m_resources, nullptr);
        m_before = AfxGetResourceHandle();
        AfxSetResourceHandle(m_resources);
    }
    void TearDown() override {
        AfxSetResourceHandle(m_before);
        FreeLibrary(m_resources);
        HostTest::TearDown();
    }
    /// The answer for the name, with what the person does at what opens.
    static int check(const std::wstring& name, Script person = {}) {
        int answer = -1;
        ui::perform(std::move(person), [&] { answer = CheckStateName(name.c_str()); });
        return answer;
    }
    std::string text(unsigned int id) const {
        wchar_t buffer[256] = {};
        LoadStringW(m_resources, id, buffer, 256);
        EXPECT_STRNE(buffer, L"");
        return instruments::describe(buffer);
    }
    /// The call of one of the host's dialogs, closed by its Close.
    std::string callOfDialog(const std::string& operation) const {
        return operation + "(" + text(IDS_LSTATE_KIND) + ", " + text(IDS_LSTATE_NAME_ADVICE) + ") = 8";
    }
    static Script close() { return Script().waitForControl(IDCLOSE).press(VK_RETURN); }
    static Calls callsOfCheck(const std::string& name, int status) {
        return {"keldbHostApplicationServices()", "workingDatabase() = object", "extendedNamesMode(object) = true",
                "maxNameLength(true, true), length=255",
                "validateNameCharacters(\"" + name + "\", true, false, true) = " + std::to_string(status)};
    }
    static Calls with(Calls calls, const std::string& last) {
        calls.push_back(last);
        return calls;
    }

    HMODULE m_resources = nullptr;
    HINSTANCE m_before = nullptr;
};

TEST_F(StateNames, AGoodNameIsCheckedByTheHostAlone) {
    EXPECT_EQ(check(L"Ground floor"), 1);
    EXPECT_THAT(instruments::trace(), ElementsAreArray(callsOfCheck("Ground floor", Vorn::eOk)));
}

TEST_F(StateNames, TheNameOfAStateIsNoneOfThisChecksBusiness) {
    EXPECT_EQ(check(L"Taken"), 1);
}

TEST_F(StateNames, AnEmptyNameNeverReachesTheHostsRules) {
    EXPECT_EQ(check(L"", close()), 0);
    EXPECT_THAT(instruments::trace(), ElementsAre(callOfDialog("ShowInvalidNameEmptyNameDialog")));
}

TEST_F(StateNames, UnsupportedCharactersAreTold) {
    EXPECT_EQ(check(L"a|b", close()), 0) << "no vertical bar in a name that is new";
    EXPECT_THAT(instruments::trace(), ElementsAreArray(with(callsOfCheck("a|b", Vorn::eInvalidInput),
                                                            callOfDialog("ShowInvalidNameUnsupportedCharacters"))));
}

TEST_F(StateNames, TooLongANameIsTold) {
    EXPECT_EQ(check(std::wstring(255, L'n')), 1);
    instruments::clearTrace();
    EXPECT_EQ(check(std::wstring(256, L'n'), close()), 0);
    EXPECT_THAT(instruments::trace(), ElementsAreArray(with(callsOfCheck(std::string(256, 'n'), Vorn::eNameTooLong),
                                                            callOfDialog("ShowInvalidNameTooLongDialog"))));
}

TEST_F(StateNames, AnyOtherStatusRefusesInSilence) {
    for (const Vorn::ErrorStatus status :
         {Vorn::eKeyNotFound, Vorn::eDuplicateRecordName, static_cast<Vorn::ErrorStatus>(12345)}) {
        instruments::clearTrace();
        instruments::failCall("validateNameCharacters", 1, status);
        EXPECT_EQ(check(L"Ground"), 0);
        EXPECT_THAT(instruments::trace(), ElementsAreArray(callsOfCheck("Ground", status)));
    }
}

TEST_F(StateNames, TheHostsNameModeGoesIntoTheOtherQuestions) {
    instruments::failCall("extendedNamesMode", 1); // answers false
    EXPECT_EQ(check(L"Ground"), 1);
    EXPECT_THAT(instruments::trace(),
                ElementsAre("keldbHostApplicationServices()", "workingDatabase() = object",
                            "extendedNamesMode(object) = false", "maxNameLength(true, false), length=31",
                            "validateNameCharacters(\"Ground\", true, false, false) = 0"));
}

TEST_F(StateNames, TheLimitIsTheHostsForANewName) {
    EXPECT_EQ(stateNameLimit(), 255);
    EXPECT_THAT(instruments::trace(),
                ElementsAre("keldbHostApplicationServices()", "workingDatabase() = object",
                            "extendedNamesMode(object) = true", "maxNameLength(true, true), length=255"));
    instruments::failCall("extendedNamesMode", 1);
    EXPECT_EQ(stateNameLimit(), 31);
}

TEST_F(StateNames, TheDialogsStandOverTheMainWindowOfTheThread) {
    CWnd mainWindow;
    ASSERT_TRUE(mainWindow.CreateEx(0, AfxRegisterWndClass(0), L"Main window", WS_OVERLAPPEDWINDOW,
                                    CRect(0, 0, 600, 400), nullptr, 0));
    AfxGetThread()->m_pMainWnd = &mainWindow;
    const Script overMainWindow =
        Script()
            .waitForControl(IDCLOSE)
            .look("its owner",
                  [&mainWindow](const View& view) { EXPECT_EQ(GetWindow(view.window(), GW_OWNER), mainWindow.m_hWnd); })
            .click(IDCLOSE);
    for (const std::wstring& name : {std::wstring(), std::wstring(L"a?b"), std::wstring(256, L'n')})
        EXPECT_EQ(check(name, overMainWindow), 0);
    AfxGetThread()->m_pMainWnd = nullptr;
    mainWindow.DestroyWindow();
}

TEST_F(StateNames, TheTextsComeFromTheResourcesThatTheCallerHasInScope) {
    AfxSetResourceHandle(m_before);
    EXPECT_EQ(check(L"", close()), 0);
    EXPECT_THAT(instruments::trace(), ElementsAre("ShowInvalidNameEmptyNameDialog(\"\", \"\") = 8"));
}

} // namespace
