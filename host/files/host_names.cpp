#include "host/files/host_names.h"

#include "host/text/encoding.h"

#include <climits>
#include <cstdlib>
#include <pwd.h>
#include <unistd.h>
#include <vector>

namespace host {

std::wstring computerName()
{
    char name[HOST_NAME_MAX + 1] = {};
    return gethostname(name, sizeof name - 1) == 0 ? fromUtf8(name) : std::wstring();
}

std::wstring userName()
{
    std::vector<char> buffer(16384);
    passwd entry{};
    passwd* found = nullptr;
    if (getpwuid_r(geteuid(), &entry, buffer.data(), buffer.size(), &found) == 0 && found)
        return fromUtf8(found->pw_name);
    // In a container the user often has a number only.
    for (const char* variable : {"USER", "LOGNAME"}) {
        if (const char* name = std::getenv(variable))
            return fromUtf8(name);
    }
    return {};
}

} // namespace host
