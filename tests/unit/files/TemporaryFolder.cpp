#include "TemporaryFolder.h"

#include "files/TextCoding.h"

#include <chrono>
#include <fstream>
#include <iterator>

namespace fs = std::filesystem;

TemporaryFolder::TemporaryFolder() {
    static int counter = 0;
    const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
    m_path = fs::temp_directory_path() / ("zdr-test-" + std::to_string(now) + "-" + std::to_string(counter++));
    fs::create_directories(m_path);
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code error;
    fs::remove_all(m_path, error);
}

std::wstring TemporaryFolder::file(const std::wstring& name) const {
    return zdr::widePath(m_path / zdr::systemPath(name));
}

std::size_t TemporaryFolder::entries() const {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(m_path), fs::directory_iterator()));
}

std::vector<std::byte> bytesOf(const std::wstring& path) {
    std::ifstream file(zdr::systemPath(path), std::ios::binary);
    std::vector<std::byte> bytes;
    for (std::istreambuf_iterator<char> at(file), end; at != end; ++at)
        bytes.push_back(static_cast<std::byte>(*at));
    return bytes;
}

void writeBytes(const std::wstring& path, std::span<const std::byte> bytes) {
    std::ofstream file(zdr::systemPath(path), std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}
