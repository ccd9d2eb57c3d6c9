#pragma once

namespace kestrabel {

/// How the tool ends; the values are the process' exit status.
enum class EExitStatus : int
{
    Done = 0,
    Failed = 1,           ///< the input was read, but there was nothing to report or a write failed
    WrongCommandLine = 2, ///< nothing was read
    Unreadable = 3,       ///< a file could not be read, or not to its end; the others were used
};

/// The one that tells more: a file that could not be read outranks what failed because of it.
constexpr EExitStatus Worse(EExitStatus one, EExitStatus other)
{
    return one > other ? one : other;
}

} // namespace kestrabel
