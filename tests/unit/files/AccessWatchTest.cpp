// That the watch sees whatever asks for a path. What it doesn't see, tests that rely on it would take for not asked.

#include "AccessWatch.h"

#include "files/DrawingFile.h"
#include "files/TextCoding.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

namespace {

struct Way {
    const char* name;
    void (*ask)(const fs::path& path);
};

const Way kWays[] = {
    {"a file is read", [](const fs::path& path) { std::ifstream file(path); }},
    {"a drawing is read",
     [](const fs::path& path) {
         zdr::Drawing drawing;
         std::wstring reason;
         EXPECT_NE(zdr::readDrawingFile(zdr::widePath(path), drawing, reason), Vorn::eOk);
     }},
#if !defined(_WIN32) // there only opening is seen
    {"a file is looked for",
     [](const fs::path& path) {
         std::error_code error;
         (void)fs::exists(path, error);
     }},
    {"a link is looked for",
     [](const fs::path& path) {
         std::error_code error;
         (void)fs::symlink_status(path, error);
     }},
    {"a size is asked for",
     [](const fs::path& path) {
         std::error_code error;
         (void)fs::file_size(path, error);
     }},
    {"a folder is listed",
     [](const fs::path& path) {
         std::error_code error;
         const fs::directory_iterator entries(path, error);
     }},
    {"links are followed",
     [](const fs::path& path) {
         std::error_code error;
         (void)fs::weakly_canonical(path, error);
     }},
    {"a link is read",
     [](const fs::path& path) {
         std::error_code error;
         (void)fs::read_symlink(path, error);
     }},
#endif
};

} // namespace

TEST(AccessWatch, SeesEachWayInWhichAPathIsAskedFor) {
    for (const Way& way : kWays) {
        const AccessWatch watch;
        EXPECT_FALSE(watch.isTouched());
        way.ask(zdr::systemPath(watch.path()));
        EXPECT_TRUE(watch.isTouched()) << way.name;
    }
}
