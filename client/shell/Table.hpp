// Text in columns.
#pragma once

#include <string>
#include <vector>

namespace lanctl::shell
{

/// Rows of cells in columns that are as wide as their longest cell. A cell may be highlighted.
class Table
{
  public:
    struct Cell {
        std::string text;
        bool highlighted = false;
    };

    void add(std::vector<Cell> row) { m_rows.push_back(std::move(row)); }
    std::string text() const;

  private:
    std::vector<std::vector<Cell>> m_rows;
};

/// How many columns a text takes on a terminal: its characters, not its bytes.
std::size_t widthOf(const std::string& text);

} // namespace lanctl::shell
