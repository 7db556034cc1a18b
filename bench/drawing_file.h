#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

// Text that grows by formatted pieces of less than 512 bytes.
class FormattedText {
public:
    [[gnu::format(printf, 2, 3)]] void add(const char* format, ...);

    std::string bytes;
};

// One record of the table "parcel", which has these fields.
struct ParcelRecord {
    std::string object;
    std::size_t number = 0;
    double area = 0.0;
};

// A generated drawing on its way to a file: 20 layers "layer0" to "layer19", the block "mark" and
// the table "parcel" stand in it; entities go into model space one after the other. Needs a
// session; throws std::runtime_error when the file cannot be written.
class DrawingFile {
public:
    static constexpr std::size_t kLayers = 20;

    explicit DrawingFile(const std::filesystem::path& path);

    // The tags that every entity begins with; those of its class follow. Answers its handle.
    unsigned long long begin(const char* type, std::size_t layer,
                             const std::optional<ParcelRecord>& record);
    FormattedText& entities() { return entities_; }
    unsigned long long takeHandle() { return next_++; }

    // What remains; nothing may be added after it.
    void finish();

private:
    void addRecord(unsigned long long entity, const ParcelRecord& record);

    std::filesystem::path path_;
    std::ofstream out_;
    std::string frame_;          // the drawing without entities
    std::size_t objectsAt_ = 0;  // where in the frame the objects go
    std::size_t entitiesAt_ = 0; // and the entities, before them
    unsigned long long owner_ = 0;
    unsigned long long next_ = 0x10000; // above the handles of a new drawing
    FormattedText entities_;            // those that are not in the file yet
    FormattedText objects_;             // what hangs on the entities
};
