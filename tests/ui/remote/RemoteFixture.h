// What the tests of remote files share: a folder of their own, the service, and short waits.
#pragma once

#include "OrvUiInternet.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <string>

std::string bytesOf(const std::filesystem::path& path);
void writeBytes(const std::filesystem::path& path, const std::string& bytes);
/// Bytes of all values in an order that no fault would produce by chance, the same in every run.
std::string manyBytes(std::size_t count);
/// A text for a message, in UTF-8.
std::string printed(const std::wstring& text);

/// At the start of each test the instruments watch, nginx has no files, and waits for a server are short. At the end
/// nothing may be open or handed out.
class RemoteTest : public testing::Test {
  protected:
    RemoteTest();
    ~RemoteTest() override;

    /// Fetches into `local`, or uploads it, and answers the status; `problem()` is about the last one.
    int fetch(const std::wstring& url);
    int upload(const std::wstring& url);
    static std::wstring problem();
    /// What the service has printed on the command line so far.
    std::wstring printedLines;
    /// How many files are in the test's own folder. When there are more than the test has put there, something was
    /// left.
    std::size_t entries() const;

    CProxyInet& service = *CProxyInet::GetProxyInet();
    const std::filesystem::path folder;
    const std::filesystem::path local = folder / L"local.las";
};
