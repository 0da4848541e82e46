#include "FileFormat.h"

#include "Refusal.h"

#include <algorithm>
#include <string_view>

namespace zdr {
namespace {

constexpr std::size_t kMarkStart = 4; // behind the offset of the first table
constexpr std::size_t kMarkEnd = 8;

std::wstring bytesText(std::uint64_t count) {
    return std::to_wstring(count) + (count == 1 ? L" byte" : L" bytes");
}

/// As much of the mark as a file of so few bytes holds.
std::string_view beginningOfMark(std::span<const std::byte> bytes) {
    const std::span<const std::byte> mark = bytes.first(std::min(bytes.size(), kMarkEnd)).subspan(kMarkStart);
    return {reinterpret_cast<const char*>(mark.data()), mark.size()};
}

void checkMark(std::span<const std::byte> bytes) {
    if (bytes.empty())
        throw Refusal{Vorn::eFileCutOff, L"is empty"};
    if (bytes.size() <= kMarkStart)
        throw Refusal{Vorn::eFileCutOff,
                      L"isn't a drawing, or only the first " + bytesText(bytes.size()) + L" of one: too few to tell"};
    if (!std::string_view(file::DrawingIdentifier()).starts_with(beginningOfMark(bytes)))
        throw Refusal{Vorn::eNotADrawing, L"isn't a drawing: it doesn't begin with the mark of one"};
    if (bytes.size() < kMarkEnd)
        throw Refusal{Vorn::eFileCutOff, L"is cut off: only its first " + bytesText(bytes.size()) + L" are there"};
    if (bytes.size() > kLargestFile)
        throw Refusal{Vorn::eFileCutOff,
                      L"is damaged: its " + bytesText(bytes.size()) + L" are more than a drawing file can have"};
}

flatbuffers::Verifier::Options limits(std::size_t size) {
    flatbuffers::Verifier::Options options;
    constexpr std::size_t kSmallestTable = 8; // with the offset that leads to it
    options.max_tables = static_cast<flatbuffers::uoffset_t>(size / kSmallestTable + 1);
    return options;
}

/// The frame of the first table. Its version and length are read before everything else is verified, since they say
/// why the rest may not be as expected.
void checkFrame(std::span<const std::byte> bytes, const std::uint8_t* start) {
    flatbuffers::Verifier verifier(start, bytes.size(), limits(bytes.size()));
    const flatbuffers::uoffset_t offset = verifier.VerifyOffset(0);
    const auto* table = reinterpret_cast<const flatbuffers::Table*>(start + offset);
    const bool readable = offset != 0 && table->VerifyTableStart(verifier) &&
                          table->VerifyField<std::uint32_t>(verifier, file::Drawing::VT_VERSION, 4) &&
                          table->VerifyField<std::uint32_t>(verifier, file::Drawing::VT_LENGTH, 4);
    if (!readable)
        throw Refusal{Vorn::eFileCutOff,
                      L"is cut off or damaged: its first table isn't within its " + bytesText(bytes.size())};
    const auto* drawing = reinterpret_cast<const file::Drawing*>(table);
    if (drawing->version() > kFileVersion)
        throw Refusal{Vorn::eNewerVersion, L"was written by a newer version of this program: its format is " +
                                               std::to_wstring(drawing->version()) +
                                               L", and this program reads formats up to " +
                                               std::to_wstring(kFileVersion)};
    if (drawing->version() == 0)
        throw Refusal{Vorn::eFileCutOff, L"is damaged: its format has the number 0"};
    if (drawing->length() > bytes.size())
        throw Refusal{Vorn::eFileCutOff, L"is cut off: only " + bytesText(bytes.size()) + L" of its " +
                                             bytesText(drawing->length()) + L" are there"};
    if (drawing->length() != 0 && drawing->length() < bytes.size())
        throw Refusal{Vorn::eFileCutOff, L"is damaged: it has " + bytesText(bytes.size()) + L" instead of " +
                                             bytesText(drawing->length())};
}

/// The number of layer names that the file claims, as far as its offsets lead inside it; the verifier finds the rest.
std::uint64_t claimedLayerNames(std::span<const std::byte> bytes, const std::uint8_t* start) {
    flatbuffers::Verifier verifier(start, bytes.size(), limits(bytes.size()));
    const auto& drawing = *file::GetDrawing(start);
    const auto* root = reinterpret_cast<const flatbuffers::Table*>(&drawing);
    if (!root->VerifyOffsetRequired(verifier, file::Drawing::VT_LAYER_SETS) ||
        !verifier.VerifyVector(drawing.layer_sets()))
        return 0;
    std::uint64_t names = 0;
    for (flatbuffers::uoffset_t i = 0; i < drawing.layer_sets()->size(); ++i) {
        const file::LayerSet* set = drawing.layer_sets()->Get(i);
        const auto* table = reinterpret_cast<const flatbuffers::Table*>(set);
        if (!table->VerifyTableStart(verifier) || !table->VerifyOffsetRequired(verifier, file::LayerSet::VT_NAMES) ||
            !verifier.VerifyVector(set->names()))
            return 0;
        names += set->names()->size();
        verifier.EndTable();
    }
    return names;
}

/// The verifier counts tables but not texts: a file whose layer sets all lead to one long list of names would keep it
/// busy for hours. Lists that don't overlap have no more names than the file has room for.
void checkOverlap(std::span<const std::byte> bytes, const std::uint8_t* start) {
    if (claimedLayerNames(bytes, start) > bytes.size() / sizeof(flatbuffers::uoffset_t))
        throw Refusal{Vorn::eFileCutOff, L"is damaged: its layer sets overlap, and claim more names than it holds"};
}

} // namespace

const file::Drawing& verifiedDrawing(std::span<const std::byte> bytes) {
    checkMark(bytes);
    const auto* start = reinterpret_cast<const std::uint8_t*>(bytes.data());
    checkFrame(bytes, start);
    checkOverlap(bytes, start);
    flatbuffers::Verifier verifier(start, bytes.size(), limits(bytes.size()));
    if (!file::VerifyDrawingBuffer(verifier))
        throw Refusal{Vorn::eFileCutOff,
                      L"is cut off or damaged: some of its tables aren't within its " + bytesText(bytes.size())};
    return *file::GetDrawing(start);
}

void checkSize(std::uint64_t bytes) {
    if (bytes > kLargestFile)
        throw Refusal{Vorn::eFileWriteFailed, L"can't be written: the drawing is larger than the " +
                                                  bytesText(kLargestFile) + L" that a drawing file can have"};
}

} // namespace zdr
