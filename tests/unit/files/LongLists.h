// Drawings in which one list is as long as it is asked for, for each list that a drawing file has: whoever makes a file
// chooses their lengths, and reading it may take no longer than in proportion.
#pragma once

#include "model/Drawing.h"

#include <vector>

struct LongList {
    const char* name;
    zdr::Drawing (*make)(std::size_t count);
};

/// The file of a drawing, and those of the drawings that it shows, in memory.
class FilesOfDrawing {
  public:
    explicit FilesOfDrawing(const zdr::Drawing& drawing);
    /// Bytes of all of them.
    std::size_t size() const;
    /// Reads and attaches all as opening the drawing does.
    void open() const;

  private:
    std::vector<std::byte> m_own;
    std::vector<std::vector<std::byte>> m_shown; // by reference; empty for one that isn't resolved
};

/// All lists of the drawing schema, and the ones that grow together.
const std::vector<LongList>& longLists();
