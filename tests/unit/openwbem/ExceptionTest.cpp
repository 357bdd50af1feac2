#include "OW_CIMException.hpp"
#include "OW_Exception.hpp"
#include "OW_NULLValueException.hpp"
#include "OW_NoSuchPropertyException.hpp"
#include "Thrown.hpp"
#include <gtest/gtest.h>
#include <memory>
#include <sstream>

using namespace OpenWBEM;

namespace
{

OW_DECLARE_EXCEPTION(Invented)
OW_DEFINE_EXCEPTION(Invented)

std::string printed(const Exception& e)
{
    std::ostringstream text;
    text << e;
    return text.str();
}

} // namespace

TEST(Exception, carriesPlaceMessageAndNumbers)
{
    const InventedException e("Unit.cpp", 51, "no such thing", 7);
    EXPECT_STREQ("InventedException", e.type());
    EXPECT_STREQ("Unit.cpp", e.getFile());
    EXPECT_EQ(51, e.getLine());
    EXPECT_STREQ("no such thing", e.getMessage());
    EXPECT_STREQ("no such thing", e.what());
    EXPECT_EQ(7, e.getErrorCode());
    EXPECT_EQ(-1, e.getSubClassId());
    EXPECT_EQ(nullptr, e.getSubException());
}

TEST(Exception, hasEmptyTextsForMissingOnes)
{
    const InventedException e(nullptr, 0, nullptr);
    EXPECT_STREQ("", e.getFile());
    EXPECT_STREQ("", e.getMessage());
    EXPECT_EQ(-1, e.getErrorCode());
}

TEST(Exception, copiesItsTexts)
{
    char message[] = "before";
    const InventedException e("Unit.cpp", 1, message);
    message[0] = 'B';
    EXPECT_STREQ("before", e.getMessage());
}

TEST(Exception, keepsItsCause)
{
    const InventedException cause("Cause.cpp", 1, "the cause");
    const InventedException e("Unit.cpp", 2, "the effect", -1, &cause);
    EXPECT_STREQ("the cause", e.getSubException()->getMessage());
}

TEST(Exception, isPrintedWithItsPlace)
{
    EXPECT_EQ("Unit.cpp: 51 InventedException: no such thing",
              printed(InventedException("Unit.cpp", 51, "no such thing")));
    EXPECT_EQ("[no file]: [no line] InventedException: [no message]",
              printed(InventedException(nullptr, 0, nullptr)));
}

TEST(Exception, isThrownByMacroWithThePlace)
{
    int line = 0;
    try {
        line = __LINE__ + 1;
        OW_THROW_ERR(InventedException, "thrown", 3);
    } catch (const Exception& e) {
        EXPECT_STREQ(__FILE__, e.getFile());
        EXPECT_EQ(line, e.getLine());
        EXPECT_EQ(3, e.getErrorCode());
    }
    EXPECT_EQ("InventedException: thrown", thrown([] { OW_THROW(InventedException, "thrown"); }));
}

TEST(Exception, isAStandardException)
{
    EXPECT_THROW(OW_THROW(NoSuchPropertyException, "x"), std::exception);
    EXPECT_THROW(OW_THROW(NULLValueException, "x"), std::exception);
}

TEST(Exception, isClonedWithItsClass)
{
    const InventedException e("Unit.cpp", 51, "no such thing", 7);
    const std::unique_ptr<const InventedException> clone(e.clone());
    EXPECT_EQ(printed(e), printed(*clone));
    EXPECT_EQ(7, clone->getErrorCode());
}

namespace
{

struct Description {
    int code;
    const char* text;
};

class CIMExceptionDescription : public testing::TestWithParam<Description>
{
};

CIMException exceptionOf(int code, const char* text = nullptr)
{
    return CIMException("Unit.cpp", 1, CIMException::ErrNoType(code), text);
}

} // namespace

