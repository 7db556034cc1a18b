#include "host/edit/environment.h"

#include "host/db/database.h"
#include "host/files/user_profile.h"
#include "host/runtime/resbuf.h"
#include "host/text/case_mapping.h"
#include "host/text/encoding.h"

#include <algorithm>

namespace host {

namespace {

UserProfile* theProfile = nullptr;
std::wstring theSupportFolder; // with what parts it from the rest, or empty

constexpr const wchar_t* kSupportPath = L"ACAD";

std::wstring withFirst(const std::wstring& folder, const std::wstring& rest)
{
    if (rest == folder || rest.starts_with(folder + L';'))
        return rest;
    return rest.empty() ? folder : folder + L';' + rest;
}

// The profile's own folders, without the one given to the program.
std::wstring ownSupportPath()
{
    return withFirst(fromUtf8(theProfile->supportFolder().string()),
                     theProfile->get(kSupportPath).value_or(std::wstring()));
}

std::vector<std::wstring> supportFolders()
{
    std::vector<std::wstring> folders;
    const std::wstring all = theSupportFolder + ownSupportPath();
    for (std::size_t first = 0; first < all.size();) {
        const std::size_t end = std::min(all.find(L';', first), all.size());
        if (end > first)
            folders.push_back(all.substr(first, end - first));
        first = end + 1;
    }
    return folders;
}

} // namespace

void setEnvironment(UserProfile* profile, std::wstring supportFolder)
{
    theProfile = profile;
    acdbHostApplicationServices()->setSupportFolders(profile ? supportFolders : nullptr);
    theSupportFolder = supportFolder.empty() ? std::wstring() : std::move(supportFolder) + L';';
}

} // namespace host

int acedGetEnv(const wchar_t* name, std::wstring& value)
{
    if (!name || !host::theProfile)
        return RTERROR;
    if (host::equalNoCase(name, host::kSupportPath)) {
        value = host::theSupportFolder + host::ownSupportPath();
        return RTNORM;
    }
    const std::optional<std::wstring> kept = host::theProfile->get(name);
    if (!kept)
        return RTERROR;
    value = *kept;
    return RTNORM;
}

int acedSetEnv(const wchar_t* name, const std::wstring& value)
{
    if (!name || !*name || !host::theProfile)
        return RTERROR;
    std::wstring kept = value;
    // the folder given to the program is for this run only
    if (host::equalNoCase(name, host::kSupportPath) && kept.starts_with(host::theSupportFolder))
        kept.erase(0, host::theSupportFolder.size());
    std::string error;
    return host::theProfile->set(name, kept, error) ? RTNORM : RTERROR;
}
