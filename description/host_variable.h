#pragma once

#include <array>
#include <cstdint>
#include <string>

enum class HostVariableType : std::int32_t {
    unknown = 0,
    longInteger = 1,
    point2d = 2,
    point3d = 3,
    real = 4,
    shortInteger = 5,
    text = 6,
};

// A setting of a system variable. Only the member that the type names is meaningful.
struct HostVariable {
    std::wstring name; // as written
    HostVariableType type = HostVariableType::unknown;
    std::int32_t integer = 0;      // long and short
    std::array<double, 3> reals{}; // a real in the first, points in two or three
    std::wstring text;
};

// Takes type and value from the host; false when it does not know the name. Of a point only the
// type is taken: the entry keeps its coordinates. A type that is none of the six leaves the entry
// as it stands.
bool ReadHostVariable(HostVariable& variable);

// False when the host refuses. A long goes out as a short, of which the host sees the low 16 bits.
bool WriteHostVariable(const HostVariable& variable);
