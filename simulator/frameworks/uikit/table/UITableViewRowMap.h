// Where the rows, headers and footers of a table lie. Lengths are in points, in the table's content.
#pragma once

#include <cstddef>
#include <vector>

struct UITableViewRowMap {
    struct Section {
        double top = 0;                   // where its header begins
        double headerHeight = 0;          // 0: no header
        double footerHeight = 0;          // 0: no footer
        std::vector<double> rowEdges{0};  // the top of every row, then the bottom of the last

        size_t rowCount() const { return rowEdges.size() - 1; }
        double rowsBottom() const { return rowEdges.back(); }
        double bottom() const { return rowsBottom() + footerHeight; }
    };
    struct Row {
        size_t section, row;
    };

    std::vector<Section> sections;
    double top = 0;    // where the first section begins
    double width = 0;  // of the table that it was made for: texts below groups wrap

    // Adds a section below the last one.
    void addSection(double headerHeight, const std::vector<double>& rowHeights, double footerHeight);
    // Where the last section ends.
    double bottom() const;
    // The rows that share more than an edge with [from, to), from the top down.
    std::vector<Row> rowsBetween(double from, double to) const;
};
