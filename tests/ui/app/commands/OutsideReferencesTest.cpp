// The question whether to look for references outside this computer, as a person meets it, and what is kept of the
// answers.

#include "KeptAnswers.h"
#include "WorkbenchFixture.h"

#include <fstream>

using ui::Script;
using ui::View;
using workbench::FolderAnswer;

namespace {

constexpr const wchar_t* kKey = L"Software\\KelWorkbench\\OutsideFolders";
constexpr const wchar_t* kQuestion = L"The reference \"site\" leads out of this computer";
constexpr const wchar_t* kLeftOut = L"Reference \"site\" is not shown: The file \"";

class OutsideReferencesTest : public WorkbenchTest {
  protected:
    OutsideReferencesTest() {
        RegDeleteTreeW(HKEY_CURRENT_USER, kKey);
        writeSample("site.zdr");
        zdr::Drawing house = session().drawing();
        house.references.push_back({L"site", outside(), {}, 1, 0, nullptr});
        writeDrawing("house.zdr", house);
    }
    ~OutsideReferencesTest() override { RegDeleteTreeW(HKEY_CURRENT_USER, kKey); }

    /// The site, spelled so that only the system knows that it is on this computer.
    std::wstring outside() const { return L"\\\\.\\" + path("site.zdr"); }
    std::wstring siteFolder() const { return L"\\\\.\\" + folder.wstring(); }
    Script openHouse() const { return command(L"OPEN " + path("house.zdr")); }
    static Script question() {
        Script script;
        script.waitUntil("the question", [](const View& view) {
            const std::vector<std::wstring> texts = view.texts();
            return std::ranges::any_of(texts, [](const std::wstring& text) { return text.starts_with(kQuestion); });
        });
        return script;
    }
    /// Opens the house, answers by a key or a button, and quits.
    void openAndAnswer(const Script& answer) {
        Script script;
        script.then(openHouse()).then(question()).then(answer).then(said(L"Opened ")).then(command(L"QUIT"));
        runWith(script);
    }
    bool isShown() { return session().drawing().references.at(0).drawing != nullptr; }
    static void expectKept(const std::vector<FolderAnswer>& expected) {
        const std::vector<FolderAnswer> kept = workbench::keptAnswers();
        ASSERT_EQ(kept.size(), expected.size());
        for (std::size_t i = 0; i < kept.size(); ++i) {
            EXPECT_EQ(kept[i].folder, expected[i].folder);
            EXPECT_EQ(kept[i].mayLook, expected[i].mayLook);
        }
    }
};

} // namespace

TEST_F(OutsideReferencesTest, YesShowsTheReferenceAndIsKept) {
    openAndAnswer(Script().click(IDYES));
    EXPECT_TRUE(isShown());
    expectKept({{siteFolder(), true}});
}

TEST_F(OutsideReferencesTest, NoIsWhatEnterAnswersAndIsKept) {
    openAndAnswer(Script().press(VK_RETURN));
    EXPECT_FALSE(isShown());
    expectKept({{siteFolder(), false}});
}

TEST_F(OutsideReferencesTest, EscLeavesItOutAndKeepsNothing) {
    openAndAnswer(Script().press(VK_ESCAPE));
    EXPECT_FALSE(isShown());
    expectKept({});
}

TEST_F(OutsideReferencesTest, AKeptAnswerIsNotAskedForUntilItIsForgotten) {
    Script script;
    script.then(openHouse())
        .then(question())
        .click(IDNO)
        .then(said(kLeftOut))
        .then(command(L"NEW"))
        .then(openHouse())
        .then(said(L"A new drawing is open.\r\nCommand: OPEN " + path("house.zdr") + L"\r\n" + kLeftOut))
        .then(command(L"OUTSIDE LIST"))
        .then(said(siteFolder() + L" - left alone"))
        .then(command(L"OUTSIDE FORGET *"))
        .then(said(L"1 answer is forgotten"))
        .then(openHouse())
        .then(question())
        .click(IDYES)
        .then(
            said(L"1 answer is forgotten: you are asked again.\r\nCommand: OPEN " + path("house.zdr") + L"\r\nOpened "))
        .then(command(L"QUIT"));
    runWith(script);
    EXPECT_TRUE(isShown());
    expectKept({{siteFolder(), true}});
}

TEST_F(OutsideReferencesTest, AScriptIsAskedNothing) {
    std::ofstream(folder / "open.scr") << "OPEN " << ui::narrow(path("house.zdr")) << "\n";
    Script script;
    script.then(command(L"SCRIPT " + path("open.scr")))
        .then(said(L"and a script isn't asked whether to look for it"))
        .then(said(L"1 line done."))
        .then(command(L"QUIT"));
    runWith(script);
    EXPECT_FALSE(isShown());
    expectKept({});
}

TEST_F(OutsideReferencesTest, TheLinesOfTheProgramsStartAreAskedNothing) {
    window->runLater({L"OPEN " + path("house.zdr")}, false);
    Script script;
    script.then(said(L"and a script isn't asked whether to look for it")).then(command(L"QUIT"));
    runWith(script);
    EXPECT_FALSE(isShown());
}

TEST_F(OutsideReferencesTest, ADrawingThatTheProgramIsStartedWithIsAskedAbout) {
    window->typeLater(L"OPEN " + path("house.zdr"));
    Script script;
    script.then(question()).click(IDYES).then(said(L"Opened ")).then(command(L"QUIT"));
    runWith(script);
    EXPECT_TRUE(isShown());
}

TEST_F(OutsideReferencesTest, WhatIsNoAnswerInTheRegistryIsAskedAboutAgain) {
    const DWORD values[] = {2, 0xFFFFFFFF};
    const std::wstring folders[] = {siteFolder(), L"two", L"text", L"bytes", L"long", L"short"};
    const auto keep = [&](std::size_t index, DWORD type, const void* bytes, DWORD size) {
        ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, kKey, folders[index].c_str(), type, bytes, size), ERROR_SUCCESS);
    };
    const std::string much(100'000, '\1');
    keep(0, REG_DWORD, &values[0], sizeof(DWORD));
    keep(1, REG_DWORD, &values[1], sizeof(DWORD));
    keep(2, REG_SZ, L"1", 4);
    keep(3, REG_BINARY, "\1\0\0\0", 4);
    keep(4, REG_BINARY, much.data(), static_cast<DWORD>(much.size()));
    keep(5, REG_DWORD, "\1", 1);
    expectKept({});
    openAndAnswer(Script().click(IDYES));
    expectKept({{siteFolder(), true}});
}

TEST_F(OutsideReferencesTest, AnAnswerTakesThePlaceOfTheFormerOneForAFolder) {
    workbench::keepAnswer({L"\\\\server\\plans", true});
    workbench::keepAnswer({L"\\\\SERVER\\plans", false});
    ASSERT_EQ(workbench::keptAnswers().size(), 1u);
    EXPECT_FALSE(workbench::keptAnswers()[0].mayLook);
    workbench::forgetAnswer(L"\\\\server\\Plans");
    EXPECT_TRUE(workbench::keptAnswers().empty());
}
