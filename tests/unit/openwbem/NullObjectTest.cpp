#include "OW_CIM.hpp"
#include "Thrown.hpp"
#include <gtest/gtest.h>

using namespace OpenWBEM;

template <class T>
class NullObject : public testing::Test
{
};

typedef testing::Types<CIMInstance, CIMProperty, CIMObjectPath, CIMQualifier, CIMClass, CIMParamValue>
    Objects;
TYPED_TEST_SUITE(NullObject, Objects, );

TYPED_TEST(NullObject, isFalse)
{
    const TypeParam null(CIMNULL);
    EXPECT_FALSE(null);
    EXPECT_TRUE(!null);
    const bool truth = null;
    EXPECT_FALSE(truth);
}

TYPED_TEST(NullObject, isNotWhatADefaultConstructorMakes)
{
    EXPECT_TRUE(TypeParam());
}

TYPED_TEST(NullObject, comesFromSetNull)
{
    TypeParam object;
    const TypeParam copy(object);
    object.setNull();
    EXPECT_FALSE(object);
    EXPECT_TRUE(copy);
    object.setNull();
}

TYPED_TEST(NullObject, throwsWhenUsed)
{
    const TypeParam null(CIMNULL);
    EXPECT_EQ(NULL_REFERENCE, thrown([&null] { null.toString(); }));
}

TEST(NullObjects, haveNoMOF)
{
    EXPECT_EQ(NULL_REFERENCE, thrown([] { CIMProperty(CIMNULL).toMOF(); }));
    EXPECT_EQ(NULL_REFERENCE, thrown([] { CIMInstance(CIMNULL).toMOF(); }));
    EXPECT_EQ("ERROR: CIMParamValue cannot be converted to MOF", CIMParamValue(CIMNULL).toMOF());
}

TYPED_TEST(NullObject, isCopiedAndAssigned)
{
    const TypeParam null(CIMNULL);
    const TypeParam copy(null);
    EXPECT_FALSE(copy);
    TypeParam object;
    object = null;
    EXPECT_FALSE(object);
    object = TypeParam();
    EXPECT_TRUE(object);
}

TEST(NullReference, isNoCimException)
{
    try {
        CIMProperty(CIMNULL).getName();
        FAIL() << "nothing thrown";
    } catch (const CIMException&) {
        FAIL() << "a CIMException";
    } catch (const std::exception& e) {
        EXPECT_STREQ("NULL COWReference dereferenced", e.what());
    }
}

TEST(NullReference, isThrownBySettersToo)
{
    EXPECT_EQ(NULL_REFERENCE, thrown([] { CIMProperty(CIMNULL).setValue(CIMValue("x")); }));
    EXPECT_EQ(NULL_REFERENCE, thrown([] { CIMInstance(CIMNULL).setProperty("x", CIMValue("x")); }));
    EXPECT_EQ(NULL_REFERENCE, thrown([] { CIMObjectPath(CIMNULL).setNameSpace("root"); }));
    EXPECT_EQ(NULL_REFERENCE, thrown([] { CIMQualifier(CIMNULL).setValue(CIMValue("x")); }));
}
