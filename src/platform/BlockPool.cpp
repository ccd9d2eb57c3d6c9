#include "platform/BlockPool.h"

#include <cstdint>
#include <cstdlib>
#include <new>
#include <sys/mman.h>

namespace kestrabel {

namespace {

constexpr std::size_t ChunkSize = std::size_t{2} << 20;

#if defined(__SANITIZE_ADDRESS__)
constexpr bool OneByOne = true;
#else
constexpr bool OneByOne = false;
#endif

} // namespace

struct CBlockPool::SChunk
{
    SChunk* pNext = nullptr;
    SChunk* pPrevious = nullptr;
    void* pFree = nullptr;           ///< freed blocks, each holding the address of the next
    std::size_t nUsed = 0;           ///< blocks in use
    std::size_t nFresh = HeaderSize; ///< offset of the first byte never handed out

    static constexpr std::size_t HeaderSize = 64;

    bool HasRoom(std::size_t nBlockSize) const
    {
        return pFree != nullptr || nFresh + nBlockSize <= ChunkSize;
    }

    static SChunk* Of(void* pBlock)
    {
        return reinterpret_cast<SChunk*>(reinterpret_cast<std::uintptr_t>(pBlock) & ~(ChunkSize - 1));
    }
};

void* CBlockPool::Allocate()
{
    if (OneByOne)
        return ::operator new(m_nBlockSize);
    const std::lock_guard lock(m_mutex);
    if (m_pWithRoom == nullptr) {
        void* pMemory = std::aligned_alloc(ChunkSize, ChunkSize);
        if (pMemory == nullptr)
            throw std::bad_alloc();
        ::madvise(pMemory, ChunkSize, MADV_HUGEPAGE); // where there are none, small pages do
        Link(*new (pMemory) SChunk);
    }
    SChunk& chunk = *m_pWithRoom;
    void* pBlock = chunk.pFree;
    if (pBlock != nullptr) {
        chunk.pFree = *static_cast<void**>(pBlock);
    } else {
        pBlock = reinterpret_cast<char*>(&chunk) + chunk.nFresh;
        chunk.nFresh += m_nBlockSize;
    }
    ++chunk.nUsed;
    if (!chunk.HasRoom(m_nBlockSize))
        Unlink(chunk);
    return pBlock;
}

void CBlockPool::Free(void* pBlock) noexcept
{
    if (OneByOne || pBlock == nullptr) {
        ::operator delete(pBlock);
        return;
    }
    const std::lock_guard lock(m_mutex);
    SChunk& chunk = *SChunk::Of(pBlock);
    const bool bHadRoom = chunk.HasRoom(m_nBlockSize);
    *static_cast<void**>(pBlock) = chunk.pFree;
    chunk.pFree = pBlock;
    --chunk.nUsed;
    if (!bHadRoom)
        Link(chunk);
    if (chunk.nUsed == 0) {
        Unlink(chunk);
        std::free(&chunk);
    }
}

void CBlockPool::Link(SChunk& chunk)
{
    chunk.pPrevious = nullptr;
    chunk.pNext = m_pWithRoom;
    if (m_pWithRoom != nullptr)
        m_pWithRoom->pPrevious = &chunk;
    m_pWithRoom = &chunk;
}

void CBlockPool::Unlink(SChunk& chunk)
{
    if (chunk.pPrevious != nullptr)
        chunk.pPrevious->pNext = chunk.pNext;
    else
        m_pWithRoom = chunk.pNext;
    if (chunk.pNext != nullptr)
        chunk.pNext->pPrevious = chunk.pPrevious;
}

} // namespace kestrabel
