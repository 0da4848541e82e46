// Importing from a drawing of 200 MB.

#include "TransferTest.h"

#include "files/DrawingFile.h"

#include <filesystem>

namespace {

using testing::ElementsAre;
using testing::SizeIs;
using ui::TestDrawing;

constexpr std::uintmax_t kMega = 1'000'000;

class ImportLargeDrawing : public TransferTest {
  protected:
    /// Saves a drawing with the states "One" and "Two" and so much drawn in it that its file has that size.
    void saveLargeDrawing(const std::wstring& name, std::uintmax_t size) const {
        saveDrawing(name, TestDrawing().state(L"One", MaskColor).state(L"Two", MaskOn, L"of the large one"));
        zdr::Drawing drawing;
        std::wstring reason;
        zdr::FileStamp stamp;
        ASSERT_EQ(zdr::readDrawingFile(file(name), drawing, reason, &stamp), Vorn::eOk) << ui::narrow(reason);
        constexpr std::size_t kPoints = 10'000;
        zdr::Polyline outline;
        for (std::size_t i = 0; i < kPoints; ++i)
            outline.points.push_back({static_cast<double>(i), static_cast<double>(i % 7)});
        for (std::uintmax_t bytes = 0; bytes < size; bytes += kPoints * sizeof(zdr::Point)) {
            zdr::Entity entity;
            entity.geometry = outline;
            drawing.entities.push_back(std::move(entity));
        }
        ASSERT_EQ(zdr::writeDrawingFile(file(name), drawing, reason, stamp), Vorn::eOk) << ui::narrow(reason);
    }
    /// Waits, for as long as a busy computer may take to read the file, for the window with that control.
    static ui::Script waitThroughReading(int control) {
        return ui::Script().waitUntil(
            "a window with control " + std::to_string(control),
            [control](const ui::View& view) { return view.has(control); }, std::chrono::minutes(1));
    }
};

TEST_F(ImportLargeDrawing, TakesWhatIsTickedAndLeavesTheRestAsItWas) {
    saveLargeDrawing(L"large.zdr", 200 * kMega);
    ASSERT_GE(std::filesystem::file_size(file(L"large.zdr")), 200 * kMega);
    open(TestDrawing().state(L"One", MaskOn, L"as described"));
    ASSERT_TRUE(manage(import(L"large.zdr")
                           .then(waitThroughReading(IDHELP))
                           .then(takeTicked())
                           .then(waitThroughReading(kManagersOwn))
                           .then(backInManager({L"One", L"Two"}, L""))));
    EXPECT_THAT(ui::callsOf("readZdrFile"), SizeIs(3));
    EXPECT_EQ(stateOf(L"One")->description, L"as described");
    EXPECT_EQ(stateOf(L"Two")->description, L"of the large one");
    EXPECT_EQ(stateOf(L"Two")->mask, MaskOn);
}

} // namespace
