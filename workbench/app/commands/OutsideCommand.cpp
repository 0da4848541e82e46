// OUTSIDE: the answers that are kept to the question whether references may lead out of this computer.

#include "CommandFunctions.h"
#include "Session.h"

#include "files/ShownText.h"

namespace workbench::commands {

namespace {

void list(Session& session, const Words&) {
    std::wstring text;
    for (const FolderAnswer& answer : session.window().keptAnswers())
        text += quotedWhereNeeded(zdr::shownText(answer.folder)) +
                (answer.mayLook ? L" - looked into\n" : L" - left alone\n");
    session.window().print(text.empty() ? L"You have been asked about no folder outside this computer.\n" : text);
}

void forget(Session& session, const Words& words) {
    const std::wstring typed = unquoted(words[0]);
    std::size_t count = 0;
    for (const FolderAnswer& answer : session.window().keptAnswers())
        if (matches(answer.folder, typed)) {
            session.window().forgetAnswer(answer.folder);
            ++count;
        }
    if (count == 0)
        session.refuse(L"No answer is kept for " + quotation(typed) + L": OUTSIDE LIST names the folders.\n");
    else
        session.window().print((count == 1 ? L"1 answer is" : std::to_wstring(count) + L" answers are") +
                               std::wstring(L" forgotten: you are asked again.\n"));
}

// clang-format off
constexpr Option kOutsideOptions[] = {
    {L"LIST", nullptr, L"", L"Lists the folders that you have been asked about, and what you have answered.", {0, 0}, Offer::Nothing, Offer::Nothing, list},
    {L"FORGET", nullptr, L"folder|*", L"Forgets answers, so that you are asked again.", {1, 1}, Offer::Nothing, Offer::Nothing, forget},
};
// clang-format on

} // namespace

std::span<const Option> outsideOptions() {
    return kOutsideOptions;
}

} // namespace workbench::commands
