// Tests of the migration with the real add-on in the process.
#pragma once

#include "MigrationTest.h"

class SnapshotMigrationTest : public MigrationTest {
  protected:
    void TearDown() override;

    /// Loads the add-on; that of a folder beside the program where one is given.
    void loadAddOn(const std::wstring& folder = {});
    void unloadAddOn();
    /// Runs LAYERSNAPSHOT with these arguments, and answers what it prints.
    std::wstring runSnapshot(const std::wstring& arguments);
    /// Takes the snapshots S1, S2 and so on, in which Walls has the colours 11, 12 and so on.
    void saveSnapshots(int count);
    /// The snapshots of the drawing, as LAYERSNAPSHOT lists them.
    std::wstring listedSnapshots();
    /// What the message says with the add-on.
    static std::wstring messageOf(int legacyCount, int snapshotCount);

  private:
    runtime::ModuleLoader m_addOn;
};
