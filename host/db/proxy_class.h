#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace host {

class Drawing;

// A class that a drawing declares in its CLASSES section: what objects of unknown programs are.
struct DeclaredClass {
    std::wstring dxfName;     // "ACDBDETAILVIEWSTYLE"
    std::wstring className;   // "AcDbDetailViewStyle"
    std::wstring application; // with what the application tells of itself behind its name
};

// The class that proxies name by number: 500 for the first of the section, in file order.
std::optional<DeclaredClass> declaredClass(Drawing& drawing, int number);

// The class of a record type; the first of that name.
std::optional<DeclaredClass> declaredClass(Drawing& drawing, std::string_view dxfName);

} // namespace host
