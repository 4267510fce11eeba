#include "simulator/frameworks/uikit/table/UITableViewRowMap.h"

#include <algorithm>

void UITableViewRowMap::addSection(double headerHeight, const std::vector<double>& rowHeights, double footerHeight) {
    Section section;
    section.top = bottom();
    section.headerHeight = headerHeight;
    section.footerHeight = footerHeight;
    section.rowEdges.front() = section.top + headerHeight;
    for (const double height : rowHeights) section.rowEdges.push_back(section.rowEdges.back() + height);
    sections.push_back(std::move(section));
}

double UITableViewRowMap::bottom() const { return sections.empty() ? top : sections.back().bottom(); }

std::vector<UITableViewRowMap::Row> UITableViewRowMap::rowsBetween(double from, double to) const {
    std::vector<Row> rows;
    for (size_t s = 0; s < sections.size(); ++s) {
        const std::vector<double>& edges = sections[s].rowEdges;
        if (sections[s].top >= to) break;
        if (sections[s].rowsBottom() <= from) continue;
        const auto firstBottom = std::upper_bound(edges.begin() + 1, edges.end(), from);
        for (size_t row = firstBottom - edges.begin() - 1; row + 1 < edges.size() && edges[row] < to; ++row) {
            rows.push_back({s, row});
        }
    }
    return rows;
}
