#include "host/db/layout.h"

#include "host/db/drawing.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbPlotSettings, AcDbObject, "PLOTSETTINGS")
ACRX_DXF_DEFINE_MEMBERS(AcDbLayout, AcDbPlotSettings, "LAYOUT")

namespace {

constexpr host::Subclass kSettings{"AcDbPlotSettings"};
constexpr host::Subclass kLayout{"AcDbLayout"};
constexpr int kModelTypeBit = 1024;

} // namespace

std::span<const std::string_view> AcDbPlotSettings::markers() const
{
    static constexpr std::string_view own[] = {kSettings.marker};
    return own;
}

std::span<const std::string_view> AcDbLayout::markers() const
{
    static constexpr std::string_view own[] = {kSettings.marker, kLayout.marker};
    return own;
}

std::wstring AcDbPlotSettings::getPlotSettingsName() const
{
    return text(kSettings, 1);
}

std::wstring AcDbPlotSettings::getPlotCfgName() const
{
    return text(kSettings, 2);
}

bool AcDbPlotSettings::modelType() const
{
    return flag(kSettings, 70, kModelTypeBit);
}

std::wstring AcDbLayout::getLayoutName() const
{
    return text(kLayout, 1);
}

AcDbObjectId AcDbLayout::getBlockTableRecordId() const
{
    const AcDbObjectId block = id(kLayout, 330);
    if (block.isNull() || block.isErased() || !drawing()->blocks.contains(block.stubNumber()))
        return {};
    return block;
}

int AcDbLayout::getTabOrder() const
{
    return integer(kLayout, 71, 0);
}

Acad::ErrorStatus AcDbLayout::setTabOrder(int order)
{
    return setInteger(kLayout, 71, order, 0);
}

bool AcDbLayout::getTabSelected() const
{
    const AcDbObjectId block = getBlockTableRecordId();
    return !block.isNull() && block.stubNumber() == drawing()->modelSpace;
}
