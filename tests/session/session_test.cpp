#include "session/session.h"

#include "host/edit/document.h"
#include "tests/support/command_test.h"

namespace {

class SessionTest : public CommandTest {
protected:
    ~SessionTest() override { endSession(); }
};

struct FirstAnswer {
    int value = 1;
};
struct SecondAnswer {
    int value = 1;
};

struct Listener : SessionListener {
    std::wstring heard;
    SessionListener* leaves = nullptr;
    void objectDrawn(const std::wstring& name) override
    {
        heard += L"drawn " + name + L";";
        if (leaves)
            ::session().removeListener(leaves);
    }
    void entitiesClassified(const std::wstring& name) override
    {
        heard += L"classified " + name + L";";
    }
};

std::wstring gone;
struct Last {
    ~Last() { gone += L"last"; }
};
struct First {
    ~First() { gone += ::session().descriptionPath + L" first "; }
};

} // namespace

TEST_F(SessionTest, KeepsOneObjectOfEachType)
{
    Session& current = ::session();
    current.kept<FirstAnswer>().value = 0;
    EXPECT_EQ(current.kept<SecondAnswer>().value, 1);
    EXPECT_EQ(::session().kept<FirstAnswer>().value, 0);
    endSession();
    EXPECT_EQ(::session().kept<FirstAnswer>().value, 1);
}

TEST_F(SessionTest, WhatIsKeptGoesLastMadeFirstWhileTheSessionStands)
{
    gone.clear();
    ::session().kept<Last>();
    ::session().kept<First>();
    ::session().descriptionPath = L"here";
    endSession();
    EXPECT_EQ(gone, L"here first last");
}

TEST_F(SessionTest, ListenersHearWhatHappensAndMayLeaveMeanwhile)
{
    Listener one;
    Listener two;
    one.leaves = &two;
    ::session().addListener(&one);
    ::session().addListener(&two);
    ::session().tellClassified(L"Wall");
    ::session().tellDrawn(L"Gate");
    ::session().tellDrawn(L"Roof");
    EXPECT_EQ(one.heard, L"classified Wall;drawn Gate;drawn Roof;");
    EXPECT_EQ(two.heard, L"classified Wall;");
}

TEST_F(SessionTest, ADocumentIsForgottenWhenItCloses)
{
    AcApDocument* const other = session().documents().newDocument();
    AcApDataManager& documents = ::session().documents;
    documents.of(other);
    EXPECT_TRUE(documents.knows(other));
    ::session().description = std::make_shared<Description>();
    session().documents().closeDocument(other);
    EXPECT_FALSE(documents.knows(other));
    EXPECT_NE(::session().description, nullptr);
}
