#include "draw/object_rotation.h"

#include "host/edit/command_call.h"
#include "host/edit/selection_set.h"

void rotateByUser(AcDbObjectId entity, const AcGePoint3d& base)
{
    ads_name name{};
    if (acdbGetAdsName(name, entity) != Acad::eOk)
        return;
    acedCommand({host::textToken(L"_.rotate"), host::entityToken(name), host::textToken(L""),
                 host::pointToken(base), host::textToken(L"\\")});
}
