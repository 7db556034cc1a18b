#include "host/db/proxy_entity.h"

#include "host/db/proxy_class.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbProxyEntity, AcDbEntity, "ACAD_PROXY_ENTITY")
ACRX_DXF_DEFINE_MEMBERS(AcDbProxyObject, AcDbObject, "ACAD_PROXY_OBJECT")

namespace {

constexpr host::Subclass kEntityPart{"AcDbProxyEntity"};
constexpr host::Subclass kObjectPart{"AcDbProxyObject"};

std::optional<host::DeclaredClass> originalClass(const AcDbObject& proxy,
                                                 const host::Subclass& part)
{
    if (!proxy.drawing())
        return std::nullopt;
    const std::int64_t number = host::integerField(proxy.tags(), part, 91, 0);
    return host::declaredClass(*proxy.drawing(), static_cast<int>(number));
}

} // namespace

std::wstring AcDbProxyEntity::originalClassName() const
{
    const std::optional<host::DeclaredClass> original = originalClass(*this, kEntityPart);
    return original ? original->className : isA()->name();
}

std::wstring AcDbProxyEntity::originalDxfName() const
{
    const std::optional<host::DeclaredClass> original = originalClass(*this, kEntityPart);
    return original ? original->dxfName : isA()->dxfName();
}

std::wstring AcDbProxyEntity::applicationDescription() const
{
    const std::optional<host::DeclaredClass> original = originalClass(*this, kEntityPart);
    return original ? original->application : std::wstring();
}

std::span<const std::string_view> AcDbProxyEntity::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbProxyEntity"};
    return kMarkers;
}

std::wstring AcDbProxyObject::originalClassName() const
{
    const std::optional<host::DeclaredClass> original = originalClass(*this, kObjectPart);
    return original ? original->className : isA()->name();
}

std::wstring AcDbProxyObject::originalDxfName() const
{
    const std::optional<host::DeclaredClass> original = originalClass(*this, kObjectPart);
    return original ? original->dxfName : isA()->dxfName();
}

std::span<const std::string_view> AcDbProxyObject::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbProxyObject"};
    return kMarkers;
}
