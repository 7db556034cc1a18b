#include "host/io/class_records.h"

namespace host {

namespace {

// As files of R2000 to R2018 have them.
constexpr ClassRecord kRecords[] = {
    {"ACAD_EVALUATION_GRAPH", "AcDbEvalGraph", "ObjectDBX Classes", 1153, false},
    {"ACAD_TABLE", "AcDbTable", "ObjectDBX Classes", 1025, true},
    {"ACDBDICTIONARYWDFLT", "AcDbDictionaryWithDefault", "ObjectDBX Classes", 0, false},
    {"ARC_DIMENSION", "AcDbArcDimension", "ObjectDBX Classes", 1025, true},
    {"CELLSTYLEMAP", "AcDbCellStyleMap", "ObjectDBX Classes", 1152, false},
    {"DICTIONARYVAR", "AcDbDictionaryVar", "ObjectDBX Classes", 0, false},
    {"EXTRUDEDSURFACE", "AcDbExtrudedSurface", "ObjectDBX Classes", 0, true},
    {"FIELD", "AcDbField", "ObjectDBX Classes", 1152, false},
    {"FIELDLIST", "AcDbFieldList", "ObjectDBX Classes", 1152, false},
    {"GEODATA", "AcDbGeoData", "ObjectDBX Classes", 4095, false},
    {"HELIX", "AcDbHelix", "ObjectDBX Classes", 4095, true},
    {"IMAGE", "AcDbRasterImage", "ISM", 2175, true},
    {"IMAGEDEF", "AcDbRasterImageDef", "ISM", 0, false},
    {"IMAGEDEF_REACTOR", "AcDbRasterImageDefReactor", "ISM", 1, false},
    {"LARGE_RADIAL_DIMENSION", "AcDbRadialDimensionLarge", "ObjectDBX Classes", 1025, true},
    {"LIGHT", "AcDbLight", "SCENEOE", 1025, true},
    {"LOFTEDSURFACE", "AcDbLoftedSurface", "ObjectDBX Classes", 0, true},
    {"MATERIAL", "AcDbMaterial", "ObjectDBX Classes", 1153, false},
    {"MESH", "AcDbSubDMesh", "ObjectDBX Classes", 0, true},
    {"MLEADERSTYLE", "AcDbMLeaderStyle", "ACDB_MLEADERSTYLE_CLASS", 4095, false},
    {"MULTILEADER", "AcDbMLeader", "ACDB_MLEADER_CLASS", 1025, true},
    {"PDFDEFINITION", "AcDbPdfDefinition", "ObjectDBX Classes", 1153, false},
    {"PDFUNDERLAY", "AcDbPdfReference", "ObjectDBX Classes", 4095, true},
    {"PLANESURFACE", "AcDbPlaneSurface", "ObjectDBX Classes", 4095, true},
    {"PLOTSETTINGS", "AcDbPlotSettings", "ObjectDBX Classes", 0, false},
    {"RASTERVARIABLES", "AcDbRasterVariables", "ISM", 0, false},
    {"REVOLVEDSURFACE", "AcDbRevolvedSurface", "ObjectDBX Classes", 0, true},
    {"SCALE", "AcDbScale", "ObjectDBX Classes", 1153, false},
    {"SORTENTSTABLE", "AcDbSortentsTable", "ObjectDBX Classes", 0, false},
    {"SPATIAL_FILTER", "AcDbSpatialFilter", "ObjectDBX Classes", 0, false},
    {"SUN", "AcDbSun", "SCENEOE", 1153, false},
    {"SURFACE", "AcDbSurface", "ObjectDBX Classes", 4095, true},
    {"SWEPTSURFACE", "AcDbSweptSurface", "ObjectDBX Classes", 0, true},
    {"TABLECONTENT", "AcDbTableContent", "ObjectDBX Classes", 1152, false},
    {"TABLEGEOMETRY", "AcDbTableGeometry", "ObjectDBX Classes", 1152, false},
    {"TABLESTYLE", "AcDbTableStyle", "ObjectDBX Classes", 4095, false},
    {"VISUALSTYLE", "AcDbVisualStyle", "ObjectDBX Classes", 4095, false},
    {"WIPEOUT", "AcDbWipeout", "WipeOut", 2175, true},
    {"WIPEOUTVARIABLES", "AcDbWipeoutVariables", "WipeOut", 0, false},
};

} // namespace

const ClassRecord* classRecordOf(std::string_view type)
{
    for (const ClassRecord& record : kRecords)
        if (record.type == type)
            return &record;
    return nullptr;
}

} // namespace host
