// Names that are typed: saved trimmed, or refused by the host's rules.

#include "SaveDialogTest.h"

namespace {

using testing::Contains;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;
using ui::Script;
using ui::View;

class SaveName : public SaveDialogTest {
  protected:
    static bool shows(const View& view, const std::wstring& text) {
        for (const std::wstring& each : view.texts())
            if (each.find(text) != std::wstring::npos)
                return true;
        return false;
    }
    /// A refusal: it names the thing, and says what the module has to add. Leads back to the dialog.
    static Script refusal() {
        Script script;
        return script.waitForControl(IDCLOSE)
            .look("the module's texts",
                  [](const View& view) {
                      EXPECT_TRUE(shows(view, resourceText(IDS_LSTATE_KIND)));
                      EXPECT_TRUE(shows(view, resourceText(IDS_LSTATE_NAME_ADVICE)));
                  })
            .press(VK_ESCAPE);
    }
    /// What the trace holds of a refusal of the name at OK.
    static Calls refused(const std::string& name, int status, const std::string& dialog) {
        Calls calls = checking(name, false);
        calls.resize(4); // what the check asks for before the name itself
        calls.push_back("validateNameCharacters(" + instruments::describe(std::wstring(name.begin(), name.end())) +
                        ", true, false, true) = " + std::to_string(status));
        if (!dialog.empty())
            calls.push_back(prompt(dialog));
        return calls;
    }
    static std::string prompt(const std::string& dialog) {
        const auto described = [](unsigned int id) { return instruments::describe(resourceText(id)); };
        return dialog + "(" + described(IDS_LSTATE_KIND) + ", " + described(IDS_LSTATE_NAME_ADVICE) +
               ") = " + std::to_string(IDCANCEL);
    }
};

TEST_F(SaveName, ANewStateHasAllPropertiesAndTheDescriptionAsTyped) {
    open(house());
    save(Script().then(countFromHere()).type(L"New").pressAlt(L'd').type(L"  two  blanks ").press(VK_RETURN));
    EXPECT_THAT(
        instruments::trace(),
        ElementsAreArray(joined({checking("New", false), saving("New", 1023, "  two  blanks "), restoring("New")})));
    EXPECT_EQ(storedNames(), (std::vector<std::wstring>{L"Plan", L"Bare", L"New"}));
    EXPECT_EQ(stored(L"New")->mask, MaskAllProperties);
    EXPECT_EQ(stored(L"New")->description, L"  two  blanks ");
    EXPECT_FALSE(stored(L"New")->hasViewportData);
    EXPECT_TRUE(states().compareLayerStateToDb(L"New", KelDbObjectId()));
}

TEST_F(SaveName, AnEmptyDescriptionIsWrittenToo) {
    open(house());
    saveFromManager(Script().then(countFromHere()).type(L"New").click(IDOK));
    EXPECT_THAT(callsUpTo("setLayerStateDescription"),
                ElementsAreArray(joined({checking("New", false), saving("New", 1023, "")})));
}

TEST_F(SaveName, ADescriptionOfSeveralLinesIsStoredWithThem) {
    open(house());
    save(Script().type(L"New").pressAlt(L'd').type(L"one").press(VK_RETURN, ui::holdControl).type(L"two").click(IDOK));
    EXPECT_EQ(stored(L"New")->description, L"one\r\ntwo");
}

TEST_F(SaveName, InAViewportTheStateIsSavedWithIt) {
    open(house().inViewport());
    save(Script().then(countFromHere()).type(L"New").press(VK_RETURN));
    EXPECT_THAT(instruments::trace(), ElementsAreArray(joined({checking("New", false), saving("New", 1023, "", "#F0"),
                                                               restoring("New", "#F0")})));
    EXPECT_TRUE(stored(L"New")->hasViewportData);
}

TEST_F(SaveName, BlanksAroundTheNameAreLeftOut) {
    open(house());
    save(Script().then(countFromHere()).type(L"  New one \x3000").press(VK_RETURN));
    EXPECT_THAT(instruments::trace(), ElementsAreArray(joined({checking("New one", false), saving("New one", 1023, ""),
                                                               restoring("New one")})));
    EXPECT_TRUE(stored(L"New one"));
}

TEST_F(SaveName, SignsAndTheLongestNamesAreSavedAsTheyAre) {
    open(house());
    for (const std::wstring& name :
         {std::wstring(L"100 %s %d %%"), std::wstring(L"it's && (1)"), std::wstring(255, L'n')}) {
        save(Script().type(name).press(VK_RETURN));
        EXPECT_TRUE(stored(name)) << ui::narrow(name);
    }
}

TEST_F(SaveName, ANameWithCharactersThatCantBeUsedIsRefusedAndCanBeMended) {
    open(house());
    save(Script()
             .then(countFromHere())
             .type(L" say \"a<b\" ")
             .press(VK_RETURN)
             .then(refusal())
             .then(nameIsSelected(L"say \"a<b\""))
             .look("what was asked",
                   [](const View&) {
                       EXPECT_THAT(instruments::trace(),
                                   ElementsAreArray(refused("say \"a<b\"", Vorn::eInvalidInput,
                                                            "ShowInvalidNameUnsupportedCharacters")));
                   })
             .type(L"say")
             .press(VK_RETURN));
    EXPECT_EQ(storedNames(), (std::vector<std::wstring>{L"Plan", L"Bare", L"say"}));
}

TEST_F(SaveName, ANameThatIsTooLongIsRefused) {
    const std::wstring name(300, L'n');
    open(house().state(name, MaskOn)); // from the list more comes into the field than can be typed
    save(Script()
             .then(pick(1))
             .then(countFromHere())
             .click(IDOK)
             .then(refusal())
             .then(nameIsSelected(name))
             .look("what was asked",
                   [](const View&) {
                       EXPECT_THAT(instruments::trace(),
                                   ElementsAreArray(refused(std::string(300, 'n'), Vorn::eNameTooLong,
                                                            "ShowInvalidNameTooLongDialog")));
                   })
             .press(VK_ESCAPE));
    EXPECT_EQ(storedNames().size(), 3u);
}

TEST_F(SaveName, ARefusalForAnyOtherReasonIsSilent) {
    open(house());
    instruments::failCall("validateNameCharacters", 1, Vorn::eReservedName);
    save(Script()
             .then(countFromHere())
             .type(L"New")
             .press(VK_RETURN)
             .then(nameIsSelected(L"New"))
             .look("what was asked",
                   [](const View&) {
                       EXPECT_THAT(instruments::trace(), ElementsAreArray(refused("New", Vorn::eReservedName, "")));
                   })
             .press(VK_ESCAPE));
}

TEST_F(SaveName, AnEmptyNameIsRefusedWithoutAskingForTheRules) {
    open(house());
    save(Script()
             .type(L"   ")
             .look("OK is pressed although it is disabled",
                   [](const View& view) {
                       instruments::clearTrace();
                       PostMessageW(view.window(), WM_COMMAND, IDOK, 0);
                   })
             .then(refusal())
             .then(nameIsSelected(L""))
             .look("what was asked",
                   [](const View&) {
                       EXPECT_THAT(instruments::trace(),
                                   testing::ElementsAre(prompt("ShowInvalidNameEmptyNameDialog")));
                   })
             .press(VK_ESCAPE));
}

TEST_F(SaveName, WithoutAStateManagerAtOkTheDialogStaysOpenWithoutAWord) {
    open(house());
    Calls asked = checking("New", false);
    asked.pop_back();
    asked.back() = "getLayerStateManager() = null";
    save(Script()
             .type(L" New ")
             .look("the manager goes",
                   [](const View&) {
                       instruments::failCall("getLayerStateManager", 1);
                       instruments::clearTrace();
                   })
             .press(VK_RETURN)
             .waitUntil("it was looked for", [](const View&) { return instruments::faultStruck(); })
             .look("what was asked",
                   [&asked](const View& view) {
                       EXPECT_THAT(instruments::trace(), ElementsAreArray(asked));
                       EXPECT_EQ(view.text(IDC_LSTATE_SAVE_NAME), L"New");
                   })
             .press(VK_RETURN)); // it is back
    EXPECT_TRUE(stored(L"New"));
}

TEST_F(SaveName, CancelSavesNothing) {
    open(house());
    for (const bool byButton : {true, false}) {
        Script script;
        script.type(L"New").then(countFromHere());
        if (byButton)
            script.click(IDCANCEL);
        else
            script.press(VK_ESCAPE);
        save(std::move(script));
        EXPECT_THAT(instruments::trace(), IsEmpty());
        EXPECT_EQ(storedNames().size(), 2u);
    }
}

} // namespace
