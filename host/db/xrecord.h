#pragma once

#include "host/db/object.h"
#include "host/db/tag_items.h"

// A chain of typed items for the use of applications. The payload begins behind the marker and,
// from R2000 on, the cloning flag (280); it may hold any code, 102 and 330 included, and ends with
// the record.
class AcDbXrecord : public AcDbObject {
    ACRX_DECLARE_MEMBERS(AcDbXrecord)
public:
    AcDbXrecord() = default;

    // Items by group code: a point comes as one item under the code of its x (10 to 17, 110 to 112,
    // 210 and so on); 1 to 9 text, 40 to 59 real, 60 to 79 short, 90 to 99 long, 160 to 169 64-bit,
    // 290 boolean as short, 300 to 309 text, 310 binary, 320 to 369 a handle as text in
    // hexadecimal. Comments are left out.
    Acad::ErrorStatus rbChain(ResbufChain& chain) const;
    // Replaces the payload; equal items keep their bytes. eInvalidInput for an item that no file
    // can hold: a code that is none, a number that is not finite, a handle that is none, more than
    // 127 bytes in a binary item.
    Acad::ErrorStatus setFromRbChain(const ResbufChain& chain);

    std::string recordName() const override { return "XRECORD"; }
    std::span<const std::string_view> markers() const override;

    // Gives the record the cloning flag, or takes it away, as its drawing's version demands.
    // Whoever adds an xrecord to a database calls it, with the version of the form that it came in:
    // a new object's is the newest.
    void joinedDatabase(host::DxfVersion before = host::DxfVersion::r2018);

private:
    std::size_t behindMarker() const;
    bool hasCloningFlag() const;
    void writeCloningFlag();
    std::size_t payload() const; // position of the payload's first tag
};

// Walks the items of an xrecord that stays open meanwhile.
class AcDbXrecordIterator {
public:
    explicit AcDbXrecordIterator(const AcDbXrecord* record);
    void start() { at_ = 0; }
    bool done() const { return at_ >= chain_.size(); }
    bool next() { return ++at_ < chain_.size(); }
    int curRestype() const { return chain_[at_].restype; }
    Acad::ErrorStatus getCurResbuf(resbuf& item) const;

private:
    ResbufChain chain_;
    std::size_t at_ = 0;
};
