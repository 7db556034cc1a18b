#pragma once

#include "host/db/database.h"

#include <deque>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace AcAp {

enum DocLockMode {
    kNone = 0,
    kAutoWrite = 1,
    kNotLocked = 2,
    kWrite = 4,
    kProtectedAutoWrite = 20,
    kRead = 32,
    kXWrite = 64,
};

} // namespace AcAp

namespace host {

// Text that waits to be typed.
struct QueuedText {
    std::wstring text;
    bool echo = true;
    std::size_t at = 0;   // read so far
    bool cancels = false; // ends every running command before what follows it
};

} // namespace host

// An open drawing with what the editor keeps for it.
class AcApDocument {
public:
    // `newName` is shown until the drawing has a file.
    AcApDocument(std::unique_ptr<AcDbDatabase> database, std::wstring newName);
    ~AcApDocument();

    // The path; "Drawing1.dxf" and so on for a new drawing, which isNamedDrawing denies.
    std::wstring fileName() const;
    std::wstring docTitle() const { return fileName(); }
    bool isNamedDrawing() const;
    AcDbDatabase* database() const { return database_.get(); }
    bool isReadOnly() const { return readOnly_; }
    void setReadOnly(bool on) { readOnly_ = on; }
    AcAp::DocLockMode lockMode() const;

    // For the rooms that run the editor.
    std::deque<host::QueuedText> queue;   // typed next
    std::deque<host::QueuedText> waiting; // queued inside a command: behind `queue` once it returns
    std::vector<AcDbObjectId> pickFirst;
    std::vector<AcDbObjectId> previous;

private:
    friend class AcApDocManager;
    std::unique_ptr<AcDbDatabase> database_;
    std::wstring newName_;
    bool readOnly_ = false;
    std::vector<AcAp::DocLockMode> locks_;
};

class AcApDocManagerReactor {
public:
    virtual ~AcApDocManagerReactor() = default;
    virtual void documentCreateStarted(AcApDocument*) {}
    virtual void documentCreated(AcApDocument*) {}
    virtual void documentToBeDestroyed(AcApDocument*) {}
    virtual void documentDestroyed(const wchar_t* /*fileName*/) {}
    virtual void documentToBeActivated(AcApDocument*) {}
    virtual void documentActivated(AcApDocument*) {}
    virtual void documentToBeDeactivated(AcApDocument*) {}
    virtual void documentBecameCurrent(AcApDocument*) {}
};

// The open documents. The working database is that of the current one. The object lives as long as
// the program, so that modules may enter their reactors while they are being loaded.
class AcApDocManager {
public:
    AcApDocManager();
    ~AcApDocManager();

    AcApDocument* curDocument() const { return current_; } // null when none is open
    AcApDocument* mdiActiveDocument() const { return current_; }
    AcApDocument* document(const AcDbDatabase* database) const; // null for a side database
    int documentCount() const { return static_cast<int>(documents_.size()); }
    std::vector<AcApDocument*> documents() const; // in the order of opening

    Acad::ErrorStatus lockDocument(AcApDocument* document, AcAp::DocLockMode mode = AcAp::kWrite,
                                   const wchar_t* globalName = nullptr,
                                   const wchar_t* localName = nullptr, bool prompt = true);
    Acad::ErrorStatus unlockDocument(AcApDocument* document);

    // Queues text as if it were typed. From inside a command it waits for the outermost one to
    // return.
    Acad::ErrorStatus sendStringToExecute(AcApDocument* document, const wchar_t* text,
                                          bool activate = true, bool wrapUpInactiveDoc = false,
                                          bool echo = true);

    // Whose texts the plug-in's ids name; the host has none of its own and only keeps the stack.
    void pushResourceHandle(void* handle) { resources_.push_back(handle); }
    void popResourceHandle();
    void* resourceHandle() const { return resources_.empty() ? nullptr : resources_.back(); }

    void addReactor(AcApDocManagerReactor* reactor);
    void removeReactor(AcApDocManagerReactor* reactor);

    // An empty metric drawing; it becomes current.
    AcApDocument* newDocument();
    // Reads a file; the document becomes current.
    // Null with a message for the user when it cannot be read. With eOk a message may tell what was
    // kept though wrong.
    AcApDocument* openDocument(const std::filesystem::path& path, bool readOnly,
                               std::wstring& message);
    // Without saving. The document that was opened last becomes current.
    void closeDocument(AcApDocument* document);
    void setCurDocument(AcApDocument* document);
    void closeAll();

private:
    template <class Call> void tell(Call call);
    void makeCurrent(AcApDocument* document);

    std::vector<std::unique_ptr<AcApDocument>> documents_;
    AcApDocument* current_ = nullptr;
    std::vector<AcApDocManagerReactor*> reactors_;
    std::vector<void*> resources_;
    int newDrawings_ = 0;
};

AcApDocManager* acDocManagerPtr();
AcApDocument* curDoc();
