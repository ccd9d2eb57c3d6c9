#pragma once

#include "geo/Ellipsoid.h"
#include "geo/Position.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace kestrabel {

enum class ECommand
{
    Results,
    Leaderboard,
    Points,
    Info,
    Convert,
    Distance,
    ShowProject,
    NewProject,
    ShowText ///< print `strText` (help, version) and end
};

enum class EFormat
{
    Table,
    Csv,
    Json
};

/// "NAME=FILE[,FILE]...": one competitor.
struct SEntryArgument
{
    std::string strName; ///< UTF-8; may be empty
    std::vector<std::string> files;
};

/// "NAME=VALUE": one setting of the event.
struct SSettingArgument
{
    std::string strName;
    std::string strValue;
};

/// "NAME,LAT,LON[,METRES]": a checkpoint in every track file.
struct SCheckPointArgument
{
    std::string strName; ///< UTF-8
    CPosition position;
    double dProximity; ///< km
};

/// The end points and the measure of `distance`.
struct SDistanceArguments
{
    CPosition from;
    CPosition to;
    CEllipsoid ellipsoid;
    char cUnit = 'k'; ///< as in CDistanceCalculator
};

/// What a command line asks for.
struct SArguments
{
    ECommand command = ECommand::ShowText;
    EFormat format = EFormat::Table;
    std::vector<SEntryArgument> entries;
    std::vector<std::string> files; ///< of the unnamed competitor; the one of `points`; IN of `convert`; the
                                    ///< project of `project`
    std::string strProject;         ///< empty = a new default project
    std::vector<SCheckPointArgument> checkpoints;
    std::vector<SSettingArgument> settings;
    std::vector<std::string> divisions; ///< as written; empty = all
    std::string strOutput;              ///< OUT of `convert`
    SDistanceArguments distance;
    bool bStrict = false;
    bool bAllFields = false;
    bool bForce = false;
    std::string strText;
};

/// The command line is wrong; the text says what was expected.
class CCommandLineError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

} // namespace kestrabel
