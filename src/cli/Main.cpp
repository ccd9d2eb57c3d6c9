#include "cli/Command.h"

#include <algorithm>
#include <csignal>

int main(int nArguments, char** pArguments)
{
    // A reader that has seen enough, such as "head", must not kill the tool before it can say so.
    std::signal(SIGPIPE, SIG_IGN);
    // Nor a file at its largest allowed size: what could not be written is told and cleared away.
    std::signal(SIGXFSZ, SIG_IGN);
    return kestrabel::RunTool({pArguments + std::min(nArguments, 1), pArguments + nArguments});
}
