#pragma once

class AcDbDatabase;

// Keeps the tabs of a drawing's layouts in order.
class AcDbLayoutManager {
public:
    // Numbers the tabs without gaps and doubles: model space 0, then the layouts in their order,
    // one that has the number of another behind it. The working database's for null.
    void updateLayoutTabs(AcDbDatabase* database = nullptr);
};
