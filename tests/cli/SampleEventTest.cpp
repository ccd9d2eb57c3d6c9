#include "cli/ToolRun.h"

#include <gtest/gtest.h>

namespace kestrabel {
namespace {

/// The whole road on files as loggers write them: every kind of division of the sample event, checkpoints
/// included. The riders' planted runs (samples/truth.json) decide the timed divisions; the gates stand in
/// them.
TEST(SampleEvent, EveryKindOfDivisionHasItsLeader)
{
    const std::string strSamples = KESTRABEL_SAMPLES "/";
    const test::SToolRun run = test::CToolTest().Run(
        {"leaderboard", "--project", strSamples + "sample.rsp", "--checkpoint", "Start,52.80037,5.2703,50",
         "--entry", "Anna=" + strSamples + "anna.nmea", "--entry", "Ben=" + strSamples + "ben.gpx", "--entry",
         "Chloe=" + strSamples + "chloe.txt", "--format", "json"});
    EXPECT_EQ(run.strErr, "");
    std::string strLeaders;
    const nlohmann::json document = run.Json();
    for (const nlohmann::json& division : document["divisions"]) {
        const nlohmann::json& first = division["results"][0];
        strLeaders += division["division"].get<std::string>() + '|' + first["competitor"].get<std::string>() +
                      '|' + first["startTime"].get<std::string>().substr(11) + '|' +
                      first["waypoint"].get<std::string>() + '\n';
        EXPECT_EQ(division["results"].size(), 3U);
    }
    EXPECT_EQ(strLeaders, "2 sec|Anna|12:18:24.000|\n"
                          "10 sec (best of 5)|Chloe|12:19:58.000|\n"
                          "10 sec|Anna|12:18:17.000|\n"
                          "100 meters Accum|Anna|12:18:21.000|\n"
                          "250 meters Accum|Anna|12:18:16.000|\n"
                          "500 meters Accum|Anna|12:18:10.000|\n"
                          "Alpha 500|Anna|12:18:31.000|\n"
                          "Laps|Anna|12:18:01.000|South-North\n"
                          "Kilometres|Ben|12:19:35.800|\n"
                          "CheckPoints|Anna|12:18:10.000|Start-Start\n");
}

} // namespace
} // namespace kestrabel
