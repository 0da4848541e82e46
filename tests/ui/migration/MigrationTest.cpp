#include "MigrationTest.h"

#include "CQSETList.h"
#include "KelDbPointers.h"
#include "ModuleHandles.h"

using ui::Script;
using ui::View;

namespace {

using Layer = KelDbSymbolTableRecordPointer<KelDbLayerTableRecord>;

KelDbObjectId wallsOf(KelDbDatabase& database) {
    const KelDbSymbolTablePointer<KelDbLayerTable> table(&database, KelDb::kForRead);
    KelDbObjectId id;
    EXPECT_EQ(table->getAt(L"Walls", id), Vorn::eOk);
    return id;
}

} // namespace

void MigrationTest::SetUp() {
    HostTest::SetUp();
    loadModule();
    g_resourceModule = GetModuleHandleW(L"KelLayerAppsRes.dll"); // for the sources that this program has of the module
}

void MigrationTest::TearDown() {
    releaseKeptChains();
    HostTest::TearDown();
}

void MigrationTest::openWithLegacyStates(int count) {
    open(ui::TestDrawing().layer(L"Walls"));
    for (int index = 1; index <= count; ++index) {
        setWallsColor(index);
        CString name;
        name.Format(L"PLAN%d", index);
        ASSERT_TRUE(CQSETList(&database()).applyToLayers(CQSETList::OpWrite, name));
    }
    setWallsColor(7);
    releaseKeptChains();
    instruments::clearTrace();
}

int MigrationTest::wallsColor() const {
    return Layer(wallsOf(database()), KelDb::kForRead)->color().colorIndex();
}

void MigrationTest::setWallsColor(int color) {
    KelCmColor value;
    EXPECT_EQ(value.setColorIndex(static_cast<unsigned short>(color)), Vorn::eOk);
    Layer(wallsOf(database()), KelDb::kForWrite)->setColor(value);
}

std::vector<std::wstring> MigrationTest::stateNames() const {
    KelArray<KelString> names(0, 8);
    EXPECT_EQ(states().getLayerStateNames(names, true, true), Vorn::eOk);
    std::vector<std::wstring> found;
    for (const KelString& name : names)
        found.emplace_back(name.kwszPtr());
    return found;
}

std::vector<std::wstring> MigrationTest::legacyNames() const {
    CQSETList list(&database());
    std::vector<std::wstring> found;
    while (list.takeNextName())
        found.emplace_back(list.currentName().GetString());
    return found;
}

bool MigrationTest::runLayerState(Script script) {
    instruments::clearTrace();
    return ui::perform(std::move(script), [this] { runCommand(L"LAYERSTATE"); });
}

std::wstring MigrationTest::messageOf(int count) {
    return L"Kel Workbench has found layer states of an older layer tool in this drawing and turned them into current "
           L"layer states.\n\nLayer states converted: " +
           std::to_wstring(count);
}

Script MigrationTest::confirm(const std::wstring& text) {
    return Script()
        .waitForText(text)
        .look("the message", [](const View& view) { EXPECT_EQ(view.title(), resourceText(IDS_LSTATE_MIGRATED_TITLE)); })
        .press(VK_RETURN);
}

Script MigrationTest::closeManager() {
    return Script().waitForControl(IDC_LSTATE_RES_LIST).click(IDC_LSTATE_RES_CLOSE);
}

Calls MigrationTest::callsOfCommand() {
    Calls calls = instruments::trace();
    EXPECT_THAT(calls, testing::Not(testing::IsEmpty()));
    if (!calls.empty()) {
        EXPECT_THAT(calls.front(), testing::StartsWith("lookup("));
        calls.erase(calls.begin());
    }
    return calls;
}

void MigrationTest::releaseKeptChains() {
    for (const void* head : instruments::keysOf("chain node of type 1001"))
        kelutRelRb(static_cast<ResultBuffer*>(const_cast<void*>(head)));
}
