#include "host/db/layout_manager.h"

#include "host/db/database.h"
#include "host/db/dictionary.h"
#include "host/db/layout.h"

#include <algorithm>

void AcDbLayoutManager::updateLayoutTabs(AcDbDatabase* database)
{
    AcDbDatabase* const drawn =
        database ? database : acdbHostApplicationServices()->workingDatabase();
    if (!drawn)
        return;
    AcDbObjectPointer<AcDbDictionary> dictionary(drawn->layoutDictionaryId(), AcDb::kForRead);
    if (dictionary.openStatus() != Acad::eOk)
        return;
    struct Tab {
        int order;
        AcDbObjectId layout;
    };
    std::vector<Tab> tabs;
    for (auto entries = dictionary->newIterator(); !entries->done(); entries->next()) {
        AcDbObjectPointer<AcDbLayout> layout(entries->objectId(), AcDb::kForRead);
        if (layout.openStatus() != Acad::eOk)
            continue;
        const bool model =
            layout->getBlockTableRecordId() == drawn->modelSpaceId() || layout->modelType();
        tabs.push_back({model ? -1 : std::max(layout->getTabOrder(), 0), layout->objectId()});
    }
    std::stable_sort(tabs.begin(), tabs.end(),
                     [](const Tab& a, const Tab& b) { return a.order < b.order; });
    int next = !tabs.empty() && tabs.front().order < 0 ? 0 : 1;
    for (const Tab& tab : tabs) {
        AcDbObjectPointer<AcDbLayout> layout(tab.layout, AcDb::kForWrite);
        if (layout.openStatus() == Acad::eOk)
            layout->setTabOrder(next);
        ++next;
    }
}
