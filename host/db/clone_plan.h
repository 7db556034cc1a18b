#pragma once

#include "host/db/database.h"
#include "host/db/drawing.h"

#include <optional>
#include <unordered_map>
#include <vector>

namespace host {

enum class CloneRole {
    known,      // stands in the drawing already
    symbol,     // a record of a symbol table
    block,      // a block record, with its BLOCK
    dictionary, // a dictionary under the root; its entries are copied only as they are needed
    entry,      // of such a dictionary
    entity,     // of a block
    child,      // of a sequence
    owned       // of another copied object, as extension dictionaries are
};

// One object of the original drawing that a cloning has to do with.
struct CloneItem {
    std::uint32_t original = 0;
    CloneRole role = CloneRole::known;
    AcDbObjectId result;     // what stands for it; of a copy null until it is made
    bool replaces = false;   // a known one takes over the original's contents
    bool primary = false;    // asked for
    std::uint32_t under = 0; // the original of what the copy hangs under
    std::wstring key = {};   // of a dictionary or an entry

    bool isCopy() const { return role != CloneRole::known; }
};

// Finds what has to be copied for some objects to come whole into another drawing, and what of it
// that drawing has. Within one drawing only what is asked for is copied, with what it owns and the
// blocks that show dimensions and tables; all else stands for itself. Items are in an order in
// which they can be made: what they hang under first, and the entities of a block in theirs.
class ClonePlan {
public:
    ClonePlan(Drawing& from, Drawing& to, AcDb::DuplicateRecordCloning duplicates)
        : from_(from), to_(to), duplicates_(duplicates)
    {
        findHolders(from.rootDictionary, 0);
    }

    // False for an object that cannot be put under that owner.
    bool addPrimary(std::uint32_t original, AcDbObjectId owner);
    // Once all of them are added.
    void followAll();

    std::vector<CloneItem>& items() { return items_; }
    // What a reference to the original becomes; null for what stays behind.
    AcDbObjectId resultOf(std::uint32_t original);
    bool isCopied(std::uint32_t original) const;
    bool isWithin() const { return &from_ == &to_; }

private:
    CloneItem* find(std::uint32_t original);
    CloneItem& add(CloneItem item);
    void addKnown(std::uint32_t original, AcDbObjectId result);
    void follow(std::size_t place);
    void followTags(std::uint32_t original, bool head, bool owned);
    void followBlock(std::uint32_t original);
    void visit(std::uint32_t target);
    void visitName(std::string_view table, std::wstring_view name);
    // What refers to copied objects in turn has to hear of the copies.
    void followReactors(std::uint32_t original);
    void visitSymbol(std::uint32_t target);
    void visitEntity(std::uint32_t target);
    void visitObject(std::uint32_t target);
    void visitOwned(std::uint32_t target, std::uint32_t owner);
    void visitLayoutBlock(std::uint32_t layout);
    void visitDictionary(std::uint32_t dictionary);
    bool isDictionary(std::uint32_t stub) const;
    // The dictionary under the root that holds the object, 0 for none. Some files lack the owners.
    std::uint32_t holderOf(std::uint32_t object);
    void findHolders(std::uint32_t dictionary, int depth);
    // The drawing's own object for one that the plan does not name; null where there is none.
    AcDbObjectId ownSymbol(std::string_view table, std::uint32_t original);
    AcDbObjectId ownEntry(std::uint32_t original);

    Drawing& from_;
    Drawing& to_;
    AcDb::DuplicateRecordCloning duplicates_;
    std::vector<CloneItem> items_;
    std::unordered_map<std::uint32_t, std::size_t> places_;
    std::unordered_map<std::uint32_t, std::uint32_t> holders_; // of all that is under the root
    std::vector<AcDbObjectId> owners_; // never replaced: what the copies are put into
};

} // namespace host
