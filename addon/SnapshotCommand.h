// The command LAYERSNAPSHOT, by which a person takes, restores, lists and deletes snapshots.
#pragma once

/// Answers whether the command stands on the stack.
bool registerSnapshotCommand();
void unregisterSnapshotCommand();
