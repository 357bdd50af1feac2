#include "web/HttpServer.hpp"

#include <gtest/gtest.h>
#include <stdexcept>

namespace lanctl::web
{
namespace
{

TEST(ListenAddressTest, AnAddressAndItsPortAreTold)
{
    const ListenAddress address = parseListenAddress("127.0.0.1:8080");
    EXPECT_EQ(address.host, "127.0.0.1");
    EXPECT_EQ(address.port, 8080);
    EXPECT_EQ(address.text(), "127.0.0.1:8080");
}

TEST(ListenAddressTest, AnIpv6AddressStandsInBrackets)
{
    const ListenAddress address = parseListenAddress("[::1]:65535");
    EXPECT_EQ(address.host, "::1");
    EXPECT_EQ(address.text(), "[::1]:65535");
}

TEST(ListenAddressTest, OnlyTheLoopbackIsTheLoopback)
{
    for (const char* text : {"127.0.0.1:1", "127.9.9.9:1", "[::1]:1"})
        EXPECT_TRUE(parseListenAddress(text).isLoopback()) << text;
    for (const char* text : {"0.0.0.0:1", "10.0.0.5:1", "128.0.0.1:1", "[::]:1", "[fe80::1]:1"})
        EXPECT_FALSE(parseListenAddress(text).isLoopback()) << text;
}

TEST(ListenAddressTest, WhatIsNoAddressIsRefused)
{
    for (const char* text : {"", ":", "8080", "127.0.0.1", "127.0.0.1:", "127.0.0.1:0", "127.0.0.1:65536",
                             "127.0.0.1:-1", "127.0.0.1: 80", "127.0.0.1:80x", ":80", "localhost:80",
                             "127.1:80", "127.0.0.1.evil.example:80", "[]:80", "[::1:80", "[::g]:80"})
        EXPECT_THROW(parseListenAddress(text), std::invalid_argument) << text;
}

} // namespace
} // namespace lanctl::web
