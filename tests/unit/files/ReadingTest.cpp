// Files that can't be read: each kind has its own status, and the reason names the path.
#include "DrawingDifference.h"
#include "FilePatch.h"
#include "SampleDrawing.h"
#include "TemporaryFolder.h"
#include "files/DrawingFile.h"
#include "files/TextCoding.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace zdr;
using testing::HasSubstr;

namespace {

/// Reads a file that must be refused; checks that the drawing passed in is untouched and that the reason names the
/// path.
Vorn::ErrorStatus refusedStatus(const std::wstring& path, std::string& reason) {
    Drawing drawing = sampleDrawing();
    FileStamp stamp;
    stamp.content = 5;
    std::wstring wide;
    const Vorn::ErrorStatus status = readDrawingFile(path, drawing, wide, &stamp);
    reason = toUtf8(wide);
    EXPECT_EQ(difference(drawing, sampleDrawing()), "");
    EXPECT_EQ(stamp.content, 5u);
    EXPECT_THAT(reason, HasSubstr("The file \"" + toUtf8(path) + "\" "));
    EXPECT_EQ(reason.back(), '.');
    return status;
}

Vorn::ErrorStatus refusedBytes(std::span<const std::byte> bytes, std::string& reason) {
    const TemporaryFolder folder;
    writeBytes(folder.file(L"bad.zdr"), bytes);
    return refusedStatus(folder.file(L"bad.zdr"), reason);
}

std::span<const std::byte> asBytes(std::string_view text) {
    return std::as_bytes(std::span(text.data(), text.size()));
}

} // namespace

TEST(Reading, aMissingFileIsNotFound) {
    const TemporaryFolder folder;
    std::string reason;
    EXPECT_EQ(refusedStatus(folder.file(L"none.zdr"), reason), Vorn::eFileNotFound);
    EXPECT_THAT(reason, HasSubstr("doesn't exist"));
    EXPECT_EQ(refusedStatus(folder.file(L"no folder\\none.zdr"), reason), Vorn::eFileNotFound);
}

TEST(Reading, aFolderIsUnreadable) {
    const TemporaryFolder folder;
    std::string reason;
    EXPECT_EQ(refusedStatus(widePath(folder.path()), reason), Vorn::eFileUnreadable);
    EXPECT_THAT(reason, HasSubstr("it is a folder"));
}

#if defined(_WIN32)
TEST(Reading, aDeviceIsUnreadable) {
    std::string reason;
    EXPECT_EQ(refusedStatus(L"NUL", reason), Vorn::eFileUnreadable);
    EXPECT_THAT(reason, HasSubstr("it isn't a file"));
}
#else
TEST(Reading, aDeviceIsUnreadable) {
    std::string reason;
    EXPECT_EQ(refusedStatus(L"/dev/null", reason), Vorn::eFileUnreadable);
    EXPECT_THAT(reason, HasSubstr("it isn't a file"));
}
#endif

TEST(Reading, anEmptyFileIsCutOff) {
    std::string reason;
    EXPECT_EQ(refusedBytes({}, reason), Vorn::eFileCutOff);
    EXPECT_THAT(reason, HasSubstr("is empty"));
}

TEST(Reading, aFileOfAnotherKindIsNotADrawing) {
    std::string reason;
    EXPECT_EQ(refusedBytes(asBytes("{\"version\": 1, \"layers\": []}"), reason), Vorn::eNotADrawing);
    EXPECT_THAT(reason, HasSubstr("isn't a drawing"));
}

TEST(Reading, aFileThatIsShorterThanTheMarkIsADrawingOnlyAsFarAsItGoes) {
    std::string reason;
    for (const char* text : {"Hello.", "Hello", "\x10\x10\x10\x10KZx"}) {
        EXPECT_EQ(refusedBytes(asBytes(text), reason), Vorn::eNotADrawing) << text;
        EXPECT_THAT(reason, HasSubstr("isn't a drawing: it doesn't begin with the mark of one"));
    }
    EXPECT_EQ(refusedBytes(asBytes("\x10\x10\x10\x10KZD"), reason), Vorn::eFileCutOff);
    EXPECT_THAT(reason, HasSubstr("is cut off: only its first 7 bytes are there"));
    EXPECT_EQ(refusedBytes(asBytes("text"), reason), Vorn::eFileCutOff);
    EXPECT_THAT(reason, HasSubstr("isn't a drawing, or only the first 4 bytes of one: too few to tell"));
    EXPECT_EQ(refusedBytes(asBytes("t"), reason), Vorn::eFileCutOff);
    EXPECT_THAT(reason, HasSubstr("only the first 1 byte of one"));
}

