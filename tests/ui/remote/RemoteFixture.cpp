#include "RemoteFixture.h"

#include "CommandLineOutput.h"
#include "Nginx.h"

#include "files/TextCoding.h"
#include "instruments/HostCalls.h"
#include "remote/RemoteProblem.h"
#include "remote/Timeouts.h"

#include <cstdint>
#include <fstream>
#include <iterator>

namespace fs = std::filesystem;

namespace {

fs::path makeFolder() {
    fs::path folder = fs::temp_directory_path() / (L"remote-tests-" + std::to_wstring(GetCurrentProcessId()));
    fs::remove_all(folder);
    fs::create_directory(folder);
    return folder;
}

} // namespace

std::string bytesOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void writeBytes(const fs::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

std::string manyBytes(std::size_t count) {
    std::string bytes(count, '\0');
    std::uint32_t state = 1;
    for (char& byte : bytes) {
        state = state * 1'664'525 + 1'013'904'223;
        byte = static_cast<char>(state >> 24);
    }
    return bytes;
}

std::string printed(const std::wstring& text) {
    return zdr::toUtf8(text.substr(0, 500));
}

RemoteTest::RemoteTest() : folder(makeFolder()) {
    using namespace std::chrono_literals;
    nginx::clear();
    remote::setTimeouts({.resolve = 20s, .connect = 20s, .send = 20s, .receive = 20s});
    runtime::setOutputSink([this](const std::wstring& text) { printedLines += text; });
    instruments::watch(true);
}

RemoteTest::~RemoteTest() {
    EXPECT_THAT(instruments::ledger(), testing::IsEmpty());
    instruments::watch(false);
    runtime::setOutputSink({});
    remote::setTimeouts({});
    fs::remove_all(folder);
}

int RemoteTest::fetch(const std::wstring& url) {
    OrvXREFString name(local.c_str());
    const int status = service.TransferFile(url.c_str(), name, kInetFetch, 1);
    EXPECT_STREQ(name, local.c_str());
    return status;
}

int RemoteTest::upload(const std::wstring& url) {
    OrvXREFString name(local.c_str());
    const int status = service.TransferFile(url.c_str(), name, kInetUpload, 1);
    EXPECT_STREQ(name, local.c_str());
    return status;
}

std::wstring RemoteTest::problem() {
    return remote::lastRemoteProblem();
}

std::size_t RemoteTest::entries() const {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), {}));
}
