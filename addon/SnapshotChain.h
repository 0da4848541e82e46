// What a layer remembers of the snapshots that it took part in, and the chain of extended data in which it does. The
// chain is the node that names the application, "TREL_SNAPSHOTS", and then six nodes for each snapshot:
//   1000  the snapshot's name
//   1070  flags: 1 off, 2 frozen, 4 locked, 8 isn't plotted, 16 frozen in new viewports
//   1071  colour, packed as KelCmColor has it
//   1005  handle of the linetype
//   1071  lineweight in hundredths of a millimetre, or a negative code
//   1005  handle of the plot style name
#pragma once

#include "KelDbTables.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

struct ReleaseSnapshotChain {
    void operator()(ResultBuffer* first) const { kelutRelRb(first); }
};
using SnapshotChain = std::unique_ptr<ResultBuffer, ReleaseSnapshotChain>;

inline constexpr const wchar_t* kSnapshotApplication = L"TREL_SNAPSHOTS";

/// The properties of one layer in one snapshot.
struct SnapshotOfLayer {
    std::wstring name;
    std::int16_t flags = 0;
    std::uint32_t color = 0;
    std::wstring linetype;
    std::int32_t lineWeight = 0;
    std::wstring plotStyle;
};
inline constexpr int kSnapshotOff = 1;
inline constexpr int kSnapshotFrozen = 2;
inline constexpr int kSnapshotLocked = 4;
inline constexpr int kSnapshotNotPlotted = 8;
inline constexpr int kSnapshotNewVpFrozen = 16;

/// The layer's snapshots, in the order in which they were taken; none when the chain isn't of the form above.
std::optional<std::vector<SnapshotOfLayer>> readSnapshots(const KelDbLayerTableRecord& layer);
/// Puts them in the place of those that the layer has, which must be open for write.
Vorn::ErrorStatus writeSnapshots(KelDbLayerTableRecord& layer, const std::vector<SnapshotOfLayer>& snapshots);
