#pragma once

#include <cstddef>
#include <new>
#include <vector>

namespace kestrabel {

/// Memory for one array, in huge pages when it is large: the first touch of 16 MB in pages of 4 kB can cost
/// more than what a calculation does with them. Throws bad_alloc when there is none.
void* AllocateLarge(std::size_t nBytes);
/// `nBytes` as it was allocated.
void FreeLarge(void* pMemory, std::size_t nBytes) noexcept;

/// The standard allocator for CLargeVector.
template <class T>
struct CLargeAllocator
{
    using value_type = T;

    CLargeAllocator() = default;
    template <class TOther>
    CLargeAllocator(const CLargeAllocator<TOther>& /*other*/)
    {
    }

    T* allocate(std::size_t nCount)
    {
        if (nCount > static_cast<std::size_t>(-1) / sizeof(T))
            throw std::bad_array_new_length();
        return static_cast<T*>(AllocateLarge(nCount * sizeof(T)));
    }
    void deallocate(T* pMemory, std::size_t nCount) noexcept { FreeLarge(pMemory, nCount * sizeof(T)); }

    bool operator==(const CLargeAllocator&) const { return true; }
};

/// For a few numbers per point of a track, needed while a calculation runs.
template <class T>
using CLargeVector = std::vector<T, CLargeAllocator<T>>;

} // namespace kestrabel
