// A Refusal that is thrown anywhere below these functions becomes a status and a reason here.
#include "DrawingFile.h"

#include "ContentHash.h"
#include "DrawingReader.h"
#include "DrawingWriter.h"
#include "FileProgress.h"
#include "WholeFile.h"

namespace zdr {
namespace {

struct FileBytes {
    std::shared_ptr<std::byte[]> bytes;
    FileStamp stamp;
    std::span<const std::byte> span() const { return {bytes.get(), static_cast<std::size_t>(stamp.facts.size)}; }
};

FileBytes readFile(const std::wstring& path, FileProgress& progress) {
    InputFile file(path);
    FileBytes result;
    result.stamp = {true, file.facts(), 0, fileClock()};
    if (result.stamp.facts.size > kLargestFile)
        throw Refusal{Vorn::eFileCutOff, L"is larger than a drawing file can be"};
    const auto size = static_cast<std::size_t>(result.stamp.facts.size);
    result.bytes = std::make_shared_for_overwrite<std::byte[]>(size);
    ContentHash hash;
    std::uint64_t done = 0;
    readWhole(file, result.stamp.facts, {result.bytes.get(), size}, [&](std::span<const std::byte> piece) {
        hash.add(piece);
        progress.advance(done += piece.size(), size);
    });
    result.stamp.content = hash.value();
    return result;
}

/// The fingerprint of a file's bytes; none when it can't be read.
std::optional<std::uint64_t> contentOf(const std::wstring& path) {
    try {
        InputFile file(path);
        std::vector<std::byte> room(kPieceSize);
        ContentHash hash;
        while (const std::size_t count = file.read(room))
            hash.add(std::span(room).first(count));
        return hash.value();
    } catch (const Refusal&) {
        return std::nullopt;
    }
}

/// Bytes on their way into a file, with their fingerprint.
class FileSink final : public ByteSink {
  public:
    FileSink(ReplacementFile& file, FileProgress& progress, std::uint64_t size)
        : m_file(file), m_progress(progress), m_size(size) {}
    void write(std::span<const std::byte> bytes) override {
        m_hash.add(bytes);
        m_file.write(bytes);
        m_done += bytes.size();
        m_progress.advance(m_done, m_size);
    }
    std::uint64_t content() const { return m_hash.value(); }

  private:
    ReplacementFile& m_file;
    FileProgress& m_progress;
    std::uint64_t m_size;
    std::uint64_t m_done = 0;
    ContentHash m_hash;
};

class MemorySink final : public ByteSink {
  public:
    explicit MemorySink(std::vector<std::byte>& bytes) : m_bytes(bytes) {}
    void write(std::span<const std::byte> bytes) override { m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.end()); }

  private:
    std::vector<std::byte>& m_bytes;
};

void refuseChanged(const std::wstring& path, const FileStamp& stamp, Overwrite overwrite) {
    if (overwrite == Overwrite::IfUnchanged && isFileChanged(path, stamp))
        throw Refusal{Vorn::eFileChangedOnDisk,
                      stamp.known ? L"was changed by another program since it was read, and was left as it is"
                                  : L"stands there already, and was left as it is"};
}

FileStamp writeFile(const std::wstring& path, const Drawing& drawing, const FileStamp& stamp, Overwrite overwrite) {
    FileProgress progress(FileWork::Writing, path);
    const DrawingWriter writer(drawing);
    ReplacementFile file(path);
    FileSink sink(file, progress, writer.size());
    writer.write(sink);
    FileStamp written{true, file.flush(), sink.content(), fileClock()};
    // Checked once more: writing a large drawing takes long, and someone may have changed the file meanwhile.
    refuseChanged(path, stamp, overwrite);
    file.replace();
    return written;
}

} // namespace

Vorn::ErrorStatus readDrawingFile(const std::wstring& path, Drawing& drawing, std::wstring& reason, FileStamp* stamp) {
    return fileAnswer(path, Vorn::eFileUnreadable, reason, [&] {
        FileProgress progress(FileWork::Reading, path);
        const FileBytes file = readFile(path, progress);
        drawing = drawingFromBytes(file.span(), file.bytes);
        if (stamp)
            *stamp = file.stamp;
    });
}

Vorn::ErrorStatus readDrawingBytes(std::span<const std::byte> bytes, const std::wstring& name, Drawing& drawing,
                                   std::wstring& reason) {
    return fileAnswer(name, Vorn::eFileUnreadable, reason, [&] {
        // A copy, because the drawing's columns go on using these bytes.
        const auto copy = std::make_shared_for_overwrite<std::byte[]>(bytes.size());
        std::copy(bytes.begin(), bytes.end(), copy.get());
        drawing = drawingFromBytes({copy.get(), bytes.size()}, copy);
    });
}

Vorn::ErrorStatus writeDrawingFile(const std::wstring& path, const Drawing& drawing, std::wstring& reason,
                                   FileStamp& stamp, Overwrite overwrite) {
    return fileAnswer(path, Vorn::eFileWriteFailed, reason, [&] {
        refuseChanged(path, stamp, overwrite);
        stamp = writeFile(path, drawing, stamp, overwrite);
    });
}

Vorn::ErrorStatus drawingBytes(const Drawing& drawing, std::vector<std::byte>& bytes, std::wstring& reason) {
    return fileAnswer(L"in memory", Vorn::eFileWriteFailed, reason, [&] {
        const DrawingWriter writer(drawing);
        std::vector<std::byte> result;
        result.reserve(writer.size());
        MemorySink sink(result);
        writer.write(sink);
        bytes = std::move(result);
    });
}

bool isFileChanged(const std::wstring& path, const FileStamp& stamp) {
    const std::optional<FileFacts> now = fileFacts(path);
    if (!now)
        return false;
    if (!stamp.known || now->size != stamp.facts.size)
        return true;
    // A write in the same tick of the file system's clock leaves the facts as they are, so facts that were noted right
    // after a write don't prove that nothing was written since. Whole seconds are the sign of a clock that ticks
    // slowly: every two seconds at worst.
    constexpr std::int64_t kSecond = 1'000'000'000;
    const std::int64_t tick = stamp.facts.modified % kSecond == 0 ? 2 * kSecond : kSecond / 20;
    const bool wasFresh = stamp.taken - stamp.facts.modified <= tick;
    if (*now == stamp.facts && !wasFresh)
        return false;
    return contentOf(path) != stamp.content;
}

} // namespace zdr
