#include "platform/LargeVector.h"

#include <cstdlib>
#include <sys/mman.h>

namespace kestrabel {

namespace {

constexpr std::size_t HugePage = std::size_t{2} << 20;

} // namespace

void* AllocateLarge(std::size_t nBytes)
{
    if (nBytes < HugePage)
        return ::operator new(nBytes);
    if (nBytes > static_cast<std::size_t>(-1) - HugePage)
        throw std::bad_alloc();
    const std::size_t nPages = (nBytes + HugePage - 1) / HugePage;
    void* pMemory = std::aligned_alloc(HugePage, nPages * HugePage);
    if (pMemory == nullptr)
        throw std::bad_alloc();
    ::madvise(pMemory, nPages * HugePage, MADV_HUGEPAGE); // where there are none, small pages do
    return pMemory;
}

void FreeLarge(void* pMemory, std::size_t nBytes) noexcept
{
    if (nBytes < HugePage)
        ::operator delete(pMemory);
    else
        std::free(pMemory);
}

} // namespace kestrabel
