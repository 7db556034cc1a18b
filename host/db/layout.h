#pragma once

#include "host/db/object.h"

#include <string>

// How a layout or a page setup is plotted.
class AcDbPlotSettings : public AcDbObject {
    ACRX_DECLARE_MEMBERS(AcDbPlotSettings)
public:
    AcDbPlotSettings() = default;

    std::wstring getPlotSettingsName() const;
    std::wstring getPlotCfgName() const; // the device
    bool modelType() const;              // of model space

    std::span<const std::string_view> markers() const override;
};

// A tab: a name for a space, and how it is plotted.
class AcDbLayout : public AcDbPlotSettings {
    ACRX_DECLARE_MEMBERS(AcDbLayout)
public:
    AcDbLayout() = default;

    std::wstring getLayoutName() const;
    AcDbObjectId getBlockTableRecordId() const; // null id where the file names no block of its own
    int getTabOrder() const;                    // 0 for model space
    Acad::ErrorStatus setTabOrder(int order);
    // Drawings open in model space, so its tab is the selected one.
    bool getTabSelected() const;

    std::span<const std::string_view> markers() const override;
};
