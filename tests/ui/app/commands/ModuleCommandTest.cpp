// MODULE and the add-on's LAYERSNAPSHOT, typed into the main window.

#include "WorkbenchFixture.h"

using ui::Script;
using ui::View;

namespace {

class ModuleCommandTest : public WorkbenchTest {
  protected:
    std::uint32_t baseColor() { return session().drawing().columns.colors[0]; }
};

} // namespace

TEST_F(ModuleCommandTest, AModuleBesideTheProgramIsLoadedByItsNameAndBringsItsCommand) {
    Script script;
    script.then(command(L"LAYERSNAPSHOT LIST"))
        .then(said(L"Unknown command \"LAYERSNAPSHOT\""))
        .then(command(L"MODULE LOAD TrelUiBase"))
        .then(said(L"TrelUiBase.xmod is loaded."))
        .then(command(L"LAYERSNAPSHOT LIST"))
        .then(said(L"The drawing has no layer snapshots."))
        .then(command(L"MODULE LOAD TrelUiBase.xmod"))
        .then(said(L"TrelUiBase.xmod is loaded already."))
        .then(command(L"MODULE LIST"))
        .then(said(L"\\bin\\TrelUiBase.xmod"))
        .then(command(L"MODULE UNLOAD treluibase"))
        .then(said(L"TrelUiBase.xmod is unloaded."))
        .look("it is gone", [](const View&) { EXPECT_EQ(GetModuleHandleW(L"TrelUiBase.xmod"), nullptr); })
        .then(command(L"LAYERSNAPSHOT"))
        .then(said(L"Command: LAYERSNAPSHOT\r\nUnknown command"))
        .then(command(L"MODULE LIST"))
        .then(said(L"No module is loaded."))
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(ModuleCommandTest, AModuleThatIsntThereIsToldWithWhereItWasLookedFor) {
    Script script;
    script.then(command(L"MODULE LOAD Nowhere"))
        .then(said(L"\\Nowhere.xmod was not found."))
        .then(command(L"MODULE LOAD .\\Nowhere.dll"))
        .then(said(L"\\Nowhere.dll was not found."))
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(ModuleCommandTest, AModuleThatHasntAgreedToBeUnloadedStays) {
    wchar_t program[1024];
    const std::filesystem::path here(std::wstring(program, GetModuleFileNameW(nullptr, program, 1024)));
    const std::wstring path = (here.parent_path() / L"test-modules" / L"staying").wstring();
    Script script;
    script.then(command(L"MODULE LOAD \"" + path + L'"'))
        .then(said(L"staying.xmod is loaded."))
        .then(command(L"MODULE UNLOAD staying"))
        .then(said(L"staying.xmod stays until the Workbench ends: it takes no unloading before."))
        .look("it is there", [this](const View&) { EXPECT_EQ(window->modules().count(), 1u); })
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(ModuleCommandTest, ASnapshotIsTakenRestoredAndDeletedAndEachIsOneStepOfUndo) {
    Script script;
    script.then(command(L"MODULE LOAD TrelUiBase"))
        .then(command(L"LAYER COLOR 1 Base"))
        .then(command(L"layersnapshot save \"Ground floor\""))
        .then(said(L"The layer snapshot \"Ground floor\" is saved."))
        .then(command(L"LAYER COLOR 3 Base"))
        .then(command(L"LAYERSNAPSHOT RESTORE Ground floor"))
        .then(said(L"The layer snapshot \"Ground floor\" is restored."))
        .look("the layer is as it was", [this](const View&) { EXPECT_EQ(baseColor(), 1u); })
        .then(command(L"UNDO"))
        .then(said(L"Undone: LAYERSNAPSHOT."))
        .look("and not any more", [this](const View&) { EXPECT_EQ(baseColor(), 3u); })
        .then(command(L"LAYERSNAPSHOT LIST"))
        .then(said(L"Command: LAYERSNAPSHOT LIST\r\nGround floor"))
        .then(command(L"LAYERSNAPSHOT DELETE \"Ground floor\""))
        .then(said(L"The layer snapshot \"Ground floor\" is deleted."))
        .then(command(L"LAYERSNAPSHOT LIST"))
        .then(said(L"The drawing has no layer snapshots."))
        .then(command(L"QUIT"))
        .then(answerBox(L"Save the changes to Drawing1?", IDNO));
    runWith(script);
}

TEST_F(ModuleCommandTest, ASnapshotThatIsntThereAndAWrongLineAreTold) {
    Script script;
    script.then(command(L"MODULE LOAD TrelUiBase"))
        .then(command(L"LAYERSNAPSHOT RESTORE Roof"))
        .then(said(L"There is no layer snapshot \"Roof\": LAYERSNAPSHOT LIST names them."))
        .then(command(L"LAYERSNAPSHOT DELETE Attic"))
        .then(said(L"There is no layer snapshot \"Attic\": LAYERSNAPSHOT LIST names them."))
        .then(command(L"LAYERSNAPSHOT SAVE " + std::wstring(256, L'x')))
        .then(said(L"could not be saved: "));
    for (const wchar_t* line :
         {L"LAYERSNAPSHOT", L"LAYERSNAPSHOT SAVE", L"LAYERSNAPSHOT MAKE x", L"LAYERSNAPSHOT LIST x"})
        script.then(command(line))
            .then(said(std::wstring(L"Command: ") + line +
                       L"\r\nType LAYERSNAPSHOT SAVE name, "
                       L"RESTORE name, DELETE name, or LIST."));
    script.then(command(L"QUIT"));
    runWith(script);
}
