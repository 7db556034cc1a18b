#include "tests/store/record_test.h"

namespace {

class OdStoreTest : public RecordTest {
protected:
    AcDbObjectId namedObjects() { return database().namedObjectsDictionaryId(); }
};

} // namespace

TEST_F(OdStoreTest, TheDictionaryIsMadeOnce)
{
    EXPECT_TRUE(existingStoreId(database()).isNull());
    const AcDbObjectId id = storeId();
    ASSERT_FALSE(id.isNull());
    EXPECT_EQ(storeId(), id);
    EXPECT_EQ(existingStoreId(database()), id);
    EXPECT_EQ(OdStore().getStoreId(&database()), id); // another store finds the one that is there
    EXPECT_EQ(id.objectClass(), AcDbDictionary::desc());
    EXPECT_EQ(session().documents().curDocument()->lockMode(), AcAp::kNone);
}

TEST_F(OdStoreTest, ADictionaryThatIsGoneIsMadeAnew)
{
    const AcDbObjectId first = storeId();
    AcDbObjectPointer<AcDbDictionary>(first, AcDb::kForWrite)->erase();
    const AcDbObjectId second = storeId();
    EXPECT_NE(second, first);
    EXPECT_FALSE(second.isErased());

    AcDbObjectPointer<AcDbDictionary>(namedObjects(), AcDb::kForWrite)->remove(second);
    const AcDbObjectId third = storeId();
    EXPECT_NE(third, second);
    EXPECT_EQ(existingStoreId(database()), third);
}

TEST_F(OdStoreTest, ADictionaryUnderAnotherKeyIsNotTheStore)
{
    const AcDbObjectId first = storeId();
    AcDbObjectPointer<AcDbDictionary>(namedObjects(), AcDb::kForWrite)
        ->setName(kStoreName, L"PUT_ASIDE");
    EXPECT_TRUE(existingStoreId(database()).isNull());
    const AcDbObjectId second = storeId();
    EXPECT_NE(second, first);
    EXPECT_EQ(existingStoreId(database()), second);
    AcDbObjectPointer<AcDbDictionary>(namedObjects(), AcDb::kForWrite)
        ->setName(kStoreName, L"OdEmuData"); // keys compare without case
    EXPECT_EQ(storeId(), second);
}

// The command that made the dictionary is undone: its id names nothing from then on.
TEST_F(OdStoreTest, AnUndoneDictionaryIsMadeAnew)
{
    static OdStore store;
    static AcDbObjectId made;
    command(L"MAKESTORE", [] { made = store.getStoreId(store.currentDatabase()); });
    type(L"makestore\n");
    const AcDbObjectId first = made;
    ASSERT_FALSE(first.isNull());
    type(L"_u\n");
    EXPECT_TRUE(existingStoreId(database()).isNull());
    type(L"makestore\n");
    EXPECT_NE(made, first);
    EXPECT_EQ(existingStoreId(database()), made);
}

TEST_F(OdStoreTest, EachDrawingHasItsOwn)
{
    const AcDbObjectId first = storeId();
    AcDbDatabase* const firstDatabase = store_.currentDatabase();
    session().documents().newDocument();
    EXPECT_NE(store_.currentDatabase(), firstDatabase);
    const AcDbObjectId second = store_.getStoreId(store_.currentDatabase());
    EXPECT_NE(second, first);
    EXPECT_EQ(store_.getStoreId(firstDatabase), first);

    // A drawing opened later may lie at the address of a closed one.
    session().documents().closeDocument(session().documents().curDocument());
    session().documents().newDocument();
    const AcDbObjectId third = store_.getStoreId(store_.currentDatabase());
    EXPECT_EQ(third.database(), store_.currentDatabase());
    EXPECT_FALSE(third.isErased());
    EXPECT_TRUE(store_.getStoreId(nullptr).isNull());
}
