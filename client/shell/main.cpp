#include "shell/CommandLine.hpp"

#include <exception>
#include <iostream>

int main(int argc, char** argv)
{
    try {
        return lanctl::shell::run(argc, argv);
    } catch (const std::exception& e) {
        std::cerr << "lanctl: " << e.what() << "\n";
        return 3;
    }
}
