#include "description/host_variable.h"

#include "host/edit/system_variables.h"

namespace {

struct TypeRow {
    HostVariableType type;
    int read;    // the host's type code when it answers
    int written; // the one it is given
};

constexpr TypeRow kTypes[] = {
    {HostVariableType::longInteger, RTLONG, RTSHORT},
    {HostVariableType::point2d, RTPOINT, RTPOINT},
    {HostVariableType::point3d, RT3DPOINT, RT3DPOINT},
    {HostVariableType::real, RTREAL, RTREAL},
    {HostVariableType::shortInteger, RTSHORT, RTSHORT},
    {HostVariableType::text, RTSTR, RTSTR},
};

} // namespace

bool ReadHostVariable(HostVariable& variable)
{
    resbuf result;
    if (acedGetVar(variable.name.c_str(), result) != RTNORM)
        return false;
    for (const TypeRow& row : kTypes) {
        if (row.read == result.restype)
            variable.type = row.type;
    }
    switch (result.restype) {
    case RTLONG:
        variable.integer = result.resval.rlong;
        break;
    case RTSHORT:
        variable.integer = result.resval.rint;
        break;
    case RTREAL:
        variable.reals[0] = result.resval.rreal;
        break;
    case RTSTR:
        variable.text = result.resval.rstring;
        break;
    default:
        break;
    }
    return true;
}

bool WriteHostVariable(const HostVariable& variable)
{
    resbuf value;
    for (const TypeRow& row : kTypes) {
        if (row.type == variable.type)
            value.restype = static_cast<short>(row.written);
    }
    value.resval.rlong = variable.integer;
    value.resval.rint = static_cast<std::int16_t>(variable.integer);
    value.resval.rreal = variable.reals[0];
    value.resval.rpoint = variable.reals;
    value.resval.rstring = variable.text;
    return acedSetVar(variable.name.c_str(), value) == RTNORM;
}
