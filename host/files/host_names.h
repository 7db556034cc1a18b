#pragma once

#include <string>

// Empty when unknown.
namespace host {

std::wstring computerName();
std::wstring userName();

} // namespace host
