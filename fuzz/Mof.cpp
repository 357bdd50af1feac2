#include "ClassRepository.hpp"
#include "MofParser.hpp"
#include "Targets.hpp"

#include <algorithm>
#include <cctype>
#include <string>

void fuzz::mof(std::string_view input)
{
    // Files of the machine are not for random names to open.
    std::string lower(input);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return std::tolower(c); });
    if (lower.find("include") != std::string::npos)
        return;
    static const cimom::ClassRepository
        empty; // to read the standard's qualifiers takes longer than most inputs
    try {
        cimom::ClassRepository repository = empty;
        repository.add(cimom::parseMof(input, "input.mof"));
    } catch (const cimom::MofError& e) {
        expect(std::string(e.what()).find("input.mof") != std::string::npos, "an error names the file");
    }
}
