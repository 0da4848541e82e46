// Hostile files and calls: the rows of a table, and what a row has at hand.
#pragma once

#include "../database/EngineTest.h"
#include "../files/TemporaryFolder.h"

#include <functional>
#include <optional>

/// What a row may try to harm: a drawing with the layer states "Plan" and "Section", a second drawing, and a folder.
struct Target {
    KelDbDatabase& database;
    KelDbDatabase& other;
    const TemporaryFolder& folder;

    KelDbLayerStateManager& states() const { return *database.getLayerStateManager(); }
    /// Writes a file into the folder and answers its path.
    std::wstring write(const wchar_t* name, std::span<const std::byte> bytes) const;
    std::wstring write(const wchar_t* name, std::string_view text) const;
};

/// What an attack was answered. The sentence names the path where there is one.
struct Outcome {
    Vorn::ErrorStatus status;
    std::wstring path = {};
    std::wstring sentence = {};
};

/// A row: it is refused with the status, and, where files are at stake, with a sentence that names the path and holds
/// `reason`.
struct Attack {
    std::string name;
    std::function<Outcome(const Target&)> strike;
    Vorn::ErrorStatus status;
    std::string reason = {};
};

inline void PrintTo(const Attack& attack, std::ostream* out) {
    *out << attack.name;
}

std::vector<Attack> drawingAttacks();
std::vector<Attack> cutDrawingAttacks();
std::vector<Attack> stateFileAttacks();
std::vector<Attack> cutStateFileAttacks();
std::vector<Attack> pathAttacks();
std::vector<Attack> referenceAttacks();
std::vector<Attack> callAttacks();
