// Importing layer states files as they may come: of every version that was ever written, and damaged.

#include "TransferTest.h"

#include "../../unit/hostile/StateFileDamage.h"

#include "WholeDrawing.h"
#include "engine/DatabaseAccess.h"
#include "files/DrawingFile.h"
#include "files/TextCoding.h"

#include <algorithm>
#include <filesystem>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using ui::Script;
using ui::TestDrawing;
using ui::View;

/// The file that was written by that version, and is kept for ever.
std::wstring frozen(const std::wstring& version) {
    return zdr::widePath(TEST_DATA) + L"/state_version" + version + L".las";
}

class StateFiles : public TransferTest {
  protected:
    std::vector<std::byte> drawingAsBytes() const {
        std::vector<std::byte> bytes;
        std::wstring reason;
        EXPECT_EQ(zdr::drawingBytes(engine::drawingOf(database()), bytes, reason), Vorn::eOk) << ui::narrow(reason);
        return bytes;
    }
};

TEST_F(StateFiles, OfEveryVersionComeInAndGoOutAsTheyWere) {
    const std::pair<const wchar_t*, const wchar_t*> versions[] = {{L"1", L"Gro\u00DF"}, {L"2", L"Facade"}};
    for (const auto& version : versions) {
        const std::wstring name = version.second;
        open(TestDrawing());
        std::filesystem::copy_file(frozen(version.first), file(L"frozen.las"),
                                   std::filesystem::copy_options::overwrite_existing);
        manage(import(L"frozen.las")
                   .then(leaveTaskDialog(kImported))
                   .waitForControl(kManagersOwn)
                   .then(exportTo(name + L".las"))
                   .waitUntil("it is exported", [](const View&) { return !ui::callsOf("exportLayerState").empty(); })
                   .then(backInManager({name}, name)));
        EXPECT_EQ(bytesOf(file(name + L".las")), bytesOf(frozen(version.first))) << ui::narrow(version.first);
    }
}

/// One of each kind of damage.
std::vector<StateFileDamage> kindsOfDamage() {
    const char* const kinds[] = {// texts that are no layer states file
                                 "nothing", "drawing", "notUtf8", "otherObject", "aHundredThousandLists",
                                 // a state that can't be one
                                 "newerVersion", "noDescription", "nameOfAReference", "nameTooLong",
                                 // layers that can't be any
                                 "layerTwice", "colorBeyond", "viewportWithoutOne"};
    const std::vector<StateFileDamage> all = damagedStateFiles();
    std::vector<StateFileDamage> some;
    for (const char* kind : kinds) {
        const auto found = std::ranges::find(all, kind, &StateFileDamage::name);
        EXPECT_NE(found, all.end()) << kind;
        if (found != all.end())
            some.push_back(*found);
    }
    const std::vector<StateFileDamage> cuts = cutStateFiles();
    some.push_back(cuts[cuts.size() / 2]);
    return some;
}

TEST_F(StateFiles, ThatAreDamagedAreToldOnceAndTheDrawingKeepsAllItsStates) {
    for (const StateFileDamage& damage : kindsOfDamage()) {
        SCOPED_TRACE(damage.name);
        open(TestDrawing().state(L"One", MaskColor, L"as described").state(L"Two", MaskAllProperties));
        const std::vector<std::byte> before = drawingAsBytes();
        writeBytes(file(L"damaged.las"), std::as_bytes(std::span(damage.text)));
        manage(import(L"damaged.las").then(leaveTaskDialog(kCannotRestore)).then(backInManager({L"One", L"Two"}, L"")));
        EXPECT_THAT(ui::callsOf("importLayerState"),
                    ElementsAre(HasSubstr("damaged.las\") = " + std::to_string(damage.status) + ", name=")));
        EXPECT_EQ(drawingAsBytes(), before);
        EXPECT_THAT(wholenessProblems(database()), IsEmpty());
    }
}

} // namespace
