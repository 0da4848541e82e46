// Paths that lead to no file, to something that is none, or round in a circle.
#include "Attack.h"

#include "files/DrawingFile.h"
#include "files/References.h"
#include "files/TextCoding.h"

#if !defined(_WIN32)
#include <sys/stat.h>
#endif

namespace {

enum class Way { Read, Import, Export };

Outcome go(const Target& target, Way way, const std::wstring& path) {
    KelString name;
    const auto answer = [&] {
        if (way == Way::Read)
            return target.database.readZdrFile(path.c_str(), 64, false, nullptr);
        return way == Way::Import ? target.states().importLayerState(path.c_str(), name)
                                  : target.states().exportLayerState(L"Plan", path.c_str());
    };
    const Vorn::ErrorStatus status = answer();
    return {status, path, engine::lastFileProblem(target.database)};
}

using MakePath = std::function<std::wstring(const Target&)>;

/// The same path on all three ways: reading and importing answer `status`, and exporting can't write.
void addPath(std::vector<Attack>& all, const std::string& name, const MakePath& path, Vorn::ErrorStatus status,
             const std::string& reason, const std::string& exportReason) {
    for (const Way way : {Way::Read, Way::Import, Way::Export}) {
        const char* ways[] = {"Read", "Import", "Export"};
        const bool writes = way == Way::Export;
        all.push_back({name + ways[static_cast<int>(way)],
                       [=](const Target& target) { return go(target, way, path(target)); },
                       writes ? Vorn::eFileWriteFailed : status, writes ? exportReason : reason});
    }
}

MakePath always(std::wstring path) {
    return [path](const Target&) { return path; };
}

std::wstring besideAFile(const Target& target) {
    return target.write(L"file", "content") + L"\\drawing.zdr";
}

#if defined(_WIN32)
constexpr const char* kFolderReason = "failed, because of";
constexpr const char* kBesideAFileReason = "making a file in its folder failed";
constexpr Vorn::ErrorStatus kVeryLong = Vorn::eFileNotFound;
constexpr const char* kVeryLongReason = "doesn't exist";

void addDevices(std::vector<Attack>& all) {
    addPath(all, "null", always(L"NUL"), Vorn::eFileUnreadable, "it isn't a file", "it isn't a file");
    addPath(
        all, "nullInAFolder", [](const Target& target) { return target.folder.file(L"NUL"); }, Vorn::eFileUnreadable,
        "it isn't a file", "it isn't a file");
}
#else
constexpr const char* kFolderReason = "Is a directory";
constexpr const char* kBesideAFileReason = "Not a directory";
constexpr Vorn::ErrorStatus kVeryLong = Vorn::eFileUnreadable;
constexpr const char* kVeryLongReason = "File name too long";

std::wstring pipe(const Target& target) {
    const std::wstring path = target.folder.file(L"pipe");
    mkfifo(zdr::systemPath(path).c_str(), 0600);
    return path;
}

void addDevices(std::vector<Attack>& all) {
    for (const wchar_t* device : {L"/dev/null", L"/dev/zero"})
        all.push_back({"device" + zdr::toUtf8(device + 5), [=](const Target& t) { return go(t, Way::Read, device); },
                       Vorn::eFileUnreadable, "it isn't a file"});
    // Exporting is tried with a pipe, which looks like a device to the program, and which may be lost if it is
    // replaced.
    addPath(all, "pipe", pipe, Vorn::eFileUnreadable, "it isn't a file", "it isn't a file");
}
#endif

/// Writes a drawing that refers to others by path.
void writeReferring(const Target& target, const wchar_t* file, std::initializer_list<const wchar_t*> paths) {
    zdr::Drawing drawing = makeDrawing();
    for (const wchar_t* path : paths)
        drawing.references.push_back({L"r" + std::to_wstring(drawing.references.size()), path, {}, 1, 0, nullptr});
    std::wstring reason;
    zdr::FileStamp stamp;
    EXPECT_EQ(zdr::writeDrawingFile(target.folder.file(file), drawing, reason, stamp), Vorn::eOk);
}

/// Opens "main.zdr"; answers the outcome for its first reference that couldn't be resolved.
Outcome openReferences(const Target& target) {
    zdr::Drawing drawing;
    std::wstring reason;
    std::vector<zdr::ReferenceProblem> problems;
    const std::wstring path = target.folder.file(L"main.zdr");
    const Vorn::ErrorStatus status = zdr::readDrawingFile(path, drawing, reason);
    zdr::resolveReferences(drawing, path, problems);
    return problems.empty() ? Outcome{status} : Outcome{status, problems[0].path, problems[0].reason};
}

Attack reference(std::string name, const wchar_t* path, std::string reason) {
    return {std::move(name),
            [path](const Target& target) {
                writeReferring(target, L"main.zdr", {path});
                target.write(L"text.zdr", "no drawing");
                std::filesystem::create_directory(target.folder.path() / "folder");
                return openReferences(target);
            },
            Vorn::eOk, std::move(reason)};
}

} // namespace

std::vector<Attack> pathAttacks() {
    std::vector<Attack> all;
    addPath(
        all, "folder", [](const Target& target) { return zdr::widePath(target.folder.path()); }, Vorn::eFileUnreadable,
        "it is a folder", kFolderReason);
    addPath(
        all, "noFolder", [](const Target& target) { return target.folder.file(L"none\\a.zdr"); }, Vorn::eFileNotFound,
        "doesn't exist", "making a file in its folder failed");
    addPath(all, "besideAFile", besideAFile, Vorn::eFileNotFound, "doesn't exist", kBesideAFileReason);
    addPath(all, "empty", always(L""), Vorn::eFileNotFound, "doesn't exist", "can't be written: ");
    addPath(
        all, "veryLong", [](const Target& t) { return t.folder.file(std::wstring(5000, L'x')); }, kVeryLong,
        kVeryLongReason, "can't be written: ");
    addDevices(all);
    all.push_back({"noPathRead",
                   [](const Target& t) { return Outcome{t.database.readZdrFile(nullptr, 64, false, nullptr)}; },
                   Vorn::eFileNotFound});
    all.push_back({"noPathExport",
                   [](const Target& t) { return Outcome{t.states().exportLayerState(L"Plan", nullptr)}; },
                   Vorn::eInvalidInput});
    return all;
}

std::vector<Attack> referenceAttacks() {
    return {
        reference("toItself", L"main.zdr", "isn't shown here, because it refers to itself"),
        reference("toItselfInDisguise", L"folder\\..\\.\\main.zdr", "because it refers to itself"),
        reference("toAFolder", L"folder", "it is a folder"),
        reference("toNothing", L"gone.zdr", "doesn't exist"),
        reference("toText", L"text.zdr", "isn't a drawing"),
        reference("toAServer", L"\\\\server\\share\\x.zdr", "is outside this computer"),
        reference("toAServerInDisguise", L"//?/C:/../UNC/server/share/x.zdr", "is outside this computer"),
        reference("toAnAddress", L"http://server/x.zdr", "isn't looked for, because an address is no path"),
        {"inACircleOfThree",
         [](const Target& target) {
             writeReferring(target, L"main.zdr", {L"b.zdr"});
             writeReferring(target, L"b.zdr", {L"c.zdr"});
             writeReferring(target, L"c.zdr", {L"main.zdr"});
             return openReferences(target);
         },
         Vorn::eOk, "because it refers to itself"},
    };
}
