#ifndef KV_TESTS_UNIT_CONFIG_STORETEST_HPP
#define KV_TESTS_UNIT_CONFIG_STORETEST_HPP

#include "World.hpp"
#include "config/CCOrxConfig.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using Lines = std::vector<std::string>;

/// A world with a configuration file at `path`.
class StoreTest : public ::testing::Test
{
  protected:
    static constexpr std::int32_t Blank = CCOrxConfig::BlankSeparated;
    static constexpr std::int32_t Equals = CCOrxConfig::EqualsSeparated;
    static constexpr std::int32_t Other = 3; ///< any number but the two above

    void TearDown() override
    {
        for (const std::string& problem : world.problems())
            ADD_FAILURE() << problem;
    }

    void givenFile(const std::string& content) { world.write(path, content); }

    /// What a file with `content` holds after it has been read and written back.
    std::string rewritten(const std::string& content, std::int32_t style)
    {
        givenFile(content);
        CCOrxConfig store(path, style);
        store.Commit();
        return world.read(path);
    }

    const char* const path = "/kv/etc/store.cfg";
    const char* const backup = "/kv/etc/store.cfg.0";
    fakes::World world;
};

#endif
