#include "SnapshotMigrationTest.h"

#include "CommandLineInput.h"
#include "CommandLineOutput.h"

void SnapshotMigrationTest::TearDown() {
    unloadAddOn();
    MigrationTest::TearDown();
}

void SnapshotMigrationTest::loadAddOn(const std::wstring& folder) {
    ASSERT_EQ(m_addOn.load((ui::programFolder() / folder / L"TrelUiBase.xmod").wstring()), L"");
}

void SnapshotMigrationTest::unloadAddOn() {
    m_addOn.unloadAll();
}

std::wstring SnapshotMigrationTest::runSnapshot(const std::wstring& arguments) {
    std::wstring printed;
    runtime::setOutputSink([&printed](const std::wstring& text) { printed += text; });
    const runtime::CommandArguments given(arguments);
    runCommand(L"LAYERSNAPSHOT");
    runtime::setOutputSink({});
    return printed;
}

void SnapshotMigrationTest::saveSnapshots(int count) {
    for (int index = 1; index <= count; ++index) {
        setWallsColor(10 + index);
        const std::wstring name = L"S" + std::to_wstring(index);
        EXPECT_EQ(runSnapshot(L"SAVE " + name), L"The layer snapshot \"" + name + L"\" is saved.\n");
    }
    setWallsColor(7);
}

std::wstring SnapshotMigrationTest::listedSnapshots() {
    return runSnapshot(L"LIST");
}

std::wstring SnapshotMigrationTest::messageOf(int legacyCount, int snapshotCount) {
    return L"Kel Workbench has found layer states of older tools in this drawing and turned them into current layer "
           L"states.\n\nLayer states converted: " +
           std::to_wstring(legacyCount) + L"\nLayer snapshots converted: " + std::to_wstring(snapshotCount);
}
