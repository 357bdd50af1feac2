#include "config/CCOrxConfigObj.hpp"
#include "config/CNode.hpp"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

namespace
{

static_assert(std::is_polymorphic_v<CCOrxConfigObj>, "it has a virtual destructor");
static_assert(std::has_virtual_destructor_v<CCOrxConfigObj>, "it can be derived from and deleted by base");

using Text = CCOrxConfigObj;

TEST(ConfigNode, HoldsNextKeyAndValueInThisOrder)
{
    CNode<Text, Text> node(nullptr);
    node.key = Text("k");
    node.value = Text("v");
    const void* const next = &node.next;
    const void* const key = &node.key;
    const void* const value = &node.value;
    EXPECT_LT(next, key);
    EXPECT_LT(key, value);
    EXPECT_EQ(node.next, nullptr);
    EXPECT_EQ(node.key.text(), "k");
    EXPECT_EQ(node.value.text(), "v");
}

TEST(ConfigObject, IsEmptyWithoutAText)
{
    EXPECT_EQ(Text().text(), "");
}

TEST(ConfigObject, HoldsTheTextItIsMadeFrom)
{
    EXPECT_EQ(Text("nameserver").text(), "nameserver");
    EXPECT_EQ(Text(std::string("10.0.0.1")).text(), "10.0.0.1");
}

TEST(ConfigObject, HoldsATextOfAnyLengthAndAnyBytes)
{
    const std::string longText(100000, '\xE4');
    EXPECT_EQ(Text(longText).text(), longText);
    EXPECT_EQ(Text(std::string("a\0b", 3)).text(), std::string("a\0b", 3));
}

TEST(ConfigObject, AssignmentCopiesTheText)
{
    Text source("before");
    Text target("something else");
    target = source;
    source = Text("after");
    EXPECT_EQ(target.text(), "before");
}

TEST(ConfigObject, ComparesByteWise)
{
    EXPECT_TRUE(Text("a") < Text("b"));
    EXPECT_FALSE(Text("b") < Text("a"));
    EXPECT_FALSE(Text("a") < Text("a"));
    EXPECT_TRUE(Text("z") < Text("\xE4")) << "bytes are unsigned";
}

TEST(ConfigObject, PutsUpperCaseBeforeLowerCase)
{
    EXPECT_TRUE(Text("DNS") < Text("dns"));
    EXPECT_TRUE(Text("Z") < Text("a"));
    EXPECT_FALSE(Text("DNS") == Text("dns"));
}

TEST(ConfigObject, PutsAPrefixBeforeTheLongerText)
{
    EXPECT_TRUE(Text("eth") < Text("eth0"));
    EXPECT_TRUE(Text("") < Text("a"));
    EXPECT_FALSE(Text("eth0") < Text("eth"));
}

TEST(ConfigObject, GreaterOrEqualIsTheOppositeOfLess)
{
    EXPECT_TRUE(Text("b") >= Text("a"));
    EXPECT_TRUE(Text("a") >= Text("a"));
    EXPECT_FALSE(Text("a") >= Text("b"));
}

TEST(ConfigObject, EqualsTheSameTextOnly)
{
    EXPECT_TRUE(Text("a") == Text("a"));
    EXPECT_FALSE(Text("a") == Text("ab"));
}

TEST(ConfigNode, StartsUnlinkedAndEmpty)
{
    const CNode<Text, Text> node;
    EXPECT_EQ(node.next, nullptr);
    EXPECT_EQ(node.key.text(), "");
    EXPECT_EQ(node.value.text(), "");
}

} // namespace
