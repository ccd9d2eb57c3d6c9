#pragma once

#include "cli/Output.h"
#include "support/TemporaryFolder.h"

#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace kestrabel::test {

/// What `print(output)` writes.
template <class TPrint>
std::string PrintedText(TPrint&& print)
{
    const CTemporaryFolder folder;
    const std::string strFile = folder.Path("printed");
    const int nHandle = ::open(strFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    COutput output(nHandle);
    print(output);
    output.Finish();
    ::close(nHandle);
    return CTemporaryFolder::Read(strFile);
}

} // namespace kestrabel::test
