// zdrdiff: prints which layers differ between two drawings, or between the states of a name in them, and how.
//   zdrdiff before.zdr after.zdr [state]
// Exit code 0 when they were compared, 2 when one can't be read.

#include "LayerDifferences.h"

#include "KelDbDatabase.h"
#include "engine/DatabaseAccess.h"
#include "files/DrawingFile.h"
#include "files/References.h"

#include <clocale>
#include <cstdio>
#include <exception>
#include <filesystem>

namespace {

void print(std::FILE* stream, const std::wstring& text) {
    // The path's narrow form is UTF-8, which is what terminals read.
    const std::u8string narrow = std::filesystem::path(text).u8string();
    std::fwrite(narrow.data(), 1, narrow.size(), stream);
}

// References are attached, so that their layers are compared like the drawing's own.
bool read(const char* name, KelDbDatabase& database) {
    const std::wstring path = std::filesystem::path(name).wstring();
    zdr::Drawing drawing;
    std::wstring reason;
    if (zdr::readDrawingFile(path, drawing, reason) != Vorn::eOk) {
        print(stderr, reason + L"\n");
        return false;
    }
    std::vector<zdr::ReferenceProblem> problems;
    zdr::resolveReferences(drawing, path, problems);
    for (const zdr::ReferenceProblem& problem : problems)
        print(stderr, problem.name + L": " + problem.reason + L"\n");
    engine::replaceDrawing(database, std::move(drawing));
    return true;
}

int compare(int count, char** words) {
    if (count != 3 && count != 4) {
        std::fputs("usage: zdrdiff before.zdr after.zdr [state]\n", stderr);
        return 2;
    }
    KelDbDatabase beforeFile(false, true), afterFile(false, true);
    if (!read(words[1], beforeFile) || !read(words[2], afterFile))
        return 2;
    const zdr::Drawing& before = engine::drawingOf(beforeFile);
    const zdr::Drawing& after = engine::drawingOf(afterFile);
    const std::vector<zdrdiff::Difference> differences =
        count == 3 ? zdrdiff::layerDifferences(before, after)
                   : zdrdiff::stateDifferences(before, after, std::filesystem::path(words[3]).wstring());
    print(stdout, zdrdiff::differenceTable(differences, before.layers.size()));
    return 0;
}

} // namespace

int main(int count, char** words) {
    std::setlocale(LC_ALL, "C.UTF-8");
    try {
        return compare(count, words);
    } catch (const std::exception& problem) {
        std::fprintf(stderr, "zdrdiff: %s\n", problem.what());
        return 2;
    }
}
