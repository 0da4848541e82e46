// Layer snapshots of the add-on become states of the drawing.
#pragma once

/// A function that the add-on exports; to be called by its own signature.
using AddOnFunction = void (*)();
/// Finds an export of the add-on; null when it has none of that name.
using FindAddOnFunction = AddOnFunction (*)(const char* name);

/// What became of the snapshots.
enum SnapshotResult : int { kAddOnAbsent = -1, kSnapshotsNotConverted = 0, kSnapshotsConverted = 1 };

/// Turns each snapshot into a layer state of the working drawing, with all properties, and has the add-on delete it.
/// The drawing's layers are as before afterwards. Between two snapshots they aren't put back: what a snapshot doesn't
/// touch keeps the value of the one before it.
/// @param count grows by 1 with each state that is saved
/// @return kSnapshotsConverted when all went over; otherwise kSnapshotsNotConverted, also when there are none, or when
///         an export is missing
SnapshotResult convertSnapshots(FindAddOnFunction find, int& count);
