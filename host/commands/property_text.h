#pragma once

#include "host/db/color.h"
#include "host/geom/point.h"

#include <optional>
#include <string>
#include <string_view>

namespace host {

// Properties as users type and read them.

std::wstring numberText(double value);            // all its digits
std::wstring pointText(const AcGePoint3d& point); // "1.0,2.5,0.0"
std::wstring pointText(const AcGePoint2d& point);
std::wstring angleText(double radians); // degrees
std::wstring quotedText(std::wstring_view text);

// "1" to "255", "red", or three numbers "255,128,0".
std::optional<AcCmColor> colorFromText(std::wstring_view text);
// "ByLayer", "ByBlock", "1 (red)", "30", "255,128,0".
std::wstring colorText(const AcCmColor& color);

// Millimetres as the weight nearest to them, in hundredths; "Default" is -3. Nothing below 0 or
// above 2.11.
std::optional<int> lineWeightFromText(std::wstring_view text);
// "ByLayer", "ByBlock", "Default", "0.25 mm".
std::wstring lineWeightText(int weight);

} // namespace host
