#include "import/support_path.h"

#include "host/edit/environment.h"
#include "host/files/paths.h"
#include "host/runtime/resbuf.h"
#include "host/text/case_mapping.h"
#include "import/readable_file.h"
#include "text/text_splitting.h"

namespace {

constexpr const wchar_t* kSupportPath = L"ACAD";

bool isPatternFolder(const std::wstring& folder)
{
    const std::wstring lowered = host::lowerCased(folder);
    return lowered.find(L"support") != lowered.npos &&
           lowered.find(L"program files") == lowered.npos &&
           readableFile(host::joinPath(folder, L"acad.pat")) &&
           readableFile(host::joinPath(folder, L"acadiso.pat"));
}

} // namespace

std::vector<std::wstring> supportFolders()
{
    std::wstring value;
    if (acedGetEnv(kSupportPath, value) != RTNORM)
        return {};
    return splitText(value, L";");
}

bool addSupportFolder(std::wstring_view folder)
{
    std::wstring value;
    if (acedGetEnv(kSupportPath, value) != RTNORM)
        return false;
    if (value.find(folder) != value.npos)
        return true;
    if (!value.ends_with(L';'))
        value += L';';
    value.append(folder) += L';';
    return acedSetEnv(kSupportPath, value) == RTNORM;
}

std::optional<std::wstring> patternFolder()
{
    for (const std::wstring& folder : supportFolders()) {
        if (isPatternFolder(folder))
            return folder;
    }
    return std::nullopt;
}
