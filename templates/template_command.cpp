#include "templates/template_command.h"

#include "frame/command_frame.h"
#include "frame/entity_gathering.h"
#include "host/db/database.h"
#include "host/edit/document.h"
#include "host/edit/prompts.h"
#include "host/ui/file_dialog.h"
#include "host/ui/message_box.h"
#include "session/session.h"
#include "templates/object_from_entity.h"
#include "templates/object_name.h"
#include "templates/same_object.h"
#include "templates/template_text.h"
#include "text/messages.h"
#include "text/text_file.h"

namespace {

constexpr unsigned kFlags = OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST | OFN_CREATEPROMPT;

// Kept from run to run, whichever drawing is current.
struct NameFormat {
    std::wstring text = L"%t_%i_%L";
};

// False if the command ends: cancelled, or a format that is refused.
bool askFormat(NameFormat& format)
{
    std::wstring answer;
    if (acedGetString(1, filledIn(Message::formatPrompt, format.text).c_str(), answer) != RTNORM)
        return false;
    if (answer.empty())
        return true;
    if (!isObjectNameFormat(answer)) {
        tell(Message::invalidFormat);
        return false;
    }
    format.text = std::move(answer);
    return true;
}

// Anonymous blocks are the host's own, and a reference whose block is lost shows nothing.
bool isWorthAnObject(const GraphicProps& props)
{
    if (props.types.empty() || props.types.front().empty())
        return false;
    const std::wstring& block = props.blockName.value;
    return props.types.front() != L"BlockReference" || !(block.empty() || block.starts_with(L'*'));
}

UniqueObjects objectsOf(const EntityList& entities)
{
    UniqueObjects objects;
    for (const AcDbObjectId id : entities) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        if (!entity)
            continue;
        GraphicProps props;
        ObjectFromEntity(props, *entity);
        if (isWorthAnObject(props))
            objects.add(std::move(props));
    }
    return objects;
}

std::wstring documentName()
{
    const AcApDocument* const document = acDocManagerPtr()->curDocument();
    return document ? document->fileName() : std::wstring();
}

} // namespace

void generateTemplate()
{
    const ResourceScope resources;
    EntityList entities;
    pickFirstEntities(entities);
    if (fillIfEmpty(entities, Fallback::askScan) != Gathering::found)
        return;
    filterEntities(entities);
    if (entities.empty())
        return;

    NameFormat& format = session().kept<NameFormat>();
    if (!askFormat(format))
        return;
    CAcUiFileDialog dialog(false, L"txt", {}, kFlags, textOf(Message::descriptionFilter), nullptr);
    if (dialog.DoModal() != IDOK)
        return;

    const UniqueObjects found = objectsOf(entities);
    std::wstring text =
        resourcesText(documentName()) + variablesText() + classesText(found.objects(), format.text);
    if (AcDbDatabase* const database = session().store.currentDatabase())
        text += tablesText(*database);

    if (!writeTextFile(dialog.GetPathName(), text)) {
        // the box shows the pattern as it stands; which file it is, the dialog has just said
        MessageBoxW(nullptr, textOf(Message::fileNotOpened), textOf(Message::errorTitle),
                    MB_OK | MB_ICONERROR);
        return;
    }
    tell(Message::completedOf, found.objects().size(), entities.size());
}
