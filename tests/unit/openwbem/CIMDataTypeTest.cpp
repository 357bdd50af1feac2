#include "OW_CIMDataType.hpp"
#include <gtest/gtest.h>

using namespace OpenWBEM;

namespace
{

struct Named {
    CIMDataType::Type type;
    const char* name;
};

class CIMDataTypeName : public testing::TestWithParam<Named>
{
};

} // namespace

TEST_P(CIMDataTypeName, isWrittenAndReadInAnyCase)
{
    EXPECT_EQ(GetParam().name, CIMDataType(GetParam().type).toString());
    EXPECT_EQ(GetParam().type, CIMDataType::strToSimpleType(GetParam().name));
    EXPECT_EQ(GetParam().type, CIMDataType::getDataType(String(GetParam().name).toUpperCase()).getType());
}

INSTANTIATE_TEST_SUITE_P(
    ofType, CIMDataTypeName,
    testing::Values(Named{CIMDataType::UINT8, "uint8"}, Named{CIMDataType::SINT8, "sint8"},
                    Named{CIMDataType::UINT16, "uint16"}, Named{CIMDataType::SINT16, "sint16"},
                    Named{CIMDataType::UINT32, "uint32"}, Named{CIMDataType::SINT32, "sint32"},
                    Named{CIMDataType::UINT64, "uint64"}, Named{CIMDataType::SINT64, "sint64"},
                    Named{CIMDataType::STRING, "string"}, Named{CIMDataType::BOOLEAN, "boolean"},
                    Named{CIMDataType::REAL32, "real32"}, Named{CIMDataType::REAL64, "real64"},
                    Named{CIMDataType::DATETIME, "datetime"}, Named{CIMDataType::CHAR16, "char16"},
                    Named{CIMDataType::REFERENCE, "REF"}));

TEST(CIMDataType, writesEmbeddedObjectsAsStrings)
{
    EXPECT_EQ("string", CIMDataType(CIMDataType::EMBEDDEDCLASS).toString());
    EXPECT_EQ("string", CIMDataType(CIMDataType::EMBEDDEDINSTANCE).toString());
}

TEST(CIMDataType, saysSoWhenItHasNoType)
{
    EXPECT_EQ("** INVALID DATA TYPE IN CIMDATATYPE - toString **",
              CIMDataType(CIMDataType::CIMNULL).toString());
}

TEST(CIMDataType, isFalseWithoutAType)
{
    EXPECT_TRUE(CIMDataType(CIMDataType::UINT16));
    EXPECT_FALSE(CIMDataType(CIMDataType::CIMNULL));
    EXPECT_FALSE(CIMDataType(CIMDataType::INVALID));
    EXPECT_FALSE(CIMDataType(OpenWBEM::CIMNULL));
    EXPECT_FALSE(CIMDataType::getDataType("text"));
    EXPECT_EQ(CIMDataType::INVALID, CIMDataType::strToSimpleType("text"));
}

TEST(CIMDataType, tellsNumbersFromOthers)
{
    EXPECT_TRUE(CIMDataType(CIMDataType::UINT8).isNumericType());
    EXPECT_TRUE(CIMDataType(CIMDataType::SINT64).isNumericType());
    EXPECT_TRUE(CIMDataType(CIMDataType::REAL64).isNumericType());
    EXPECT_FALSE(CIMDataType(CIMDataType::STRING).isNumericType());
    EXPECT_FALSE(CIMDataType(CIMDataType::BOOLEAN).isNumericType());
    EXPECT_FALSE(CIMDataType(CIMDataType::DATETIME).isNumericType());
}

TEST(CIMDataType, writesArraysAsTheirElements)
{
    CIMDataType type(CIMDataType::STRING);
    EXPECT_FALSE(type.isArrayType());
    EXPECT_TRUE(type.setToArrayType(4));
    EXPECT_TRUE(type.isArrayType());
    EXPECT_EQ(4, type.getSize());
    EXPECT_EQ("string", type.toString());
    EXPECT_TRUE(CIMDataType(CIMDataType::STRING, 4).equals(type));
}

TEST(CIMDataType, namesTheClassOfAReference)
{
    const CIMDataType type(CIMName("SAMPLE_Port"));
    EXPECT_TRUE(type.isReferenceType());
    EXPECT_EQ(CIMDataType::REFERENCE, type.getType());
    EXPECT_EQ("SAMPLE_Port", type.getRefClassName());
}

TEST(CIMDataType, comparesTypeAndArrayness)
{
    const CIMDataType scalar(CIMDataType::UINT16);
    EXPECT_TRUE(scalar.equals(CIMDataType::UINT16));
    EXPECT_FALSE(scalar.equals(CIMDataType::UINT32));
    EXPECT_FALSE(scalar.equals(CIMDataType(CIMDataType::UINT16, -1)));
    EXPECT_TRUE(scalar == CIMDataType(CIMDataType::UINT16));
    EXPECT_TRUE(scalar != CIMDataType(CIMDataType::SINT16));
}
