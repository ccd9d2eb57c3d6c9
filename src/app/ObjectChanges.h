#pragma once

#include "app/EditHistory.h"
#include "model/ObjectArray.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace kestrabel {

/// A value that gets another one.
template <class T>
class CValueChange : public CChange
{
public:
    CValueChange(T& value, T newValue) : m_value(value), m_other(std::move(newValue)) {}
    void Swap() override { std::swap(m_value, m_other); }

private:
    T& m_value;
    T m_other;
};

/// An object that comes into an owning array at an index, or goes from there. While it is out the change
/// owns it, so that whoever refers to it finds it again.
template <class T>
class CObjectChange : public CChange
{
public:
    /// Brings an object in.
    CObjectChange(CObjectArray<T>& objects, int nIndex, std::unique_ptr<T> pObject)
        : m_objects(objects), m_nIndex(nIndex), m_pOut(std::move(pObject))
    {
    }
    /// Takes the object at the index out.
    CObjectChange(CObjectArray<T>& objects, int nIndex) : m_objects(objects), m_nIndex(nIndex) {}

    void Swap() override
    {
        if (m_pOut != nullptr)
            m_objects.Insert(m_nIndex, std::move(m_pOut));
        else
            m_pOut = m_objects.Detach(m_nIndex);
    }

private:
    CObjectArray<T>& m_objects;
    int m_nIndex;
    std::unique_ptr<T> m_pOut;
};

/// Two objects of an array that change places.
template <class T>
class CSwappedObjects : public CChange
{
public:
    CSwappedObjects(CObjectArray<T>& objects, int nOne, int nOther)
        : m_objects(objects), m_nFirst(std::min(nOne, nOther)), m_nLast(std::max(nOne, nOther))
    {
    }

    void Swap() override
    {
        std::unique_ptr<T> pLast = m_objects.Detach(m_nLast);
        std::unique_ptr<T> pFirst = m_objects.Detach(m_nFirst);
        m_objects.Insert(m_nFirst, std::move(pLast));
        m_objects.Insert(m_nLast, std::move(pFirst));
    }

private:
    CObjectArray<T>& m_objects;
    int m_nFirst;
    int m_nLast;
};

} // namespace kestrabel
