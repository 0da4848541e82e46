// tour.exe: a scripted person tries the Workbench.
//   tour.exe --workbench Workbench.exe --drawing house.zdr --edit "Structural frame" --state "Plumbing plan"
//            --exportas out.las --other annex.zdr --replace "Presentation"
//            --legacy legacy.zdr --saveas out.zdr --shots folder
// Exit code 0 only if every step was seen to succeed.

#include "Tour.h"

#include <cstdio>

int wmain(int count, wchar_t** words) {
    const std::optional<tour::Options> options = tour::parseOptions({words + 1, words + count});
    if (!options) {
        std::fputs("usage: tour.exe --workbench program --drawing file --edit name --state name "
                   "--exportas file --other file --replace name --legacy file --saveas file --shots folder\n",
                   stderr);
        return 2;
    }
    try {
        tour::Tour(*options).run();
    } catch (const tour::Disappointment& disappointment) {
        std::fprintf(stderr, "tour: %s\n", disappointment.what());
        return 1;
    }
    return 0;
}
