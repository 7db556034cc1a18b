#include "text/message_sink.h"
#include "text/messages.h"

#include <gtest/gtest.h>

TEST(Messages, FillTheirTextsInOrder)
{
    EXPECT_EQ(filledIn(Message::completedOf, std::size_t{3}, 5), L"Completed: 3/5\n");
    EXPECT_EQ(filledIn(Message::formatPrompt, std::wstring(L"%T %i")), L"Format<%T %i>: ");
    EXPECT_EQ(filledIn(Message::invalidFormat),
              L"Error: invalid format (%T/%t, %i are required).\n");
    EXPECT_EQ(filledIn(Message::objectDependenciesNotLoaded, L"Wall"),
              L"error: unable to load dependecies for object 'Wall'\n");
}

// Ids are found by halving: each must be in its place, and no neighbour may answer for it.
TEST(Messages, EveryIdHasItsOwnText)
{
    EXPECT_EQ(std::wstring(textOf(Message::pluginName)), L"kelmaro");
    EXPECT_EQ(std::wstring(textOf(Message::recursiveDefinition)),
              L"%i: warning: recursive definition\n");
    EXPECT_EQ(std::wstring(textOf(Message::undrawablePrompt)), L"Undrawable [0/1]<%i>: ");
    EXPECT_EQ(std::wstring(textOf(Message::fieldRedefinition)),
              L"%i: error: redefinition of od_fld '%s'\n");
    for (int id = 101; id <= 190; ++id)
        EXPECT_STRNE(textOf(static_cast<Message>(id)), textOf(static_cast<Message>(id - 1))) << id;
}

TEST(Messages, ALineIsTheFirstThingFilledIn)
{
    EXPECT_EQ(messageText(12, Message::redefinition, L"Road"),
              L"12: error: redefinition of 'Road'\n");
    EXPECT_EQ(messageText(7, Message::invalidClass, {}), L"7: error: invalid 'class' definition\n");
    EXPECT_EQ(messageText({}, Message::layerNotFound, L"a%sb"),
              L"warning: layer 'a%sb' not found\n");
    EXPECT_EQ(messageText({}, Message::classNotClosed, {}), L"error: invalid class definition\n");
}
