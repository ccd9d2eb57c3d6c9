#include <QApplication>

#include <gtest/gtest.h>

int main(int nArguments, char** ppArguments)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&nArguments, ppArguments);
    const QApplication application(nArguments, ppArguments);
    return RUN_ALL_TESTS();
}
