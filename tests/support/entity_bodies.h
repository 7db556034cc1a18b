#pragma once

#include "tests/support/dxf_drawing.h"

#include <string>

// Entities as tables of cases name them: what is behind the common fields, those that differ from
// the defaults, and the layer.
struct EntityBody {
    const char* type;
    const char* marker;
    std::string fields;
    const char* common = "";
    const char* layer = "0";

    // The handle.
    std::string addTo(DxfDrawing& drawing) const
    {
        return drawing.entity(type, marker, fields, layer, common);
    }
};

inline const std::string kOrigin = "10\n0.0\n20\n0.0\n30\n0.0\n";

inline const EntityBody kCircle{"CIRCLE", "AcDbCircle", kOrigin + "40\n5.0\n"};
// closed, of width 0.5, at elevation 3
inline const EntityBody kPath{
    "LWPOLYLINE", "AcDbPolyline",
    "90\n2\n70\n1\n43\n0.5\n38\n3.0\n10\n0.0\n20\n0.0\n10\n1.0\n20\n0.0\n"};
inline const EntityBody kTapered{
    "LWPOLYLINE", "AcDbPolyline",
    "90\n2\n70\n0\n10\n0.0\n20\n0.0\n40\n0.5\n41\n1.5\n10\n1.0\n20\n0.0\n"};
inline const EntityBody kHatch{
    "HATCH", "AcDbHatch",
    kOrigin + "210\n0.0\n220\n0.0\n230\n1.0\n2\nANSI31\n70\n0\n71\n0\n91\n0\n75\n0\n"
              "76\n1\n52\n45.0\n41\n2.0\n77\n0\n78\n0\n98\n0\n"};
inline const EntityBody kMPolygon{
    "MPOLYGON", "AcDbMPolygon",
    "70\n1\n" + kOrigin +
        "210\n0.0\n220\n0.0\n230\n1.0\n2\nANSI31\n71\n0\n91\n0\n76\n1\n"
        "52\n30.0\n41\n4.0\n77\n0\n78\n0\n63\n5\n11\n0.0\n21\n0.0\n99\n0\n"};
