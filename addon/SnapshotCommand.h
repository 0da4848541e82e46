// The command LAYERSNAPSHOT, by which a person takes, restores, lists and deletes snapshots.
#pragma once

void registerSnapshotCommand();
void unregisterSnapshotCommand();
