#pragma once

#include "host/db/entity.h"

#include <memory>
#include <string>
#include <vector>

// What hangs in an entity's extension dictionary, copied, for the entity that takes its place:
// records and whatever else is there, dictionaries with all below them.
class KeptEntries {
public:
    explicit KeptEntries(const AcDbEntity& from);

    // Puts the copies into the extension dictionary of an entity that is open for write; made there
    // if there are any. They are gone afterwards.
    void handOver(AcDbEntity& to);

private:
    struct Entry {
        std::wstring name;
        std::unique_ptr<AcDbObject> copy;
        std::vector<Entry> below;
    };
    static std::vector<Entry> copyOf(AcDbObjectId dictionary);
    static void put(std::vector<Entry>& entries, AcDbObjectId dictionary);

    std::vector<Entry> entries_;
};

// The common properties of an entity that another one takes over.
struct CommonLook {
    explicit CommonLook(const AcDbEntity& from);
    void giveTo(AcDbEntity& to) const;

    AcCmColor color;
    AcDbObjectId layer;
    AcDbObjectId linetype;
    double linetypeScale;
    int lineWeight;
};