TEST_P(CIMExceptionDescription, standsAloneOrBeforeTheTextInParentheses)
{
    const std::string description = GetParam().text;
    EXPECT_EQ(description, exceptionOf(GetParam().code).getMessage());
    EXPECT_EQ(description, exceptionOf(GetParam().code, "").getMessage());
    EXPECT_EQ(description + " (text#ID#)", exceptionOf(GetParam().code, "text#ID#").getMessage());
    EXPECT_EQ(description + " (text#ID#)", exceptionOf(GetParam().code, "text#ID#").what());
}

INSTANTIATE_TEST_SUITE_P(
    ofCode, CIMExceptionDescription,
    testing::Values(
        Description{0, "no error"}, Description{1, "general error"},
        Description{2, "Access to CIM resource unavailable to client"},
        Description{3, "namespace does not exist"}, Description{4, "invalid parameter passed to method"},
        Description{5, "class does not exist"}, Description{6, "requested object could not be found"},
        Description{7, "requested operation is not supported"},
        Description{8, "operation cannot be done on class with subclasses"},
        Description{9, "operator cannot be done on class with instances"},
        Description{10, "specified superclass does not exist"}, Description{11, "object already exists"},
        Description{12, "specified property does not exist"},
        Description{13, "value supplied is incompatible with type"},
        Description{14, "query language is not recognized or supported"},
        Description{15, "query is not valid for the specified query language"},
        Description{16, "extrinsic method could not be executed"},
        Description{17, "extrinsic method does not exist"}, Description{99, "unknown error"}));

TEST(CIMException, keepsATextThatBeginsWithTheDescription)
{
    const CIMException inner = exceptionOf(1, "boom#ID#");
    EXPECT_STREQ("general error (boom#ID#)", exceptionOf(1, inner.what()).getMessage());
    EXPECT_STREQ("class does not exist (general error (boom#ID#))",
                 exceptionOf(5, inner.what()).getMessage());
}

TEST(CIMException, givesItsBareTextThroughTheBase)
{
    EXPECT_STREQ("boom#ID#", exceptionOf(1, "boom#ID#").Exception::getMessage());
    EXPECT_STREQ("", exceptionOf(1).Exception::getMessage());
}

TEST(CIMException, hasItsCodeAsErrorCode)
{
    const CIMException e = exceptionOf(6);
    EXPECT_EQ(CIMException::NOT_FOUND, e.getErrNo());
    EXPECT_EQ(6, e.getErrorCode());
    EXPECT_STREQ("CIMException", e.type());
}

TEST(CIMException, buildsItsMessageOnce)
{
    CIMException fresh = exceptionOf(1, "text");
    fresh.setErrNo(CIMException::NOT_FOUND);
    EXPECT_STREQ("requested object could not be found (text)", fresh.getMessage());
    fresh.setErrNo(CIMException::FAILED);
    EXPECT_EQ(CIMException::FAILED, fresh.getErrNo());
    EXPECT_STREQ("requested object could not be found (text)", fresh.getMessage());
}

TEST(CIMException, isPrintedWithTheDecoratedMessage)
{
    EXPECT_EQ("LANProvider.cpp: 51 CIMException: class does not exist",
              printed(CIMException("LANProvider.cpp", 51, CIMException::INVALID_CLASS)));
}

TEST(CIMException, isThrownByMacros)
{
    EXPECT_EQ("CIMException: object already exists",
              thrown([] { OW_THROWCIM(CIMException::ALREADY_EXISTS); }));
    EXPECT_EQ("CIMException: general error (text)",
              thrown([] { OW_THROWCIMMSG(CIMException::FAILED, "text"); }));
}

TEST(CIMException, isAssignedSwappedAndCloned)
{
    CIMException a = exceptionOf(1, "a");
    CIMException b = exceptionOf(6, "b");
    a.swap(b);
    EXPECT_STREQ("requested object could not be found (b)", a.getMessage());
    EXPECT_STREQ("general error (a)", b.getMessage());
    a = b;
    EXPECT_EQ(CIMException::FAILED, a.getErrNo());
    EXPECT_STREQ("general error (a)", a.getMessage());
    const CIMException* const clone = a.clone();
    EXPECT_STREQ("general error (a)", clone->getMessage());
    delete clone;
}
