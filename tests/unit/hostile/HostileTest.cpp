// What hostile files and calls get: a clear refusal, and not the least change.
#include "Attack.h"

#include "files/DrawingFile.h"
#include "files/TextCoding.h"

using testing::HasSubstr;

std::wstring Target::write(const wchar_t* name, std::span<const std::byte> bytes) const {
    const std::wstring path = folder.file(name);
    writeBytes(path, bytes);
    return path;
}

std::wstring Target::write(const wchar_t* name, std::string_view text) const {
    return write(name, std::as_bytes(std::span(text)));
}

namespace {

std::vector<std::byte> savedBytes(const KelDbDatabase& database) {
    std::vector<std::byte> bytes;
    std::wstring reason;
    EXPECT_EQ(zdr::drawingBytes(engine::drawingOf(database), bytes, reason), Vorn::eOk) << zdr::toUtf8(reason);
    return bytes;
}

class Hostile : public EngineTest, public testing::WithParamInterface<Attack> {
  protected:
    Hostile() {
        states().saveLayerState(L"Plan", MaskOn | MaskColor);
        states().saveLayerState(L"Section", MaskAllProperties);
        engine::replaceDrawing(m_other, makeDrawing({{L"Roof"}}));
        m_other.getLayerStateManager()->saveLayerState(L"plan", MaskOn);
    }
    KelDbDatabase m_other{false, false};
    const TemporaryFolder m_folder;
};

TEST_P(Hostile, isRefusedWithAReasonAndChangesNothing) {
    const std::vector<std::byte> before = savedBytes(m_database), otherBefore = savedBytes(m_other);
    const std::uint64_t changes = engine::changeCount(m_database);
    const std::size_t open = instruments::ledger().size();

    const Outcome outcome = GetParam().strike({m_database, m_other, m_folder});

    EXPECT_EQ(outcome.status, GetParam().status);
    if (!GetParam().reason.empty()) {
        EXPECT_THAT(zdr::toUtf8(outcome.sentence), HasSubstr("The file \"" + zdr::toUtf8(outcome.path) + "\" "));
        EXPECT_THAT(zdr::toUtf8(outcome.sentence), HasSubstr(GetParam().reason));
    }
    EXPECT_EQ(savedBytes(m_database), before);
    EXPECT_EQ(savedBytes(m_other), otherBefore);
    EXPECT_EQ(engine::changeCount(m_database), changes);
    EXPECT_EQ(instruments::ledger().size(), open);
    for (const auto& entry : std::filesystem::directory_iterator(m_folder.path()))
        EXPECT_NE(entry.path().extension(), ".tmp");
}

std::string attackName(const testing::TestParamInfo<Attack>& info) {
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(Drawings, Hostile, testing::ValuesIn(drawingAttacks()), attackName);
INSTANTIATE_TEST_SUITE_P(CutDrawings, Hostile, testing::ValuesIn(cutDrawingAttacks()), attackName);
INSTANTIATE_TEST_SUITE_P(StateFiles, Hostile, testing::ValuesIn(stateFileAttacks()), attackName);
INSTANTIATE_TEST_SUITE_P(CutStateFiles, Hostile, testing::ValuesIn(cutStateFileAttacks()), attackName);
INSTANTIATE_TEST_SUITE_P(Paths, Hostile, testing::ValuesIn(pathAttacks()), attackName);
INSTANTIATE_TEST_SUITE_P(References, Hostile, testing::ValuesIn(referenceAttacks()), attackName);
INSTANTIATE_TEST_SUITE_P(Calls, Hostile, testing::ValuesIn(callAttacks()), attackName);

} // namespace
