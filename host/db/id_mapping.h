#pragma once

#include "host/db/object_id.h"

#include <unordered_map>
#include <vector>

// What became of one object of a cloning: the original, and what stands for it in the drawing.
class AcDbIdPair {
public:
    AcDbIdPair() = default;
    AcDbIdPair(AcDbObjectId key, AcDbObjectId value, bool isCloned, bool isPrimary)
        : key_(key), value_(value), cloned_(isCloned), primary_(isPrimary)
    {
    }

    AcDbObjectId key() const { return key_; }
    AcDbObjectId value() const { return value_; } // null where nothing stands for it
    bool isCloned() const { return cloned_; }     // false: an object that was there already
    bool isPrimary() const { return primary_; }   // asked for, not only needed by another
    void setKey(AcDbObjectId key) { key_ = key; }
    void setValue(AcDbObjectId value) { value_ = value; }

private:
    AcDbObjectId key_;
    AcDbObjectId value_;
    bool cloned_ = false;
    bool primary_ = false;
};

// Originals and what they became, in the order in which they were met; one pair for each original.
class AcDbIdMapping {
public:
    void assign(const AcDbIdPair& pair); // replaces the pair of the same key
    // Looks the pair's key up and fills in the rest; false, and the pair as it was, for a key that
    // was not met.
    bool compute(AcDbIdPair& pair) const;
    AcDbObjectId valueOf(AcDbObjectId key) const; // null id for a key that was not met

    const std::vector<AcDbIdPair>& pairs() const { return pairs_; }

private:
    std::vector<AcDbIdPair> pairs_;
    std::unordered_map<AcDbObjectId, std::size_t> places_;
};

class AcDbIdMappingIter {
public:
    explicit AcDbIdMappingIter(const AcDbIdMapping& mapping) : mapping_(mapping) {}
    void start() { at_ = 0; }
    bool done() const { return at_ >= mapping_.pairs().size(); }
    bool next() { return ++at_ < mapping_.pairs().size(); }
    bool getMap(AcDbIdPair& pair) const
    {
        if (done())
            return false;
        pair = mapping_.pairs()[at_];
        return true;
    }

private:
    const AcDbIdMapping& mapping_;
    std::size_t at_ = 0;
};
