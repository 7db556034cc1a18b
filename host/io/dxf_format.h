#pragma once

#include "host/io/definition_files.h"

namespace host {

// Drawings in DXF files, text and binary, R10 to R2018.
class DxfFormat : public DrawingFormat {
public:
    FileOutcome read(const std::filesystem::path& path, Drawing& drawing) override;
    void makeNew(Drawing& drawing) override;
    FileOutcome save(Drawing& drawing, const std::filesystem::path& path) override;
    FileOutcome write(Drawing& drawing, std::string& bytes) override;
    std::shared_ptr<TagSource> scratchSource() override;
    bool isEntityOfR12(std::string_view type) const override;
    TagList raisedRecord(Drawing& drawing, std::uint32_t stub) override;
    DefinitionFiles& definitions() override { return definitions_; }

private:
    DefinitionFileReader definitions_;
};

std::unique_ptr<DrawingFormat> makeDxfFormat();

} // namespace host
