// The file dialog, into which a person types the address of a remote file.

#include "FileDialogFixture.h"

#include "GuiObjects.h"
#include "instruments/HostCalls.h"

using testing::Contains;
using testing::HasSubstr;

namespace {

class TypedAddress : public FileDialog {
  protected:
    /// A script that types an address that is refused, copies the message about it to `refused`, and cancels.
    std::wstring refused;
    ui::Script typedInVain(const std::wstring& text) {
        ui::Script script = ui::enterFileName(text);
        script.waitUntil("the message", [](const ui::View& view) { return view.icon() != nullptr; })
            .look("what it says",
                  [this](const ui::View& view) {
                      EXPECT_EQ(view.title(), title);
                      EXPECT_EQ(view.icon(), LoadIconW(nullptr, IDI_EXCLAMATION));
                      refused = view.texts().back();
                  })
            .press(VK_RETURN);
        untilDialogAgain(script);
        return script.look("the text is still there",
                           [text](const ui::View& view) { EXPECT_EQ(view.text(ui::kFileNameBox), text); });
    }
};

TEST_F(TypedAddress, isAnsweredAsItIsForOpeningAndForSaving) {
    for (const int flags : {0, 1})
        for (const wchar_t* address : {L"https://server.example/plans/a.las", L"http://127.0.0.1:8080/a.las?x=1",
                                       L"HTTPS://Server.Example/Plans/A.LAS", L"http://pl\u00e4ne/Gr\u00fcn 1.las"}) {
            EXPECT_EQ(ask(flags, ui::enterFileName(address)), kResultNormal) << ui::narrow(address);
            EXPECT_EQ(chosen(), address);
        }
    EXPECT_THAT(instruments::trace(), Contains(HasSubstr("path=\"https://server.example/plans/a.las\"")));
}

TEST_F(TypedAddress, isTakenFromTheButtonToo) {
    EXPECT_EQ(ask(0, ui::typeFileName(L"https://server.example/a.las").click(IDOK)), kResultNormal);
    EXPECT_EQ(chosen(), L"https://server.example/a.las");
}

TEST_F(TypedAddress, losesTheBlanksAroundIt) {
    EXPECT_EQ(ask(0, ui::enterFileName(L"   https://server.example/a b.las  ")), kResultNormal);
    EXPECT_EQ(chosen(), L"https://server.example/a b.las");
}

TEST_F(TypedAddress, isGivenNoExtension) {
    EXPECT_EQ(ask(1, ui::enterFileName(L"https://server.example/plans/a")), kResultNormal);
    EXPECT_EQ(chosen(), L"https://server.example/plans/a");
}

TEST_F(TypedAddress, replacesTheNameThatASaveBeginsWith) {
    EXPECT_EQ(ask(1, ui::enterFileName(L"http://server.example/a.las"), L"plan"), kResultNormal);
    EXPECT_EQ(chosen(), L"http://server.example/a.las");
}

TEST_F(TypedAddress, leavesTheKeptFolderAlone) {
    ASSERT_EQ(ask(0, ui::enterFileName(L"https://server.example/a.las")), kResultNormal);
    EXPECT_EQ(keptFolder(key), std::nullopt);
    ASSERT_EQ(ask(0, ui::enterFileName(folder + L"\\plan.las")), kResultNormal);
    ASSERT_EQ(ask(0, ui::enterFileName(L"https://server.example/a.las")), kResultNormal);
    EXPECT_EQ(keptFolder(key), folder);
    EXPECT_EQ(ask(0, ui::enterFileName(L"plan.las")), kResultNormal);
    EXPECT_EQ(chosen(), folder + L"\\plan.las");
}

TEST_F(TypedAddress, ofNoServerIsRefusedWithAReasonAndTheDialogStays) {
    const std::pair<const wchar_t*, const wchar_t*> rows[] = {
        {L"http://", L"The address \"http://\" "},
        {L"https:/server/a.las", L"lacks the two slashes behind https:. Correct it; "},
        {L"http://h:0/a.las", L"has a port that isn't a number from 1 to 65535. Correct it; "},
        {L"http://user:secret@h/a.las", L"The address \"http://h/a.las\" has a user's name or password"},
        {L"ftp://server.example/a.las", L"is neither an http:// nor an https:// address. Give one that begins with "},
        {L"localhost:8080/a.las", L"is neither an http:// nor an https:// address. Give one that begins with "},
    };
    for (const int flags : {0, 1})
        for (const auto& [text, reason] : rows) {
            EXPECT_EQ(ask(flags, typedInVain(text).press(VK_ESCAPE)), kResultCancel) << ui::narrow(text);
            EXPECT_EQ(chain, nullptr);
            EXPECT_THAT(ui::narrow(refused), HasSubstr(ui::narrow(reason)));
            EXPECT_EQ(refused.find(L"secret"), std::wstring::npos);
        }
    EXPECT_EQ(keptFolder(key), std::nullopt);
}

TEST_F(TypedAddress, thatWasRefusedCanBeCorrected) {
    ui::Script script = typedInVain(L"http:/server/a.las");
    script.press('A', ui::holdControl).then(ui::enterFileName(L"http://server/a.las"));
    EXPECT_EQ(ask(0, script), kResultNormal);
    EXPECT_EQ(chosen(), L"http://server/a.las");
}

TEST_F(TypedAddress, thatWasRefusedCanGiveWayToAFile) {
    ui::Script script = typedInVain(L"http:/server/a.las");
    script.press('A', ui::holdControl).then(ui::enterFileName(folder + L"\\plan.las"));
    EXPECT_EQ(ask(0, script), kResultNormal);
    EXPECT_EQ(chosen(), folder + L"\\plan.las");
    EXPECT_EQ(keptFolder(key), folder);
}

TEST_F(TypedAddress, isNothingWhenTheDialogIsCancelled) {
    for (const int flags : {0, 1}) {
        EXPECT_EQ(ask(flags, ui::typeFileName(L"https://server.example/a.las").press(VK_ESCAPE)), kResultCancel);
        EXPECT_EQ(chain, nullptr);
        EXPECT_EQ(ask(flags, ui::typeFileName(L"https://server.example/a.las").click(IDCANCEL)), kResultCancel);
        EXPECT_EQ(chain, nullptr);
    }
}

TEST_F(TypedAddress, ofAFolderOfTheSystemIsTheSystemsToJudge) {
    ui::Script script = ui::enterFileName(L"SHELL:no such folder");
    script.waitUntil("the system's own message", [](const ui::View& view) { return !view.has(ui::kFileNameBox); })
        .look("it is the system's",
              [](const ui::View& view) {
                  for (const std::wstring& text : view.texts())
                      EXPECT_EQ(text.find(L"http"), std::wstring::npos) << ui::narrow(text);
              })
        .press(VK_RETURN);
    untilDialogAgain(script);
    EXPECT_EQ(ask(0, script.press(VK_ESCAPE)), kResultCancel);
}

TEST_F(TypedAddress, leavesNothingBehind) {
    const auto round = [this] {
        EXPECT_EQ(ask(0, ui::enterFileName(L"https://server.example/a.las")), kResultNormal);
        EXPECT_EQ(ask(1, typedInVain(L"ftp://server.example/a.las").press(VK_ESCAPE)), kResultCancel);
    };
    round();
    round();
    const int windows = countWindows();
    const std::optional<int> drawing = countGdiObjects();
    round();
    EXPECT_EQ(countWindows(), windows);
    EXPECT_EQ(countGdiObjects(), drawing);
}

} // namespace
