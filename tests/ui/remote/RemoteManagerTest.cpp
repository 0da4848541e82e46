#include "RemoteManagerTest.h"

#include "CommandLineOutput.h"
#include "progress/LongWork.h"
#include "progress/ProgressIds.h"
#include "remote/Timeouts.h"

#include <algorithm>

namespace fs = std::filesystem;
using ui::Script;
using ui::TestDrawing;

namespace {

std::vector<fs::path> temporaryFiles() {
    std::vector<fs::path> files;
    for (const fs::directory_entry& entry : fs::directory_iterator(fs::temp_directory_path()))
        if (entry.path().filename().wstring().starts_with(L"kel-"))
            files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace

void RemoteManagerTest::SetUp() {
    using namespace std::chrono_literals;
    TransferTest::SetUp();
    nginx::clear();
    remote::setTimeouts({.resolve = 20s, .connect = 20s, .send = 20s, .receive = 20s});
    runtime::setOutputSink([this](const std::wstring& text) { told += text; });
    m_temporaryBefore = temporaryFiles();
    open(TestDrawing().state(L"One", MaskColor, L"as described").state(L"Two", MaskOn));
}

void RemoteManagerTest::TearDown() {
    EXPECT_EQ(temporaryFiles(), m_temporaryBefore);
    for (const wchar_t* name : {L"One", L"Two"})
        EXPECT_TRUE(stateOf(name)) << ui::narrow(name);
    EXPECT_TRUE(stateOf(L"One") && stateOf(L"One")->description == L"as described");
    runtime::setOutputSink({});
    remote::setTimeouts({});
    TransferTest::TearDown();
}

Script RemoteManagerTest::cancelTransfer() {
    Script script;
    return script.waitForControl(IDC_PROGRESS_BAR).press(VK_ESCAPE);
}

std::vector<int> RemoteManagerTest::transfers() {
    std::vector<int> answers;
    for (const std::string& call : ui::callsOf("CProxyInet.TransferFile"))
        answers.push_back(std::stoi(call.substr(call.find(") = ") + 4)));
    return answers;
}

void RemoteManagerTest::serveState(const std::wstring& name) const {
    saveStateFile(L"three.las", TestDrawing().state(L"Three", MaskColor), L"Three");
    fs::copy_file(file(L"three.las"), nginx::file(name));
}

void RemoteManagerTest::serveDrawing(const std::wstring& name) const {
    saveDrawing(L"other.zdr", TestDrawing().state(L"One", MaskOn, L"of another").state(L"Three", MaskColor));
    fs::copy_file(file(L"other.zdr"), nginx::file(name));
}
