#include "session/session.h"

namespace {

std::unique_ptr<Session>& runningSession()
{
    // the documents are made first, so that they outlive the session, which takes its reactor out
    static std::unique_ptr<Session> running = (acDocManagerPtr(), nullptr);
    return running;
}

} // namespace

Session::~Session()
{
    forgetKept();
}

void Session::tellDrawn(const std::wstring& name)
{
    tell([&](SessionListener& listener) { listener.objectDrawn(name); });
}

void Session::tellClassified(const std::wstring& name)
{
    tell([&](SessionListener& listener) { listener.entitiesClassified(name); });
}

void Session::forgetKept()
{
    while (!kept_.empty()) {
        const std::shared_ptr<void> last = std::move(kept_.back().second);
        kept_.pop_back();
    }
}

Session& session()
{
    std::unique_ptr<Session>& running = runningSession();
    if (!running)
        running = std::make_unique<Session>();
    return *running;
}

void endSession()
{
    // what is kept may ask for the session while it dies
    if (runningSession())
        runningSession()->forgetKept();
    runningSession().reset();
}
