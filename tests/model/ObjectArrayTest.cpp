#include "model/ObjectArray.h"

#include <gtest/gtest.h>
#include <string>

namespace kestrabel {
namespace {

/// Tells in which order it is deleted.
struct SElement
{
    SElement(char c, std::string& strDeleted) : m_c(c), m_strDeleted(strDeleted) {}
    ~SElement() { m_strDeleted += m_c; }
    SElement(const SElement&) = delete;
    SElement& operator=(const SElement&) = delete;
    char m_c;
    std::string& m_strDeleted;
};
using CElements = CObjectArray<SElement>;

class ObjectArray : public ::testing::Test
{
protected:
    CElements Make(std::string_view strNames)
    {
        CElements array;
        for (const char c : strNames)
            array.Add(std::make_unique<SElement>(c, m_strDeleted));
        return array;
    }
    static std::string NamesOf(const CElements& array)
    {
        std::string strNames;
        for (const SElement* pElement : array)
            strNames += pElement->m_c;
        return strNames;
    }
    std::string m_strDeleted;
};

TEST_F(ObjectArray, OwnersDeleteFromTheLastToTheFirst)
{
    {
        CElements array = Make("abc");
        EXPECT_TRUE(array.Owns());
        array.RemoveAll();
        EXPECT_EQ(m_strDeleted, "cba");
        EXPECT_TRUE(array.IsEmpty());
        EXPECT_EQ(array.Last(), nullptr);
        array = Make("xyz");
    }
    EXPECT_EQ(m_strDeleted, "cbazyx") << "when destroyed";
}

TEST_F(ObjectArray, ElementsGoInAndOutAtAnIndex)
{
    CElements array = Make("ac");
    array.Insert(1, std::make_unique<SElement>('b', m_strDeleted));
    array.Insert(3, std::make_unique<SElement>('d', m_strDeleted));
    array.Insert(0, std::make_unique<SElement>('_', m_strDeleted));
    EXPECT_EQ(NamesOf(array), "_abcd");
    EXPECT_EQ(array.GetCount(), 5);
    EXPECT_EQ(array[2].m_c, 'b');
    EXPECT_EQ(array.Last()->m_c, 'd');
    array.RemoveAt(1);
    EXPECT_EQ(m_strDeleted, "a");
    const std::unique_ptr<SElement> pDetached = array.Detach(3);
    EXPECT_EQ(pDetached->m_c, 'd');
    EXPECT_EQ(NamesOf(array), "_bc");
    EXPECT_EQ(m_strDeleted, "a") << "a detached element lives on";
}

TEST_F(ObjectArray, RemoveIfAsksFromTheLastAndKeepsTheOrder)
{
    CElements array = Make("abcdef");
    std::string strAsked;
    const auto IsVowel = [&](const SElement& element) {
        strAsked += element.m_c;
        return element.m_c == 'a' || element.m_c == 'e' || element.m_c == 'f';
    };
    EXPECT_EQ(array.RemoveIf(IsVowel), 3);
    EXPECT_EQ(strAsked, "fedcba");
    EXPECT_EQ(m_strDeleted, "fea");
    EXPECT_EQ(NamesOf(array), "bcd");
    EXPECT_EQ(array.RemoveIf([](const SElement&) { return false; }), 0);
    EXPECT_EQ(array.RemoveIf([](const SElement&) { return true; }), 3);
    EXPECT_EQ(m_strDeleted, "feadcb");
}

TEST_F(ObjectArray, BorrowersNeverDelete)
{
    CElements owner = Make("abc");
    {
        CElements list{CElements::EOwnership::Borrows};
        EXPECT_FALSE(list.Owns());
        list.Borrow(owner[2]);
        list.BorrowAt(0, owner[0]);
        list.BorrowAt(1, owner[1]);
        list.Borrow(owner[0]);
        EXPECT_EQ(NamesOf(list), "abca");
        list.RemoveAt(0);
        list.RemoveIf([](const SElement& element) { return element.m_c == 'b'; });
        EXPECT_EQ(NamesOf(list), "ca");
        CElements moved = std::move(list);
        EXPECT_FALSE(moved.Owns());
        CElements third{CElements::EOwnership::Borrows};
        third.TakeAll(moved);
        third.RemoveAll();
        third.Borrow(owner[1]);
    }
    EXPECT_EQ(m_strDeleted, "");
    EXPECT_EQ(NamesOf(owner), "abc");
}

TEST_F(ObjectArray, MovingTakesTheElementsOver)
{
    CElements one = Make("ab"), other = Make("cd"), none;
    one.TakeAll(other);
    EXPECT_EQ(NamesOf(one), "abcd");
    EXPECT_TRUE(other.IsEmpty());
    one.TakeAll(none);
    none.TakeAll(one);
    EXPECT_EQ(NamesOf(none), "abcd");
    EXPECT_TRUE(one.IsEmpty());
    CElements target = Make("xy");
    target = std::move(none);
    EXPECT_EQ(m_strDeleted, "yx") << "what the target held";
    EXPECT_EQ(NamesOf(target), "abcd");
    EXPECT_TRUE(none.IsEmpty());
    CElements& same = target;
    target = std::move(same);
    EXPECT_EQ(NamesOf(target), "abcd");
}

} // namespace
} // namespace kestrabel
