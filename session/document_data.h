#pragma once

#include "host/edit/document.h"

#include <map>

// What is kept for one document: nothing. Whatever hangs on the drawing is looked up at each use.
struct CDocData {};

// Follows the documents and forgets those that close.
class AcApDataManager : public AcApDocManagerReactor {
public:
    AcApDataManager();
    ~AcApDataManager() override;
    AcApDataManager(const AcApDataManager&) = delete;
    AcApDataManager& operator=(const AcApDataManager&) = delete;

    CDocData& of(AcApDocument* document) { return documents_[document]; }
    bool knows(AcApDocument* document) const { return documents_.contains(document); }

    void documentToBeDestroyed(AcApDocument* document) override { documents_.erase(document); }

private:
    std::map<AcApDocument*, CDocData> documents_;
};
