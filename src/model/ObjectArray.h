#pragma once

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <memory>
#include <span>
#include <utility>
#include <vector>

namespace kestrabel {

/// An ordered, growable array of object pointers that owns its objects or borrows them, as it was made.
///
///     event ──owns──> competitors ──own──> track files ──own──> points
///                                                └──own──> per-division records ──own──> results
///     a leaderboard, a merged list: borrow
///
/// While it owns, removing all elements and destroying the array delete the elements from the last to the
/// first. Elements are never null. Indices are not checked beyond an assertion.
template <class T>
class CObjectArray
{
public:
    enum class EOwnership
    {
        Owns,
        Borrows
    };

    explicit CObjectArray(EOwnership ownership = EOwnership::Owns) : m_bOwns(ownership == EOwnership::Owns) {}
    ~CObjectArray() { RemoveAll(); }

    CObjectArray(const CObjectArray&) = delete;
    CObjectArray& operator=(const CObjectArray&) = delete;
    CObjectArray(CObjectArray&& other) noexcept
        : m_elements(std::move(other.m_elements)), m_bOwns(other.m_bOwns)
    {
        other.m_elements.clear();
    }
    CObjectArray& operator=(CObjectArray&& other) noexcept
    {
        if (this != &other) {
            RemoveAll();
            m_elements = std::move(other.m_elements);
            m_bOwns = other.m_bOwns;
            other.m_elements.clear();
        }
        return *this;
    }

    bool Owns() const { return m_bOwns; }
    int GetCount() const { return static_cast<int>(m_elements.size()); }
    bool IsEmpty() const { return m_elements.empty(); }

    T& operator[](int nIndex) const { return *At(nIndex); }
    T* At(int nIndex) const
    {
        assert(nIndex >= 0 && nIndex < GetCount());
        return m_elements[static_cast<std::size_t>(nIndex)];
    }
    /// Tells the processor that an element will be looked at soon; an index beyond the end does nothing. A
    /// walk over a long track otherwise waits for memory at every point.
    void Prefetch(int nIndex) const
    {
        if (nIndex < GetCount())
            __builtin_prefetch(m_elements[static_cast<std::size_t>(nIndex)]);
    }

    T* Last() const { return m_elements.empty() ? nullptr : m_elements.back(); }

    /// Iterates over the pointers.
    auto begin() const { return m_elements.begin(); }
    auto end() const { return m_elements.end(); }

    /// Appends an object that the array takes over. Only an owning array may.
    T& Add(std::unique_ptr<T> pObject) { return Insert(GetCount(), std::move(pObject)); }

    /// Inserts an object that the array takes over, before `nIndex`; linear in what stands behind it.
    T& Insert(int nIndex, std::unique_ptr<T> pObject)
    {
        assert(m_bOwns && pObject != nullptr);
        m_elements.insert(m_elements.begin() + nIndex, pObject.get());
        return *pObject.release();
    }

    /// Appends an object that somebody else owns. Only a borrowing array may.
    void Borrow(T& object) { BorrowAt(GetCount(), object); }
    void BorrowAt(int nIndex, T& object)
    {
        assert(!m_bOwns);
        m_elements.insert(m_elements.begin() + nIndex, &object);
    }

    /// Removes the element, deleting it when the array owns; linear in what stands behind it.
    void RemoveAt(int nIndex)
    {
        T* pObject = At(nIndex);
        m_elements.erase(m_elements.begin() + nIndex);
        if (m_bOwns)
            delete pObject;
    }

    /// Takes an element out of an owning array without deleting it.
    std::unique_ptr<T> Detach(int nIndex)
    {
        assert(m_bOwns);
        std::unique_ptr<T> pObject(At(nIndex));
        m_elements.erase(m_elements.begin() + nIndex);
        return pObject;
    }

