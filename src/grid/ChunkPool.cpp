#include "grid/ChunkPool.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <sys/mman.h>

namespace pellam {

namespace {

constexpr std::size_t kSlabBytes = std::size_t{8} << 20;
constexpr std::size_t kChunkBytes = ChunkPool::kChunkCells * sizeof(Cell);
// Columns are filled side by side, a row at a time. Chunks a power of two apart would all fall on
// the same few cache sets; three more lines between them spread them out.
constexpr std::size_t kStride = kChunkBytes + 192;
constexpr std::size_t kChunksInSlab = kSlabBytes / kStride;

} // namespace

ChunkPool::~ChunkPool() {
    for (const Slab& slab : m_slabs)
        ::munmap(slab.base, kSlabBytes);
}

Cell* ChunkPool::take() {
    if (!m_free.empty()) {
        Cell* const chunk = m_free.back();
        m_free.pop_back();
        ++slabOf(chunk).inUse;
        std::memset(static_cast<void*>(chunk), 0, kChunkBytes);
        return chunk;
    }
    if (m_slabs.empty() || m_slabs.back().handedOut == kChunksInSlab) addSlab();
    Slab& slab = m_slabs.back();
    ++slab.inUse;
    return reinterpret_cast<Cell*>(slab.base + kStride * slab.handedOut++);
}

void ChunkPool::addSlab() {
    // Untouched pages of a mapping cost nothing: a wide and short file uses little of each chunk.
    void* const base =
        ::mmap(nullptr, kSlabBytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (base == MAP_FAILED) throw std::bad_alloc();
    m_slabs.push_back({static_cast<char*>(base), 0, 0});
}

ChunkPool::Slab& ChunkPool::slabOf(const Cell* chunk) {
    const auto* const at = reinterpret_cast<const char*>(chunk);
    return *std::find_if(m_slabs.begin(), m_slabs.end(), [at](const Slab& slab) {
        return at >= slab.base && at < slab.base + kSlabBytes;
    });
}

void ChunkPool::giveBack(Cell* chunk) {
    --slabOf(chunk).inUse;
    m_free.push_back(chunk);
}

void ChunkPool::trim() {
    const auto unused = [](const Slab& slab) { return slab.inUse == 0; };
    std::erase_if(m_free, [this](const Cell* chunk) { return slabOf(chunk).inUse == 0; });
    for (const Slab& slab : m_slabs) {
        if (unused(slab)) ::munmap(slab.base, kSlabBytes);
    }
    std::erase_if(m_slabs, unused);
}

} // namespace pellam
