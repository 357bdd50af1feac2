#include "shell/Table.hpp"

#include "shell/Terminal.hpp"

#include <algorithm>

namespace lanctl::shell
{

namespace
{

constexpr std::size_t gap = 2;

std::vector<std::size_t> columnWidths(const std::vector<std::vector<Table::Cell>>& rows)
{
    std::vector<std::size_t> widths;
    for (const auto& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], widthOf(harmless(row[i].text)));
    }
    return widths;
}

} // namespace

std::size_t widthOf(const std::string& text)
{
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0U) != 0x80; // not a continuation of UTF-8
    }));
}

std::string Table::text() const
{
    const std::vector<std::size_t> widths = columnWidths(m_rows);
    std::string out;
    for (const auto& row : m_rows) {
        std::string blanks;
        for (std::size_t i = 0; i < row.size(); ++i) {
            const std::string shown = harmless(row[i].text);
            if (shown.empty() && i + 1 == row.size())
                break; // no blanks at the end of a line
            out += blanks + coloured(shown, row[i].highlighted ? Colour::Yellow : Colour::Plain);
            blanks = std::string(widths[i] - widthOf(shown) + gap, ' ');
        }
        out += "\n";
    }
    return out;
}

} // namespace lanctl::shell