TEST(Reading, aMarkAloneMakesNoDrawing) {
    std::string reason;
    EXPECT_EQ(refusedBytes(asBytes("\xFF\xFF\xFF\x7FKZDR"), reason), Vorn::eFileCutOff);
    EXPECT_EQ(refusedBytes(asBytes(std::string_view("\0\0\0\0KZDR....", 12)), reason), Vorn::eFileCutOff);
}

TEST(Reading, aCutAnywhereIsNoticed) {
    const std::vector<std::byte> bytes = FilePatch(sampleDrawing()).bytes();
    Drawing drawing = sampleDrawing();
    std::wstring reason;
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        ASSERT_EQ(readDrawingBytes(std::span(bytes).first(size), L"cut.zdr", drawing, reason), Vorn::eFileCutOff)
            << size;
        ASSERT_THAT(toUtf8(reason), HasSubstr("\"cut.zdr\"")) << size;
    }
    EXPECT_EQ(difference(drawing, sampleDrawing()), "");
}

TEST(Reading, aCutBehindTheTablesTellsHowMuchIsThere) {
    std::vector<std::byte> bytes = FilePatch(sampleDrawing()).bytes();
    const std::string whole = std::to_string(bytes.size());
    bytes.resize(bytes.size() - 100);
    std::string reason;
    EXPECT_EQ(refusedBytes(bytes, reason), Vorn::eFileCutOff);
    EXPECT_THAT(reason,
                HasSubstr("only " + std::to_string(bytes.size()) + " bytes of its " + whole + " bytes are there"));
}

TEST(Reading, bytesBehindTheEndAreNotPassedOver) {
    std::vector<std::byte> bytes = FilePatch(sampleDrawing()).bytes();
    bytes.resize(bytes.size() + 4);
    std::string reason;
    EXPECT_EQ(refusedBytes(bytes, reason), Vorn::eFileCutOff);
    EXPECT_THAT(reason, HasSubstr("instead of"));
}

TEST(Reading, aNewerVersionIsRefusedBeforeAnythingElseOfItIsRead) {
    // As a newer program might write it: tables that this one can't know.
    flatbuffers::FlatBufferBuilder builder;
    const auto start = builder.StartTable();
    builder.AddElement<std::uint32_t>(file::Drawing::VT_VERSION, 5, 0);
    builder.AddElement<std::uint64_t>(file::Drawing::VT_LAYERS, 77, 0); // no longer an offset
    builder.Finish(flatbuffers::Offset<file::Drawing>(builder.EndTable(start)), file::DrawingIdentifier());
    std::string reason;
    EXPECT_EQ(refusedBytes(std::as_bytes(std::span(builder.GetBufferPointer(), builder.GetSize())), reason),
              Vorn::eNewerVersion);
    EXPECT_THAT(reason, HasSubstr("newer version of this program: its format is 5"));
}

TEST(Reading, aFormatWithoutANumberIsDamaged) {
    FilePatch file(namedColorsDrawing());
    file.set(&file.root(), file::Drawing::VT_VERSION, 0u);
    std::string reason;
    EXPECT_EQ(refusedBytes(file.bytes(), reason), Vorn::eFileCutOff);
    EXPECT_THAT(reason, HasSubstr("is damaged: its format has the number 0"));
}

TEST(Reading, theStampTellsWhatTheFileWas) {
    const TemporaryFolder folder;
    const std::vector<std::byte> bytes = FilePatch(plainDrawing()).bytes();
    writeBytes(folder.file(L"a.zdr"), bytes);
    Drawing drawing;
    std::wstring reason;
    FileStamp stamp;
    ASSERT_EQ(readDrawingFile(folder.file(L"a.zdr"), drawing, reason, &stamp), Vorn::eOk) << toUtf8(reason);
    EXPECT_TRUE(stamp.known);
    EXPECT_EQ(stamp.facts.size, bytes.size());
    EXPECT_FALSE(isFileChanged(folder.file(L"a.zdr"), stamp));
}
