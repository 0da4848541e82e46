#include "OutsideQuestions.h"

#include "CommandText.h"

#include "files/OutsidePaths.h"
#include "files/ShownText.h"

#include <algorithm>

namespace workbench {

namespace {

constexpr const wchar_t* kLeftAlone =
    L"and you have chosen not to look for files in its folder: OUTSIDE FORGET takes that back";
constexpr const wchar_t* kUnattended =
    L"and a script isn't asked whether to look for it: open the drawing yourself once, and answer";
constexpr const wchar_t* kCancelled = L"and wasn't looked for this time";

std::wstring questionAbout(const zdr::OutsideReference& reference) {
    return L"The reference " + quotation(reference.name) + L" leads out of this computer, to\n\n" +
           zdr::shownText(reference.path) +
           L"\n\nWhoever has the computer there sees that you look for this file. Look for it?\n\n" +
           L"Yes and No are kept for the folder " + zdr::shownText(reference.folder) +
           L". Cancel leaves out all that is outside, this time.";
}

} // namespace

std::wstring OutsideQuestions::whyNot(const zdr::OutsideReference& reference) {
    const std::vector<FolderAnswer> answers = m_window.keptAnswers();
    const auto kept = std::ranges::find_if(
        answers, [&](const FolderAnswer& answer) { return zdr::isSamePath(answer.folder, reference.folder); });
    if (kept != answers.end())
        return kept->mayLook ? L"" : kLeftAlone;
    if (!m_window.isAttended())
        return kUnattended;
    const LookAnswer answer = m_isCancelled ? LookAnswer::Cancel : m_window.askToLookOutside(questionAbout(reference));
    m_isCancelled = answer == LookAnswer::Cancel;
    if (m_isCancelled)
        return kCancelled;
    const bool mayLook = answer == LookAnswer::Yes;
    m_window.keepAnswer({reference.folder, mayLook});
    return mayLook ? L"" : kLeftAlone;
}

} // namespace workbench
