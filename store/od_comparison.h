#pragma once

#include "store/od_value.h"

// Exact and with case. The left operand decides how the right one is read; a value of type none
// equals everything. A text that reads 0,0,0 equals every point on its right, no other text does; a
// point equals no text.
bool valuesEqual(const OdValue& left, const OdValue& right);

// Closer than one unit of the last digit that the working drawing displays (LUPREC): less than
// 0.0001 apart at LUPREC 4.
bool nearlyEqual(double a, double b);
bool nearlyEqualPoints(const AcGePoint3d& a, const AcGePoint3d& b);
