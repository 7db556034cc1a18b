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
inline const EntityBody kSpacePath{"POLYLINE", "AcDb3dPolyline",
                                   "66\n1\n" + kOrigin +
                                       "70\n8\n0\nSEQEND\n5\nF30\n100\nAcDbEntity\n8\n0\n"};
// control points on a straight line, degree 1
inline const EntityBody kOpenSpline{
    "SPLINE", "AcDbSpline",
    "70\n8\n71\n1\n72\n5\n73\n3\n74\n0\n40\n0.0\n40\n0.0\n40\n1.0\n40\n2.0\n40\n"
    "2.0\n10\n0.0\n20\n0.0\n30\n0.0\n10\n4.0\n20\n0.0\n30\n0.0\n10\n4.0\n20\n"
    "3.0\n30\n0.0\n"};
inline const EntityBody kAligned{
    "DIMENSION", "AcDbDimension",
    kOrigin + "70\n1\n3\nSurvey\n100\nAcDbAlignedDimension\n13\n0.0\n23\n0.0\n33"
              "\n0.0\n14\n1.0\n24\n0.0\n34\n0.0\n"};
// closed, justified to the bottom, of scale 20
inline const EntityBody kClosedMline{
    "MLINE", "AcDbMline",
    "2\nSTANDARD\n340\nF18\n40\n20.0\n70\n2\n71\n3\n72\n2\n73\n2\n" + kOrigin +
        "210\n0.0\n220\n0.0\n230\n1.0\n11\n0.0\n21\n0.0\n31\n0.0\n12\n1.0\n22\n0.0\n"
        "32\n0.0\n13\n0.0\n23\n1.0\n33\n0.0\n74\n0\n75\n0\n74\n0\n75\n0\n11\n8.0\n21"
        "\n0.0\n31\n0.0\n12\n1.0\n22\n0.0\n32\n0.0\n13\n0.0\n23\n1.0\n33\n0.0\n74\n0"
        "\n75\n0\n74\n0\n75\n0\n"};
inline const EntityBody kCallout{"MULTILEADER", "AcDbMLeader",
                                 "300\nCONTEXT_DATA{\n40\n1.0\n301\n}\n340\nF28\n90\n0\n"};
