// The fuzz targets as ordinary tests: each with its seeds and with seeds that break off.

#include "Targets.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace
{

struct Target {
    const char* name;
    void (*run)(std::string_view);
};

std::ostream& operator<<(std::ostream& out, const Target& target)
{
    return out << target.name;
}

std::string content(const std::filesystem::path& path)
{
    std::ostringstream all;
    all << std::ifstream(path, std::ios::binary).rdbuf();
    return all.str();
}

class Seeds : public testing::TestWithParam<Target>
{
};

TEST_P(Seeds, AreTakenWholeAndInPart)
{
    constexpr std::size_t parts = 50;
    int seeds = 0;
    for (const auto& entry :
         std::filesystem::directory_iterator(std::string(KV_SEEDS_DIR "/") + GetParam().name)) {
        const std::string seed = content(entry.path());
        const std::size_t step = seed.size() / parts + 1;
        for (std::size_t missing = 0; missing <= seed.size(); missing += step)
            EXPECT_NO_THROW(GetParam().run(std::string_view(seed).substr(0, seed.size() - missing)))
                << entry.path() << " without its last " << missing << " bytes";
        ++seeds;
    }
    EXPECT_GE(seeds, 4);
}

INSTANTIATE_TEST_SUITE_P(All, Seeds,
                         testing::Values(Target{"interface_file", fuzz::interface_file},
                                         Target{"resolver_file", fuzz::resolver_file},
                                         Target{"config_store", fuzz::config_store},
                                         Target{"address_and_domain", fuzz::address_and_domain},
                                         Target{"mof", fuzz::mof}, Target{"cim_xml", fuzz::cim_xml},
                                         Target{"cim_answer", fuzz::cim_answer},
                                         Target{"wanted_state", fuzz::wanted_state}),
                         [](const auto& seeds) { return std::string(seeds.param.name); });

} // namespace
