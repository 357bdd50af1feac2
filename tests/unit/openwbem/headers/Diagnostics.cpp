#include "Diagnostics.hpp"
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>

std::vector<std::string> linesOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        lines.push_back(line);
    }
    return lines;
}

std::set<size_t> wrongLines(const std::string& diagnostics, const std::string& fileName)
{
    const std::string place = "/" + fileName + ":";
    std::set<size_t> numbers;
    for (const std::string& line : linesOf(BINARY_DIRECTORY "/" + diagnostics + ".diagnostics")) {
        const size_t found = line.find(place);
        if (found != std::string::npos) {
            numbers.insert(std::strtoul(line.c_str() + found + place.size(), nullptr, 10));
        }
    }
    return numbers;
}
