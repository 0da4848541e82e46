#include "PickerFixture.h"

#include "Documents.h"
#include "Runtime.h"
#include "engine/DatabaseAccess.h"
#include "instruments/HostCalls.h"
#include "pickers/PickerIds.h"

#include <algorithm>

namespace {

constexpr int kMostCalls = 500;

bool startsWith(const std::string& text, const std::string& start) {
    return text.compare(0, start.size(), start) == 0;
}

} // namespace

PickerFixture::PickerFixture() {
    runtime::reset();
}

PickerFixture::~PickerFixture() {
    instruments::clearFaults();
    runtime::reset();
}

void PickerFixture::open(const zdr::Drawing& drawing) {
    auto opened = std::make_unique<KelDbDatabase>(false, false);
    engine::replaceDrawing(*opened, drawing);
    runtime::openDocument(std::move(opened), L"");
    instruments::clearTrace();
}

KelDbDatabase& PickerFixture::database() const {
    return runtime::currentDocument()->data();
}

KelDbObjectId PickerFixture::linetypeId(const wchar_t* name) const {
    const zdr::Drawing& drawing = engine::drawingOf(database());
    const auto found = std::find_if(drawing.linetypes.begin(), drawing.linetypes.end(),
                                    [&](const auto& linetype) { return drawing.names.text(linetype.name) == name; });
    return found == drawing.linetypes.end() ? KelDbObjectId() : engine::objectId(database(), found->handle);
}

void PickerFixture::answer(const ui::Script& script, const std::function<void()>& pick) {
    ui::bringPointerAway();
    ui::perform(script, pick);
}

std::vector<std::string> PickerFixture::tracedCalls(const std::string& operation) {
    std::vector<std::string> calls;
    for (const std::string& line : instruments::trace())
        if (startsWith(line, operation + "("))
            calls.push_back(line);
    return calls;
}

std::vector<std::string> PickerFixture::setUpCalls() {
    std::vector<std::string> calls;
    for (const std::string& line : instruments::trace())
        for (const char* call :
             {"SetDialogName", "OnInitDialog", "SetControlProperty", "SetContextHelpPrefix", "SetContextHelpFileName",
              "SetUseTips", "GetColumnSizes", "SetPersistency", "SaveColumnSizes"})
            if (startsWith(line, call))
                calls.push_back(line.substr(0, line.find(' ')));
    return calls;
}

testing::Matcher<std::vector<std::string>> isSetUpOfList(const std::string& name, int resized) {
    return testing::ElementsAre("SetDialogName(\"" + name + "\")", "OnInitDialog()",
                                "SetControlProperty(" + std::to_string(resized) + ")", "SetContextHelpPrefix(\"LAST\")",
                                "SetContextHelpFileName(\"/KelDialogToolTips;Component/DialogToolTips.xaml\")",
                                "SetUseTips(2)", "GetColumnSizes(1401)", "SetPersistency(1)", "SaveColumnSizes(1401)");
}

ui::Script confirmOrLeave() {
    ui::Script script;
    script.ifStillOpen();
    script.press(VK_RETURN);
    const auto presses = std::make_shared<int>(0);
    script.step("leave", [presses](const ui::View&) -> ui::Obstacle {
        constexpr int kPatience = 10; // how often to look again for a dialog that Enter is closing
        if (++*presses > kPatience)
            ui::pressKey(VK_ESCAPE);
        return "it is still open";
    });
    return script;
}

ui::Script growByItsCorner(LONG right, LONG down) {
    const auto before = std::make_shared<RECT>();
    const auto corner = std::make_shared<POINT>();
    ui::Script script;
    script.waitForControl(IDC_PICKER_LIST).look("its corner", [=](const ui::View& view) {
        *before = view.rect(IDC_PICKER_LIST);
        *corner = {view.rect().right - 2, view.rect().bottom - 2};
    });
    script.pointAt([corner] { return *corner; });
    script.look("take hold of it", [](const ui::View&) { ui::pressButton(); });
    script.pointAt([=] { return POINT{corner->x + right, corner->y + down}; });
    script.look("let go", [](const ui::View&) { ui::releaseButton(); });
    script.waitUntil("the list has grown as much", [=](const ui::View& view) {
        const RECT list = view.rect(IDC_PICKER_LIST);
        return list.left == before->left && list.top == before->top && list.right == before->right + right &&
               list.bottom == before->bottom + down;
    });
    script.press(VK_ESCAPE);
    return script;
}

int sweepFailures(const std::function<void()>& pick, const std::function<void()>& check) {
    for (int call = 1; call < kMostCalls; ++call) {
        SCOPED_TRACE("failing call " + std::to_string(call));
        instruments::failAnyCall(call);
        ui::perform(confirmOrLeave(), pick);
        const bool struck = instruments::faultStruck();
        instruments::clearFaults();
        check();
        EXPECT_THAT(instruments::ledger(), testing::IsEmpty());
        if (!struck || testing::Test::HasFailure())
            return call - 1;
    }
    ADD_FAILURE() << "there is no end of calls that can fail";
    return kMostCalls;
}
