// Plain files by the C library without its buffer, each read or written in one call.
#include "PlainFile.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>

#if defined(_WIN32)
#include <io.h>
#else
#include <unistd.h>
#endif

namespace {

[[noreturn]] void fail(const std::string& path) {
    std::perror(path.c_str());
    std::exit(1);
}

int waitForDisk(std::FILE* file) {
#if defined(_WIN32)
    return _commit(_fileno(file));
#else
    return fsync(fileno(file));
#endif
}

} // namespace

PlainBytes readPlainFile(const std::string& path) {
    std::FILE* file = std::fopen(path.c_str(), "rb");
    if (!file)
        fail(path);
    std::setvbuf(file, nullptr, _IONBF, 0);
    PlainBytes result;
    result.size = static_cast<std::size_t>(std::filesystem::file_size(path));
    result.bytes = std::make_unique_for_overwrite<std::byte[]>(result.size);
    if (std::fread(result.bytes.get(), 1, result.size, file) != result.size)
        fail(path);
    std::fclose(file);
    return result;
}

void writePlainFile(const std::string& path, std::span<const std::byte> bytes) {
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (!file)
        fail(path);
    std::setvbuf(file, nullptr, _IONBF, 0);
    if (std::fwrite(bytes.data(), 1, bytes.size(), file) != bytes.size() || waitForDisk(file) != 0)
        fail(path);
    std::fclose(file);
}
