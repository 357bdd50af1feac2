#include "RecordedExchanges.hpp"

#include <gtest/gtest.h>
#include <stdexcept>

namespace recorded
{
namespace
{

TEST(RecordedExchanges, ComeBackByteForByte)
{
    const auto exchanges = exchangesIn("=== 007-first\n"
                                       "--- request\nGET\\r\n\\xE9\\x00\\\\r\n"
                                       "--- response\n\nbody\n\n"
                                       "=== 008-second\n--- request\n"
                                       "--- provider\nSP> called\n\n");
    ASSERT_EQ(exchanges.size(), 2u);
    EXPECT_EQ(exchanges[0].name, "007-first");
    EXPECT_EQ(exchanges[0].number, 7);
    EXPECT_EQ(exchanges[0].request, std::string("GET\r\n\xE9\0\\r", 9));
    EXPECT_EQ(exchanges[0].response, "\nbody\n");
    EXPECT_EQ(exchanges[0].provider, "");
    EXPECT_EQ(exchanges[1].request, "");
    EXPECT_EQ(exchanges[1].provider, "SP> called\n");
}

TEST(RecordedExchanges, AreRefusedInAnyOtherForm)
{
    for (const char* text :
         {"lost\n", "=== 1-a\nlost\n", "=== 1-a\n--- reply\n", "=== 1-a\n--- request\n\\y\n",
          "=== 1-a\n--- request\n\\x0\n", "=== 1-a\n--- request\n\\\n"})
        EXPECT_THROW(exchangesIn(text), std::runtime_error) << text;
    EXPECT_THROW(exchangesIn("=== unnumbered\n"), std::invalid_argument);
}

} // namespace
} // namespace recorded
