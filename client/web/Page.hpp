// The files of the page, as they lie in the program.
#pragma once

#include <string_view>
#include <vector>

namespace lanctl::web
{

struct PageFile {
    std::string_view path; // "/", "/page.css"
    std::string_view type; // of its content, as HTTP names it
    std::string_view content;
};

const std::vector<PageFile>& pageFiles();

} // namespace lanctl::web
