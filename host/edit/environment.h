#pragma once

#include <filesystem>
#include <string>

// Values of the user's profile. "ACAD" is the list of support folders, apart by ";": the folder
// given to the program first, then the profile's own, then what was added. RTERROR for a name that
// has no value.
int acedGetEnv(const wchar_t* name, std::wstring& value);
int acedSetEnv(const wchar_t* name, const std::wstring& value);

namespace host {

class UserProfile;

// What acedGetEnv reads; set while a session lasts. `supportFolder` empty: none was given.
void setEnvironment(UserProfile* profile, std::wstring supportFolder = {});

} // namespace host
