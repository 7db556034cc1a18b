#pragma once

class AcDbEntity;

namespace host {

// Gives an entity of a drawing, open for write, what the drawing's header has for new ones: layer,
// colour, linetype, linetype scale and line weight; texts also their style and, where they have no
// height yet, their height. A name that the drawing lacks leaves the property as it is.
void setDatabaseDefaults(AcDbEntity& entity);

} // namespace host
