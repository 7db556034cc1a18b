#pragma once

class AcDbBlockReference;

// How many drawing units one unit of the reference's block is; 1 for a unitless block and for one
// that cannot be opened. Feet and yards are rounded to millimetres.
double UnitScaleFactor(const AcDbBlockReference& reference);
