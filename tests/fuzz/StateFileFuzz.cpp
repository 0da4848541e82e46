// Fuzzer of the layer states file reader: no text may make it crash, hang or take memory without measure, it takes for
// JSON what a library takes for it and stops where that stops, and whatever it accepts is written as one text, means
// the same when that is read, and can be saved in a drawing.
#include "FuzzRules.h"
#include "JsonByLibrary.h"
#include "engine/DatabaseAccess.h"
#include "engine/LayerStates.h"
#include "files/TextCoding.h"
#include "statefile/StateFile.h"
#include "values/NameRules.h"

namespace {

void enterInADrawing(const zdr::LayerState& state, const zdr::ColumnTables& tables) {
    KelDbDatabase database(true, false);
    engine::enterForeignState(engine::impOf(database), state, tables);
    const zdr::Drawing drawing = savedAndRead(engine::drawingOf(database));
    const zdr::LayerState& entered = drawing.states.at(0);
    // A drawing keeps the spelling of a name that came first, so names may differ in case.
    const auto folded = [](const std::string& text) { return zdr::foldCase(zdr::fromUtf8(text).value()); };
    stopUnless(folded(engine::stateText(entered, drawing)) == folded(engine::stateText(state, tables)),
               "a drawing changes the state", zdr::toUtf8(state.name));
}

/// A refusal names the place where the text stops being JSON if and only if it stops being JSON.
void compareWithLibrary(std::string_view text, const std::string& cause) {
    const JsonReading library = readByLibrary(text);
    if (library.verdict == JsonVerdict::NotCompared || text.empty() ||
        cause.find("stand within each other") != std::string::npos)
        return;
    // At the beginning: a cause may quote a name of the file that holds just these words.
    const bool saysBad =
        cause.starts_with("isn't a layer states file, or is cut off: its text can't be understood from");
    stopUnless(saysBad == (library.verdict == JsonVerdict::Bad), "not JSON as a library has it", cause);
    stopUnless(!saysBad || cause.ends_with("from " + library.place + " on"), "another place than a library's",
               cause + "; " + library.place);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    zdr::ColumnTables tables;
    zdr::LayerState state;
    std::wstring cause;
    const Vorn::ErrorStatus status = engine::parseState(input, tables, state, cause);
    compareWithLibrary(input, zdr::toUtf8(cause));
    if (status != Vorn::eOk) {
        stopUnless(!cause.empty(), "a refusal without a cause");
        return 0;
    }
    const std::string text = engine::stateText(state, tables);
    zdr::ColumnTables tablesAgain;
    zdr::LayerState again;
    stopUnless(engine::parseState(text, tablesAgain, again, cause) == Vorn::eOk, "what was written can't be read",
               zdr::toUtf8(cause));
    stopUnless(engine::stateText(again, tablesAgain) == text, "reading changes what was written", text);
    if (engine::checkName(state.name) == Vorn::eOk)
        enterInADrawing(state, tables);
    return 0;
}
