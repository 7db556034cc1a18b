#pragma once

#include "host/db/entity.h"
#include "host/db/filers.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace util {

// Takes an entity's DXF output and keeps its type name and its subclass markers.
class MyDxfFiler : public AcDbDxfFiler {
public:
    Acad::ErrorStatus writeString(int code, std::wstring_view text) override;

    // The last marker, if there is one and it is not "AcDbEntity"; else the type name.
    std::wstring classMarker() const;

private:
    std::wstring dxfName_;
    std::vector<std::wstring> markers_;
};

} // namespace util

// The word by which a description names the entity's class: "Line", "BlockReference". A proxy
// answers with the class that it stands for, a class without a word with its DXF class marker.
std::wstring entityTypeName(const AcDbEntity& entity);
