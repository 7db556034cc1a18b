#include "session/document_data.h"

AcApDataManager::AcApDataManager()
{
    acDocManagerPtr()->addReactor(this);
}

AcApDataManager::~AcApDataManager()
{
    acDocManagerPtr()->removeReactor(this);
}
