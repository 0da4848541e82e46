#include "LayerSnapshotStore.h"

#include "KelDbPointers.h"
#include "KelEditor.h"
#include "SnapshotChain.h"

#include <algorithm>
#include <memory>

namespace {

constexpr std::size_t kLongestName = 255;

KelDbDatabase* workingDatabase() {
    return keldbHostApplicationServices()->workingDatabase();
}

/// Calls `visit` with each layer, open in that mode, until it answers a failure.
template <class Visit> Vorn::ErrorStatus visitLayers(int mode, Visit visit) {
    const KelDbSymbolTablePointer<KelDbLayerTable> table(workingDatabase(), KelDb::kForRead);
    KelDbLayerTableIterator* made = nullptr;
    if (table.openStatus() != Vorn::eOk)
        return table.openStatus();
    if (const Vorn::ErrorStatus status = table->newIterator(made, true, true); status != Vorn::eOk)
        return status;
    const std::unique_ptr<KelDbLayerTableIterator> iterator(made);
    for (; !iterator->done(); iterator->step(true, true)) {
        KelDbObjectId id;
        if (const Vorn::ErrorStatus status = iterator->getRecordId(id); status != Vorn::eOk)
            return status;
        KelDbSymbolTableRecordPointer<KelDbLayerTableRecord> layer;
        if (const Vorn::ErrorStatus status = layer.open(id, mode); status != Vorn::eOk)
            return status;
        if (const Vorn::ErrorStatus status = visit(*layer.object()); status != Vorn::eOk)
            return status;
    }
    return Vorn::eOk;
}

/// The same with the snapshots of each layer.
template <class Visit> Vorn::ErrorStatus visitSnapshots(int mode, Visit visit) {
    return visitLayers(mode, [&visit](KelDbLayerTableRecord& layer) {
        auto snapshots = readSnapshots(layer);
        return snapshots ? visit(layer, *snapshots) : Vorn::eInvalidInput;
    });
}

auto findNamed(std::vector<SnapshotOfLayer>& snapshots, const wchar_t* name) {
    return std::find_if(snapshots.begin(), snapshots.end(),
                        [name](const SnapshotOfLayer& each) { return each.name == name; });
}

std::wstring handleText(KelDbObjectId id) {
    wchar_t digits[17] = {};
    id.handle().getIntoAsciiBuffer(digits);
    return digits;
}

/// The object of a handle in that drawing; the null id when it is gone.
KelDbObjectId objectOf(KelDbDatabase& database, const std::wstring& digits) {
    KelDbHandle handle;
    handle = digits.c_str();
    KelDbObjectId id;
    return database.getKelDbObjectId(id, false, handle) == Vorn::eOk ? id : KelDbObjectId();
}

SnapshotOfLayer snapshotOf(const KelDbLayerTableRecord& layer, const wchar_t* name) {
    const int flags = (layer.isOff() ? kSnapshotOff : 0) | (layer.isFrozen() ? kSnapshotFrozen : 0) |
                      (layer.isLocked() ? kSnapshotLocked : 0) | (layer.isPlottable() ? 0 : kSnapshotNotPlotted) |
                      (layer.VPDFLT() ? kSnapshotNewVpFrozen : 0);
    return {name,
            static_cast<std::int16_t>(flags),
            layer.color().packed(),
            handleText(layer.linetypeObjectId()),
            layer.lineWeight(),
            handleText(layer.plotStyleNameId())};
}

// What a layer refuses stays as it is: the current layer can't be frozen, and a drawing without named plot styles takes
// none.
void putOn(KelDbLayerTableRecord& layer, const SnapshotOfLayer& snapshot) {
    layer.setIsOff(snapshot.flags & kSnapshotOff);
    static_cast<void>(layer.setIsFrozen(snapshot.flags & kSnapshotFrozen));
    layer.setIsLocked(snapshot.flags & kSnapshotLocked);
    static_cast<void>(layer.setIsPlottable(!(snapshot.flags & kSnapshotNotPlotted)));
    layer.setVPDFLT(snapshot.flags & kSnapshotNewVpFrozen);
    layer.setColor(KelCmColor::fromPacked(snapshot.color));
    static_cast<void>(layer.setLineWeight(snapshot.lineWeight));
    KelDbDatabase& database = *layer.objectId().database();
    if (const KelDbObjectId linetype = objectOf(database, snapshot.linetype); !linetype.isNull())
        layer.setLinetypeObjectId(linetype);
    if (const KelDbObjectId style = objectOf(database, snapshot.plotStyle); !style.isNull())
        static_cast<void>(layer.setPlotStyleName(style));
}

Vorn::ErrorStatus checkName(const wchar_t* name) {
    const std::size_t length = name ? std::wstring_view(name).size() : 0;
    if (length == 0)
        return Vorn::eInvalidInput;
    return length > kLongestName ? Vorn::eNameTooLong : Vorn::eOk;
}

} // namespace

Vorn::ErrorStatus getSnapshotNames(KelArray<KelString>& names) {
    return visitSnapshots(KelDb::kForRead, [&names](KelDbLayerTableRecord&, const std::vector<SnapshotOfLayer>& each) {
        for (const SnapshotOfLayer& snapshot : each) {
            const KelString name(snapshot.name.c_str());
            const bool known = std::any_of(names.begin(), names.end(),
                                           [&name](const KelString& other) { return other.compare(name) == 0; });
            if (!known)
                names.append(name);
        }
        return Vorn::eOk;
    });
}

Vorn::ErrorStatus saveSnapshot(const wchar_t* name) {
    if (const Vorn::ErrorStatus status = checkName(name); status != Vorn::eOk)
        return status;
    static_cast<void>(keldbRegApp(kSnapshotApplication)); // false when it is registered already
    return visitSnapshots(KelDb::kForWrite,
                          [name](KelDbLayerTableRecord& layer, std::vector<SnapshotOfLayer>& snapshots) {
                              const auto before = findNamed(snapshots, name);
                              if (before == snapshots.end())
                                  snapshots.push_back(snapshotOf(layer, name));
                              else
                                  *before = snapshotOf(layer, name);
                              return writeSnapshots(layer, snapshots);
                          });
}

Vorn::ErrorStatus restoreSnapshot(const wchar_t* name) {
    if (const Vorn::ErrorStatus status = checkName(name); status != Vorn::eOk)
        return status;
    bool found = false;
    const Vorn::ErrorStatus status =
        visitSnapshots(KelDb::kForWrite, [&](KelDbLayerTableRecord& layer, std::vector<SnapshotOfLayer>& snapshots) {
            const auto snapshot = findNamed(snapshots, name);
            if (snapshot != snapshots.end()) {
                found = true;
                putOn(layer, *snapshot);
            }
            return Vorn::eOk;
        });
    return status != Vorn::eOk || found ? status : Vorn::eKeyNotFound;
}

Vorn::ErrorStatus deleteSnapshot(const wchar_t* name) {
    if (const Vorn::ErrorStatus status = checkName(name); status != Vorn::eOk)
        return status;
    bool found = false;
    const Vorn::ErrorStatus status =
        visitSnapshots(KelDb::kForWrite, [&](KelDbLayerTableRecord& layer, std::vector<SnapshotOfLayer>& snapshots) {
            const auto snapshot = findNamed(snapshots, name);
            if (snapshot == snapshots.end())
                return Vorn::eOk;
            found = true;
            snapshots.erase(snapshot);
            return writeSnapshots(layer, snapshots);
        });
    return status != Vorn::eOk || found ? status : Vorn::eKeyNotFound;
}
