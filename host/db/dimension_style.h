#pragma once

#include "host/db/object_id.h"
#include "host/runtime/resbuf.h"

#include <string>
#include <string_view>

class AcDbDatabase;
class AcDbDimension;

namespace host {

// What dimension variables say, by their names without "DIM". Lengths are in drawing units before
// the overall scale; a switch is 0 or 1. A style's record leaves out what has the value it has
// here.
struct DimensionStyle {
    double scale = 1.0;
    double asz = 0.18;
    double exo = 0.0625;
    double exe = 0.18;
    double rnd = 0.0;
    double dle = 0.0;
    double fxl = 1.0;
    double jogang = 0.7853981633974483; // radians
    double txt = 0.18;
    double cen = 0.09;
    double tsz = 0.0;
    double lfac = 1.0;
    double gap = 0.09;
    double tih = 1;
    double toh = 1;
    double se1 = 0;
    double se2 = 0;
    double tad = 0;
    double zin = 0;
    double azin = 0;
    double arcsym = 0;
    double tofl = 0;
    double sah = 0;
    double tix = 0;
    double clrd = 0;
    double clre = 0;
    double clrt = 0;
    double adec = 0;
    double dec = 4;
    double aunit = 0;
    double frac = 0;
    double lunit = 2;
    double dsep = 46; // code of the decimal separator
    double just = 0;
    double sd1 = 0;
    double sd2 = 0;
    double atfit = 3;
    double fxlon = 0;
    double lwd = -2;
    double lwe = -2;
    std::wstring post;
    std::wstring blk; // blocks by name; empty for the filled arrowhead
    std::wstring blk1;
    std::wstring blk2;
    std::wstring txsty = L"Standard";

    double scaled(double length) const { return length * (scale > 0.0 ? scale : 1.0); }
};

// The values of a style by its record; the platform's own for a null id.
DimensionStyle dimensionStyleOf(AcDbObjectId record);
// Those of a dimension's style, and over them what it states of its own.
DimensionStyle dimensionStyleOf(const AcDbDimension& dimension);
// Those of the style by its name, and over them the variables of the drawing's header: what a new
// dimension has.
DimensionStyle currentDimensionStyle(AcDbDatabase& database, std::wstring_view name);

// Makes the blocks of the arrowheads where the drawing lacks them, and names them as they are named
// there.
void ensureArrowBlocks(AcDbDatabase& database, DimensionStyle& style);

// States on the dimension, in its extended data, where these values are others than its style's.
void writeOverrides(AcDbDimension& dimension, const DimensionStyle& wanted);

// Gives the dimension variables that the drawing's header holds the style's values.
void restoreDimensionStyle(AcDbDatabase& database, std::wstring_view name);

} // namespace host
