#pragma once

#include <span>
#include <string>

namespace kestrabel {

enum class EStart
{
    Started,
    Failed,     ///< there is no such program, or it may not be run
    Impossible, ///< the platform starts no programs
};

/// Starts programs, never through a shell: a blank, a quote or a semicolon in a file's name is a character
/// of that name and nothing else.
class CProcessStarter
{
public:
    virtual ~CProcessStarter() = default;

    /// Starts `arguments[0]`, looked for in the path when it has no separator, in the current folder, with no
    /// inherited files but the standard streams. Does not wait.
    virtual EStart Start(std::span<const std::string> arguments) = 0;
    /// Waits for the program started last to end, or for the user's wish to go on or to cancel. False:
    /// cancel.
    virtual bool WaitUntilReady() = 0;
};

} // namespace kestrabel
