#pragma once

#include "grid/Cell.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace pellam {

/// Gives out chunks of 16384 empty cells, cut from large slabs, and takes them back for reuse.
class ChunkPool {
  public:
    static constexpr std::int64_t kChunkCells = 16384;

    ChunkPool() = default;
    ~ChunkPool();
    ChunkPool(const ChunkPool&) = delete;
    ChunkPool& operator=(const ChunkPool&) = delete;

    /// A chunk of empty cells. Throws std::bad_alloc when memory is exhausted.
    Cell* take();
    void giveBack(Cell* chunk);

    /// Returns the memory of slabs none of whose chunks is in use to the system.
    void trim();

  private:
    struct Slab {
        char* base;
        std::size_t handedOut; ///< chunks cut from it so far
        std::size_t inUse;
    };

    Slab& slabOf(const Cell* chunk);
    void addSlab();

    std::vector<Slab> m_slabs;
    std::vector<Cell*> m_free;
};

} // namespace pellam
