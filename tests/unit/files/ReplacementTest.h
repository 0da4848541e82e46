// A file that is replaced, with the calls of the system in between.
#pragma once

#include "SystemCalls.h"
#include "TemporaryFolder.h"
#include "files/Refusal.h"
#include "files/SystemFile.h"
#include "files/TextCoding.h"

#include <gtest/gtest.h>

class ReplacementTest : public testing::Test {
  protected:
    void SetUp() override { write(m_path, "old"); }

    static void write(const std::wstring& path, const std::string& content) {
        writeBytes(path, std::as_bytes(std::span(content)));
    }
    static std::string contentOf(const std::wstring& path) {
        const std::vector<std::byte> bytes = bytesOf(path);
        return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
    }
    /// Saves "new"; answers why it was refused, or nothing.
    std::string save(const std::function<void()>& beforeReplacing = [] {}) {
        try {
            zdr::ReplacementFile file(m_path);
            file.write(std::as_bytes(std::span("new", 3)));
            file.flush();
            beforeReplacing();
            file.replace();
            return "";
        } catch (const zdr::Refusal& refusal) {
            EXPECT_EQ(refusal.status, Vorn::eFileWriteFailed);
            return zdr::toUtf8(refusal.cause);
        }
    }
    void expectNew() {
        EXPECT_EQ(contentOf(m_path), "new");
        EXPECT_EQ(m_folder.entries(), 1u) << "something was left beside the file";
    }
    void expectOld() {
        EXPECT_EQ(contentOf(m_path), "old");
        EXPECT_EQ(m_folder.entries(), 1u) << "something was left beside the file";
    }
    /// The calls of this function fail with this error.
    void failCallsOf(const std::string& function, DWORD error) {
        m_calls.error = [function, error](const std::string& call) { return call.starts_with(function) ? error : 0; };
    }

    TemporaryFolder m_folder;
    std::wstring m_path = m_folder.file(L"drawing.zdr");
    SystemCalls m_calls;
};
