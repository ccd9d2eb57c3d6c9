#pragma once

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <memory>
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
