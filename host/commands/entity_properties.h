#pragma once

#include <string>
#include <utility>
#include <vector>

class AcDbEntity;

namespace host {

// Names of properties with their values, in the order of telling.
using PropertyList = std::vector<std::pair<std::wstring, std::wstring>>;

// What all entities have: colour, linetype, its scale, line weight, and where it lies if that is
// not model space. Then what its class has; points are in the world.
PropertyList propertiesOf(const AcDbEntity& entity);

} // namespace host