    /// Takes the elements at ascending indices out of an owning array without deleting them. Linear.
    std::vector<std::unique_ptr<T>> DetachAll(std::span<const int> indices)
    {
        assert(m_bOwns);
        std::vector<std::unique_ptr<T>> detached;
        detached.reserve(indices.size());
        for (const int nIndex : indices)
            detached.emplace_back(std::exchange(m_elements[static_cast<std::size_t>(nIndex)], nullptr));
        std::erase(m_elements, nullptr);
        return detached;
    }

    /// Puts objects back where `DetachAll` took them: `objects[i]` gets the index `indices[i]`. Linear.
    void InsertAll(std::span<const int> indices, std::vector<std::unique_ptr<T>> objects)
    {
        assert(m_bOwns && indices.size() == objects.size());
        std::vector<T*> merged;
        merged.reserve(m_elements.size() + objects.size());
        std::size_t nObject = 0;
        for (std::size_t nElement = 0; nElement < m_elements.size() || nObject < objects.size();) {
            if (nObject < objects.size() && static_cast<std::size_t>(indices[nObject]) == merged.size())
                merged.push_back(objects[nObject++].release());
            else
                merged.push_back(m_elements[nElement++]);
        }
        m_elements = std::move(merged);
    }

    /// Brings the elements from `nFirst` on into another order: the element at `nFirst` + i becomes the one
    /// that was at `nFirst` + `order[i]`.
    void Reorder(int nFirst, std::span<const int> order)
    {
        const auto first = m_elements.begin() + nFirst;
        const std::vector<T*> before(first, first + static_cast<std::ptrdiff_t>(order.size()));
        std::transform(order.begin(), order.end(), first,
                       [&](int nFrom) { return before[static_cast<std::size_t>(nFrom)]; });
    }

    /// Moves the elements from `nFirst` on to the end of `other`, which owns as this array does.
    void MoveTail(int nFirst, CObjectArray& other)
    {
        assert(m_bOwns == other.m_bOwns);
        const auto first = m_elements.begin() + nFirst;
        other.m_elements.insert(other.m_elements.end(), first, m_elements.end());
        m_elements.erase(first, m_elements.end());
    }

    /// Removes every element for which `isUnwanted(element)` is true, asked from the last to the first, and
    /// deletes it when the array owns. Linear. Returns the number removed.
    template <class TPredicate>
    int RemoveIf(TPredicate&& isUnwanted)
    {
        int nRemoved = 0;
        for (auto it = m_elements.rbegin(); it != m_elements.rend(); ++it) {
            if (!isUnwanted(**it))
                continue;
            if (m_bOwns)
                delete *it;
            *it = nullptr;
            ++nRemoved;
        }
        std::erase(m_elements, nullptr);
        return nRemoved;
    }

    /// Empties the array, deleting the elements from the last to the first when it owns.
    void RemoveAll()
    {
        if (m_bOwns) {
            while (!m_elements.empty()) {
                delete m_elements.back();
                m_elements.pop_back();
            }
        }
        m_elements.clear();
    }

    /// Sorts by `isBefore(one, other)`; elements that are equal by it keep their order. n log n.
    template <class TPredicate>
    void StableSort(TPredicate&& isBefore)
    {
        std::stable_sort(m_elements.begin(), m_elements.end(),
                         [&](const T* pOne, const T* pOther) { return isBefore(*pOne, *pOther); });
    }

    void Reserve(int nCount) { m_elements.reserve(static_cast<std::size_t>(nCount)); }

    /// Appends all elements of `other`, in order, and leaves it empty. Both own or both borrow.
    void TakeAll(CObjectArray& other)
    {
        assert(m_bOwns == other.m_bOwns);
        if (m_elements.empty())
            m_elements.swap(other.m_elements);
        else
            m_elements.insert(m_elements.end(), other.m_elements.begin(), other.m_elements.end());
        other.m_elements.clear();
    }

private:
    std::vector<T*> m_elements;
    bool m_bOwns;
};

} // namespace kestrabel
