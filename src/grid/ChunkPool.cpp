#include "grid/ChunkPool.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <sys/mman.h>

namespace pellam {

namespace {

constexpr std::size_t kHugePage = std::size_t{2} << 20;
constexpr std::size_t kSlabBytes = 4 * kHugePage;
constexpr std::size_t kChunkBytes = ChunkPool::kChunkCells * sizeof(Cell);
// Columns are filled side by side, a row at a time. Chunks a power of two apart would all fall on
// the same few cache sets; three more lines between them spread them out.
constexpr std::size_t kStride = kChunkBytes + 3 * 64;
constexpr std::size_t kChunksInSlab = kSlabBytes / kStride;

} // namespace

ChunkPool::~ChunkPool() {
    for (const Slab& slab : m_slabs)
        ::munmap(slab.base, kSlabBytes);
}

Cell* ChunkPool::take(Pages pages) {
    auto& free = m_free[static_cast<std::size_t>(pages)];
    if (!free.empty()) {
        Cell* const chunk = free.back();
        free.pop_back();
        ++slabOf(chunk).inUse;
        std::memset(static_cast<void*>(chunk), 0, kChunkBytes);
        return chunk;
    }
    const auto hasRoom = [pages](const Slab& slab) {
        return slab.pages == pages && slab.handedOut < kChunksInSlab;
    };
    auto slab = std::find_if(m_slabs.rbegin(), m_slabs.rend(), hasRoom);
    if (slab == m_slabs.rend()) {
        addSlab(pages);
        slab = m_slabs.rbegin();
    }
    ++slab->inUse;
    return reinterpret_cast<Cell*>(slab->base + kStride * slab->handedOut++);
}

void ChunkPool::addSlab(Pages pages) {
    // Mapped with room to spare so that the slab can start on a huge page.
    const std::size_t mapped = kSlabBytes + kHugePage;
    void* const raw =
        ::mmap(nullptr, mapped, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (raw == MAP_FAILED) throw std::bad_alloc();
    char* const start = static_cast<char*>(raw);
    const auto address = reinterpret_cast<std::uintptr_t>(start);
    const std::size_t lead = (kHugePage - address % kHugePage) % kHugePage;
    if (lead > 0) ::munmap(start, lead);
    if (lead < kHugePage) ::munmap(start + lead + kSlabBytes, kHugePage - lead);
    char* const base = start + lead;
    ::madvise(base, kSlabBytes, pages == Pages::Huge ? MADV_HUGEPAGE : MADV_NOHUGEPAGE);
    m_slabs.push_back({base, pages, 0, 0});
}

ChunkPool::Slab& ChunkPool::slabOf(const Cell* chunk) {
    const auto* const at = reinterpret_cast<const char*>(chunk);
    return *std::find_if(m_slabs.begin(), m_slabs.end(), [at](const Slab& slab) {
        return at >= slab.base && at < slab.base + kSlabBytes;
    });
}

void ChunkPool::giveBack(Cell* chunk, Pages pages) {
    --slabOf(chunk).inUse;
    m_free[static_cast<std::size_t>(pages)].push_back(chunk);
}

void ChunkPool::trim() {
    const auto unused = [](const Slab& slab) { return slab.inUse == 0; };
    for (auto& free : m_free) {
        std::erase_if(free, [this](const Cell* chunk) { return slabOf(chunk).inUse == 0; });
    }
    for (const Slab& slab : m_slabs) {
        if (unused(slab)) ::munmap(slab.base, kSlabBytes);
    }
    std::erase_if(m_slabs, unused);
}

} // namespace pellam
