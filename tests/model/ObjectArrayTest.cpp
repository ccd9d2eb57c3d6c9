#include "model/ObjectArray.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace kestrabel {
namespace {

/// Tells in which order it is deleted.
struct SElement
{
    char m_c;
    std::string& m_strDeleted;
    ~SElement() { m_strDeleted += m_c; }
};
using CElements = CObjectArray<SElement>;

CElements Make(std::string_view strNames, std::string& strDeleted)
{
    CElements array;
    for (const char c : strNames)
        array.Add(std::make_unique<SElement>(c, strDeleted));
    return array;
}

std::string NamesOf(const CElements& array)
{
    std::string strNames;
    std::for_each(array.begin(), array.end(), [&](const SElement* p) { strNames += p->m_c; });
    return strNames;
}

TEST(ObjectArray, OwnersDeleteFromTheLastToTheFirst)
{
    std::string strDeleted, strAsked;
    {
        CElements array = Make("acdef", strDeleted);
        array.Insert(1, std::make_unique<SElement>('b', strDeleted));
        array.Insert(6, std::make_unique<SElement>('g', strDeleted));
        EXPECT_EQ(array.Detach(2)->m_c, 'c');
        array.RemoveAt(0);
        EXPECT_EQ(NamesOf(array) + strDeleted, "bdefgca");
        const auto isUnwanted = [&](const SElement& element) {
            strAsked += element.m_c;
            return element.m_c == 'b' || element.m_c >= 'f';
        };
        EXPECT_EQ(array.RemoveIf(isUnwanted), 3);
        EXPECT_EQ(strAsked + " " + strDeleted + " " + NamesOf(array), "gfedb cagfb de");
    }
    EXPECT_EQ(strDeleted, "cagfbed") << "when destroyed";
    EXPECT_EQ(CElements().Last(), nullptr);
}

TEST(ObjectArray, BorrowersNeverDeleteAndMovingTakesOver)
{
    std::string strDeleted;
    CElements owner = Make("abc", strDeleted), target = Make("xy", strDeleted);
    {
        CElements list{CElements::EOwnership::Borrows}, third{CElements::EOwnership::Borrows};
        list.Borrow(owner[2]);
        list.BorrowAt(0, owner[1]);
        list.RemoveIf([](const SElement& element) { return element.m_c == 'b'; });
        CElements moved = std::move(list);
        third.TakeAll(moved);
        EXPECT_EQ(NamesOf(third) + NamesOf(moved), "c");
    }
    target.TakeAll(owner);
    EXPECT_EQ(NamesOf(target) + NamesOf(owner) + strDeleted, "xyabc");
    owner = Make("de", strDeleted);
    owner = std::move(target);
    EXPECT_EQ(strDeleted, "ed") << "what the target held";
    EXPECT_EQ(NamesOf(owner) + NamesOf(target), "xyabc");
}

} // namespace
} // namespace kestrabel
