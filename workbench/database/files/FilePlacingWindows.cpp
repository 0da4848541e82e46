// The system's ReplaceFile keeps what belongs to a file. But it first moves the old file away and then gives the new
// one its name: a program that is killed in between leaves no file of that name. So it works beside the file, on a
// second name of it (a hard link), and what comes of that is given the file's name by one rename, which happens or
// doesn't.
//
// Where files have but one name (FAT, folders that a cloud service keeps) it works on the file itself, which is moved
// back when its new content doesn't come.
#include "FilePlacingWindows.h"

#include "FileHandleWindows.h"
#include "FileSecurityWindows.h"
#include "Refusal.h"
#include "SystemFailure.h"
#include "SystemPathsWindows.h"

namespace zdr {
namespace {

namespace fs = std::filesystem;

DWORD errorUnless(BOOL done) {
    return done ? ERROR_SUCCESS : GetLastError();
}

/// Programs that look into new files (search, virus scanners, another one reading a drawing) hold them for a moment.
/// ReplaceFile has errors of its own for that.
bool mayPass(DWORD error) {
    return error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED || error == ERROR_ALREADY_EXISTS ||
           error == ERROR_UNABLE_TO_REMOVE_REPLACED || error == ERROR_UNABLE_TO_MOVE_REPLACEMENT;
}

/// Takes the step until it goes well, or fails for good; answers its last error.
template <class Step> DWORD tryForAWhile(Step step) {
    constexpr int kTries = 50;
    constexpr DWORD kPause = 10; // milliseconds
    DWORD error = step();
    for (int left = kTries - 1; left > 0 && mayPass(error); --left) {
        Sleep(kPause);
        error = step();
    }
    return error;
}

void removeFile(const fs::path& path) {
    tryForAWhile([&path] { return errorUnless(DeleteFileW(path.c_str())); });
}

class Placing {
  public:
    Placing(fs::path& made, const std::wstring& target)
        : m_made(made), m_target(longPath(target)), m_second(longPath(besidePath(target))),
          m_old(longPath(besidePath(target))),
          m_flags(FileSecurity(made).givesTheSameRightsAs(FileSecurity(m_target)) ? kRightsAreThere : 0) {}
    void run();

  private:
    DWORD attempt();
    DWORD move(DWORD flags) const;
    DWORD mergeWith(const fs::path& file) const;
    bool makeSecondName();
    DWORD mergeBeside();
    DWORD mergeInPlace();
    void putBack();

    /// Some servers let nobody change an access list. That does no harm where it is the one that was wanted.
    static constexpr DWORD kRightsAreThere = REPLACEFILE_IGNORE_ACL_ERRORS;

    fs::path& m_made;
    const fs::path m_target;
    fs::path m_second;    // a second name for the old file, and then the new file's
    const fs::path m_old; // where ReplaceFile moves the old file to
    const DWORD m_flags;
    bool m_isMerged = false;
};

DWORD Placing::move(DWORD flags) const {
    return errorUnless(MoveFileExW(m_made.c_str(), m_target.c_str(), flags | MOVEFILE_WRITE_THROUGH));
}

DWORD Placing::mergeWith(const fs::path& file) const {
    return errorUnless(ReplaceFileW(file.c_str(), m_made.c_str(), m_old.c_str(), m_flags, nullptr, nullptr));
}

DWORD Placing::mergeBeside() {
    const DWORD error = mergeWith(m_second);
    // Names of the old file that its own one outlives; which of them are there depends on how far it came.
    removeFile(m_old);
    if (error != ERROR_SUCCESS) {
        removeFile(m_second);
        return error == ERROR_UNABLE_TO_MOVE_REPLACEMENT_2 ? ERROR_UNABLE_TO_MOVE_REPLACEMENT : error;
    }
    m_made.swap(m_second);
    m_isMerged = true;
    return ERROR_SUCCESS;
}

void Placing::putBack() {
    const auto step = [this] {
        return errorUnless(MoveFileExW(m_old.c_str(), m_target.c_str(), MOVEFILE_WRITE_THROUGH));
    };
    const DWORD error = tryForAWhile(step);
    if (error == ERROR_SUCCESS)
        return;
    fs::path made; // stays: the only file with the new content
    made.swap(m_made);
    throw Refusal{Vorn::eFileWriteFailed, L"lost its name while it was being replaced, because of \"" +
                                              errorText(error) + L"\": the old file is now \"" + m_old.wstring() +
                                              L"\", the new one \"" + made.wstring() + L"\""};
}

DWORD Placing::mergeInPlace() {
    const DWORD error = mergeWith(m_target);
    if (error == ERROR_UNABLE_TO_MOVE_REPLACEMENT_2)
        putBack();
    if (error != ERROR_SUCCESS)
        return error;
    m_made.clear();
    removeFile(m_old);
    // ReplaceFile doesn't wait for the disk.
    if (const FileHandle file(m_target.c_str(), GENERIC_WRITE); file)
        FlushFileBuffers(file.get());
    return ERROR_SUCCESS;
}

bool Placing::makeSecondName() {
    while (!CreateHardLinkW(m_second.c_str(), m_target.c_str(), nullptr)) {
        if (GetLastError() != ERROR_ALREADY_EXISTS) // left behind by a program that was killed
            return false;
        m_second = longPath(besidePath(m_target.wstring()));
    }
    return true;
}

DWORD Placing::attempt() {
    if (!m_isMerged) {
        // While this is open nobody can come who would keep the second name from being removed again.
        const FileHandle old(m_target.c_str(), DELETE);
        if (!old) {
            const DWORD error = GetLastError();
            return isMissing(error) ? move(0) : error;
        }
        if (isReadOnly(m_target.c_str()))
            return ERROR_ACCESS_DENIED; // its other names could not be removed either
        if (!makeSecondName())
            return mergeInPlace();
        if (const DWORD error = mergeBeside(); error != ERROR_SUCCESS)
            return error;
    }
    return move(MOVEFILE_REPLACE_EXISTING);
}

void Placing::run() {
    const DWORD error = tryForAWhile([this] { return attempt(); });
    if (error != ERROR_SUCCESS)
        writeFailure(L"replacing the old file", error);
    m_made.clear();
}

} // namespace

void placeFile(fs::path& made, const std::wstring& target) {
    Placing(made, target).run();
}

} // namespace zdr
