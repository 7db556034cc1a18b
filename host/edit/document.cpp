#include "host/edit/document.h"

#include "host/edit/command_engine.h"
#include "host/edit/typed_input.h"
#include "host/files/paths.h"

#include <algorithm>

AcApDocument::AcApDocument(std::unique_ptr<AcDbDatabase> database, std::wstring newName)
    : database_(std::move(database)), newName_(std::move(newName))
{
}

AcApDocument::~AcApDocument() = default;

std::wstring AcApDocument::fileName() const
{
    std::wstring name = database_->getFilename();
    return name.empty() ? newName_ : name;
}

bool AcApDocument::isNamedDrawing() const
{
    return !database_->getFilename().empty();
}

AcAp::DocLockMode AcApDocument::lockMode() const
{
    return locks_.empty() ? AcAp::kNone : locks_.back();
}

AcApDocManager::AcApDocManager() = default;
AcApDocManager::~AcApDocManager() = default;

AcApDocManager* acDocManagerPtr()
{
    static AcApDocManager documents;
    return &documents;
}

AcApDocument* curDoc()
{
    return acDocManagerPtr()->curDocument();
}

// Walks a copy of the list: reactors add and remove themselves inside a call.
template <class Call> void AcApDocManager::tell(Call call)
{
    const std::vector<AcApDocManagerReactor*> now = reactors_;
    for (AcApDocManagerReactor* reactor : now)
        if (std::find(reactors_.begin(), reactors_.end(), reactor) != reactors_.end())
            call(*reactor);
}

AcApDocument* AcApDocManager::document(const AcDbDatabase* database) const
{
    for (const auto& document : documents_)
        if (document->database() == database)
            return document.get();
    return nullptr;
}

std::vector<AcApDocument*> AcApDocManager::documents() const
{
    std::vector<AcApDocument*> all;
    for (const auto& document : documents_)
        all.push_back(document.get());
    return all;
}

Acad::ErrorStatus AcApDocManager::lockDocument(AcApDocument* document, AcAp::DocLockMode mode,
                                               const wchar_t*, const wchar_t*, bool)
{
    if (!document)
        return Acad::eInvalidInput;
    document->locks_.push_back(mode);
    return Acad::eOk;
}

Acad::ErrorStatus AcApDocManager::unlockDocument(AcApDocument* document)
{
    if (!document || document->locks_.empty())
        return Acad::eInvalidInput;
    document->locks_.pop_back();
    return Acad::eOk;
}

Acad::ErrorStatus AcApDocManager::sendStringToExecute(AcApDocument* document, const wchar_t* text,
                                                      bool activate, bool, bool echo)
{
    if (!document || !text)
        return Acad::eInvalidInput;
    if (activate && document != current_ &&
        !(host::engineExists() && host::engine().insideCommand()))
        setCurDocument(document);
    host::QueuedText queued;
    queued.text = host::withPlainLineEnds(text);
    queued.echo = echo;
    const bool waits = host::engineExists() && host::engine().insideCommand();
    (waits ? document->waiting : document->queue).push_back(std::move(queued));
    return Acad::eOk;
}

void AcApDocManager::popResourceHandle()
{
    if (!resources_.empty())
        resources_.pop_back();
}

void AcApDocManager::addReactor(AcApDocManagerReactor* reactor)
{
    if (reactor && std::find(reactors_.begin(), reactors_.end(), reactor) == reactors_.end())
        reactors_.push_back(reactor);
}

void AcApDocManager::removeReactor(AcApDocManagerReactor* reactor)
{
    std::erase(reactors_, reactor);
}

AcApDocument* AcApDocManager::newDocument()
{
    documents_.push_back(
        std::make_unique<AcApDocument>(std::make_unique<AcDbDatabase>(true),
                                       L"Drawing" + std::to_wstring(++newDrawings_) + L".dxf"));
    AcApDocument* const document = documents_.back().get();
    tell([&](AcApDocManagerReactor& reactor) { reactor.documentCreateStarted(document); });
    makeCurrent(document);
    tell([&](AcApDocManagerReactor& reactor) { reactor.documentCreated(document); });
    return document;
}

AcApDocument* AcApDocManager::openDocument(const std::filesystem::path& path, bool readOnly,
                                           std::wstring& message)
{
    auto database = std::make_unique<AcDbDatabase>(false);
    if (database->readDwgFile(path, &message) != Acad::eOk)
        return nullptr;
    documents_.push_back(std::make_unique<AcApDocument>(std::move(database), std::wstring()));
    AcApDocument* const document = documents_.back().get();
    document->setReadOnly(readOnly);
    tell([&](AcApDocManagerReactor& reactor) { reactor.documentCreateStarted(document); });
    makeCurrent(document);
    tell([&](AcApDocManagerReactor& reactor) { reactor.documentCreated(document); });
    return document;
}

void AcApDocManager::setCurDocument(AcApDocument* document)
{
    if (document && document != current_)
        makeCurrent(document);
}

void AcApDocManager::makeCurrent(AcApDocument* document)
{
    if (current_)
        tell([&](AcApDocManagerReactor& reactor) { reactor.documentToBeDeactivated(current_); });
    if (document)
        tell([&](AcApDocManagerReactor& reactor) { reactor.documentToBeActivated(document); });
    current_ = document;
    acdbHostApplicationServices()->setWorkingDatabase(document ? document->database() : nullptr);
    tell([&](AcApDocManagerReactor& reactor) { reactor.documentBecameCurrent(document); });
    if (document)
        tell([&](AcApDocManagerReactor& reactor) { reactor.documentActivated(document); });
}

void AcApDocManager::closeDocument(AcApDocument* document)
{
    const auto place = std::find_if(documents_.begin(), documents_.end(),
                                    [&](const auto& each) { return each.get() == document; });
    if (place == documents_.end())
        return;
    tell([&](AcApDocManagerReactor& reactor) { reactor.documentToBeDestroyed(document); });
    if (document == current_) {
        AcApDocument* next = nullptr;
        for (const auto& other : documents_)
            if (other.get() != document)
                next = other.get();
        makeCurrent(next);
    }
    const std::wstring name = document->fileName();
    std::erase_if(documents_, [&](const auto& each) { return each.get() == document; });
    tell([&](AcApDocManagerReactor& reactor) { reactor.documentDestroyed(name.c_str()); });
}

void AcApDocManager::closeAll()
{
    while (!documents_.empty())
        closeDocument(documents_.back().get());
    newDrawings_ = 0;
}
