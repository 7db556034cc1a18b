#include "session/document_data.h"

AcApDataManager::AcApDataManager()
{
    if (AcApDocManager* const documents = acDocManagerPtr())
        documents->addReactor(this);
}

AcApDataManager::~AcApDataManager()
{
    if (AcApDocManager* const documents = acDocManagerPtr())
        documents->removeReactor(this);
}
