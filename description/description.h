#pragma once

#include "description/class_def.h"
#include "description/object_def.h"
#include "description/resource_def.h"
#include "description/table_use.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

// What a description file becomes: plain data, copied deeply. Keys of maps are lower-cased names.
struct Description {
    ObjectDef current; // the object being drawn, with the user's answers; the stored one stays
    std::map<std::wstring, ObjectDef> objects;
    std::map<std::wstring, TableUse> tables;
    ClassDef rootClass;                  // nameless, holds the top level of the file
    std::wstring filePath;               // as given; empty after a load that failed
    std::vector<HostVariable> variables; // set at the end of loading
    ResourceIndex blockIndex;
    std::map<std::wstring, BlockFileDef> blockFiles;
    ResourceIndex dimensionStyleIndex;
    ResourceIndex layerIndex;
    ResourceIndex linetypeIndex;
    ResourceIndex mleaderStyleIndex;
    ResourceIndex mlineStyleIndex;
    ResourceIndex patternIndex;
    ResourceIndex textStyleIndex;
    std::vector<std::wstring> resourceFiles; // lower-cased, in the order of visiting

    // By name without regard to case; null if there is none.
    const ObjectDef* findObject(std::wstring_view name) const;
    const GraphicProps* findProps(std::wstring_view name) const;
};
