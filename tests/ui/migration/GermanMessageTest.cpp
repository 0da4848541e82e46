// The message in German.

#include "SnapshotMigrationTest.h"

using ui::Script;
using ui::View;

namespace {

/// The module with its German texts alone: a module that is loaded by its bare name is the one of that name that is in
/// the process already.
class GermanMessage : public SnapshotMigrationTest {
  protected:
    void SetUp() override {
        m_german = LoadLibraryW((ui::programFolder() / L"german" / L"KelLayerAppsRes.dll").c_str());
        ASSERT_NE(m_german, nullptr);
        SnapshotMigrationTest::SetUp();
    }
    void TearDown() override {
        SnapshotMigrationTest::TearDown();
        FreeLibrary(m_german);
    }
    HMODULE m_german = nullptr;
};

TEST_F(GermanMessage, SaysHowManyStatesCame) {
    for (const int count : {1, 2, 12}) {
        openWithLegacyStates(count);
        const std::wstring text = L"Kel Workbench hat in dieser Zeichnung Layerstatus eines älteren Layerwerkzeugs "
                                  L"gefunden und in heutige umgewandelt.\n\nUmgewandelte Layerstatus: " +
                                  std::to_wstring(count);
        EXPECT_TRUE(runLayerState(
            Script()
                .waitForText(text)
                .look("the title", [](const View& view) { EXPECT_EQ(view.title(), L"Layerstatus umgewandelt"); })
                .press(VK_RETURN)
                .then(closeManager())));
        releaseKeptChains();
    }
}

TEST_F(GermanMessage, SaysHowManySnapshotsCameToo) {
    loadAddOn();
    for (const int count : {1, 2, 12}) {
        openWithLegacyStates(count);
        saveSnapshots(count + 1);
        const std::wstring text =
            L"Kel Workbench hat in dieser Zeichnung Layerstatus älterer Werkzeuge gefunden und in heutige "
            L"umgewandelt.\n\nUmgewandelte Layerstatus: " +
            std::to_wstring(count) + L"\nUmgewandelte Layeraufnahmen: " + std::to_wstring(count + 1);
        EXPECT_TRUE(runLayerState(Script().waitForText(text).press(VK_RETURN).then(closeManager())));
        releaseKeptChains();
    }
}

} // namespace
