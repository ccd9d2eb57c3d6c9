#pragma once

namespace kestrabel {

/// How a reader ended.
enum class EReadEnd
{
    Complete, ///< the file was read to its end
    Failed,   ///< it could not be opened, or is not what its name says; the monitor tells
    Stopped,  ///< the user stopped, or the file could not be read on
};

} // namespace kestrabel
