// A program that saves in a loop until it is killed: saver drawing|state file. It makes the file "<file>.started" when
// the loop begins, and ends by itself only when saving fails, or when nobody has killed it for very long.
#include "SavedFiles.h"
#include "files/TextCoding.h"

#include <cstdio>
#include <fstream>

int main(int count, char** arguments) {
    if (count != 3) {
        std::fprintf(stderr, "saver: drawing|state file\n");
        return 2;
    }
    const auto kind = zdr::fromUtf8(arguments[1]) == nameOf(SavedKind::State) ? SavedKind::State : SavedKind::Drawing;
    const std::wstring path = zdr::fromUtf8(arguments[2]).value();
    constexpr int kEnough = 100'000;
    for (int i = 0; i < kEnough; ++i) {
        if (const std::string problem = save(kind, i % 2 == 0, path); !problem.empty()) {
            std::fprintf(stderr, "saver: %s\n", problem.c_str());
            return 1;
        }
        if (i == 1)
            std::ofstream(zdr::systemPath(path + L".started")).put('\n');
    }
    return 0;
}
