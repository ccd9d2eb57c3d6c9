#include "platform/Progress.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace kestrabel {
namespace {

class CRecordingDisplay final : public CProgressDisplay
{
public:
    void Begin(std::string_view strText) override { m_strText = strText; }
    void Show(double dFraction) override { m_shown.push_back(dFraction); }
    void End() override { ++m_nEnds; }

    std::string m_strText;
    std::vector<double> m_shown;
    int m_nEnds = 0;
};

TEST(Progress, TellsAtMostAboutAHundredTimesAndEndsOnce)
{
    const struct
    {
        std::int64_t nRange;
        int nSteps;
        std::size_t nLeast, nMost;
        double dLast;
    } cases[] = {
        {0, 1000, 0, 0, 0.0},
        {-5, 1000, 0, 0, 0.0},
        {1, 1, 1, 1, 1.0},
        {100, 100, 100, 100, 1.0},
        {1'000'000, 1'000'000, 100, 100, 1.0},
        {12'345, 12'345, 90, 110, 0.99},
        {1000, 500, 50, 50, 0.5},
        {10, 1000, 10, 1000, 1.0}, // more steps than announced
    };
    for (const auto& test : cases) {
        CRecordingDisplay display;
        {
            CProgress progress(display, "Calculating track points", test.nRange);
            EXPECT_EQ(display.m_strText, "Calculating track points");
            for (int i = 0; i < test.nSteps; ++i)
                progress.Step();
            EXPECT_EQ(display.m_nEnds, 0);
        }
        EXPECT_EQ(display.m_nEnds, 1);
        EXPECT_GE(display.m_shown.size(), test.nLeast) << test.nRange;
        EXPECT_LE(display.m_shown.size(), test.nMost) << test.nRange;
        for (std::size_t i = 0; i < display.m_shown.size(); ++i) {
            EXPECT_LE(display.m_shown[i], 1.0);
            EXPECT_GE(display.m_shown[i], i == 0 ? 0.0 : display.m_shown[i - 1]);
        }
        const double dLast = display.m_shown.empty() ? 0.0 : display.m_shown.back();
        EXPECT_NEAR(dLast, test.dLast, 0.01) << test.nRange;
    }
}

} // namespace
} // namespace kestrabel
