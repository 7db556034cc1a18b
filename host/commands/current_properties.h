#pragma once

class AcDbEntity;

namespace host {

// Gives a new entity the layer, colour, linetype, linetype scale and line weight that are current.
void applyCurrentProperties(AcDbEntity& entity);

} // namespace host
