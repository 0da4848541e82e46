// Damaged layer states files as rows of the table.
#include "Attack.h"
#include "StateFileDamage.h"

namespace {

Attack attackBy(const StateFileDamage& damage) {
    const auto strike = [text = damage.text](const Target& target) -> Outcome {
        const std::wstring path = target.write(L"hostile.las", text);
        KelString name;
        const Vorn::ErrorStatus status = target.states().importLayerState(path.c_str(), name);
        return {status, path, engine::lastFileProblem(target.database)};
    };
    return {damage.name, strike, damage.status, damage.reason};
}

std::vector<Attack> attacksBy(const std::vector<StateFileDamage>& damages) {
    std::vector<Attack> attacks;
    for (const StateFileDamage& damage : damages)
        attacks.push_back(attackBy(damage));
    return attacks;
}

/// The good file with the name of a state that the drawing has.
StateFileDamage takenName() {
    std::string text = goodStateFile();
    const std::string own = "Gro\xC3\x9F";
    text.replace(text.find(own), own.size(), "PLAN");
    return {"takenName", text, "the drawing has one of that name", Vorn::eDuplicateRecordName};
}

} // namespace

std::vector<Attack> stateFileAttacks() {
    std::vector<Attack> attacks = attacksBy(damagedStateFiles());
    attacks.push_back(attackBy(takenName()));
    return attacks;
}

std::vector<Attack> cutStateFileAttacks() {
    return attacksBy(cutStateFiles());
}
