#pragma once

#include <cstddef>
#include <mutex>

namespace kestrabel {

/// Memory for very many objects of one size, such as the fixes of a track.
///
/// A million fixes fill 200 MB. Touched for the first time in pages of 4 kB, that memory costs as much time
/// as reading the file; in huge pages it costs next to nothing, and no allocator header stands between the
/// objects. Blocks come from chunks of 2 MiB, aligned to their size, so that a block finds its chunk by its
/// address; a chunk whose blocks are all free goes back to the system.
///
///     chunk:  [ header: next, previous, free list, blocks in use ][ block ][ block ] … [ block ]
///
/// May be used from several threads. Under the address sanitizer every block is an allocation of its own, so
/// that a use after free is seen.
class CBlockPool
{
public:
    /// `nBlockSize` in bytes, a multiple of 8 and far below a chunk's size.
    explicit CBlockPool(std::size_t nBlockSize) : m_nBlockSize(nBlockSize) {}
    CBlockPool(const CBlockPool&) = delete;
    CBlockPool& operator=(const CBlockPool&) = delete;

    /// Throws bad_alloc when there is no memory.
    void* Allocate();
    void Free(void* pBlock) noexcept;

private:
    struct SChunk;

    void Link(SChunk& chunk);
    void Unlink(SChunk& chunk);

    std::size_t m_nBlockSize;
    std::mutex m_mutex;
    SChunk* m_pWithRoom = nullptr; ///< chunks that have a free block, the one used last first
};

} // namespace kestrabel
