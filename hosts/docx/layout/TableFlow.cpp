#include <algorithm>
#include <numeric>
#include <utility>

#include "hosts/docx/layout/Flow.h"

namespace docx::layout {

namespace {

constexpr double kLeastCellWidth = 20;  // twips

double SpanWidth(const std::vector<double>& columns, const Cell& cell) {
  double width = 0;
  for (int i = cell.column; i < cell.column + cell.span && i < static_cast<int>(columns.size()); ++i) {
    width += columns[static_cast<std::size_t>(i)];
  }
  return width;
}

/// What the first paragraph of a row says about staying with the next one.
bool KeepsWithNext(const Row& row) {
  for (const Cell& cell : row.cells) {
    for (const Block& block : cell.blocks) {
      const Paragraph* paragraph = block.AsParagraph();
      return paragraph != nullptr && *paragraph->look.format.keepNext;
    }
  }
  return false;
}

/// A merged cell that has not reached its last row.
struct Merge {
  int column{0};
  Flow flow;
  double needs{0};
  double top{0};
  std::size_t firstRow{0};
  double left{0};
};

/// Spreads the lines of a merged cell over the rows that it stands beside.
void Spread(Merge& merge, std::vector<FlowItem>& rows, std::size_t begin, std::size_t end) {
  double bottom = 0;
  std::size_t row = begin;
  double y = merge.top;
  for (FlowItem& item : merge.flow.items) {
    y += item.before;
    while (row + 1 < end && y >= bottom + rows[row].height) bottom += rows[row++].height;
    y += item.height;
    item.height = 0;
    item.before = 0;
    rows[row].row->beside.push_back(std::move(item));
  }
}

}  // namespace

std::vector<double> ColumnWidths(const Table& table, double width) {
  std::size_t count = table.grid.size();
  for (const Row& row : table.rows) {
    for (const Cell& cell : row.cells) count = std::max(count, static_cast<std::size_t>(cell.column + cell.span));
  }
  std::vector<double> columns = table.grid;
  columns.resize(count, 0);
  const double wanted = table.width > 0 ? table.width : table.widthShare * width;
  // Word keeps in the grid what it last laid out; a file of another origin may have only preferred widths.
  const double sum = std::accumulate(columns.begin(), columns.end(), 0.0);
  if (sum > 0 && std::count(columns.begin(), columns.end(), 0.0) == 0) {
    const bool share = table.width <= 0 && table.widthShare > 0;
    if (share && wanted > 0 && std::abs(sum - wanted) > 0.02 * wanted) {
      for (double& column : columns) column *= wanted / sum;
    }
    return columns;
  }
  for (const Row& row : table.rows) {
    for (const Cell& cell : row.cells) {
      const double preferred =
          cell.preferred > 0 ? cell.preferred : cell.preferredShare * (wanted > 0 ? wanted : width);
      if (cell.span != 1 || preferred <= 0) continue;
      double& column = columns[static_cast<std::size_t>(cell.column)];
      if (column <= 0) column = preferred;
    }
  }
  const auto open = static_cast<double>(std::count(columns.begin(), columns.end(), 0.0));
  if (open > 0) {
    const double total = wanted > 0 ? wanted : width;
    const double rest = total - std::accumulate(columns.begin(), columns.end(), 0.0);
    for (double& column : columns) {
      if (column <= 0) column = std::max(rest / open, kLeastCellWidth);
    }
  }
  return columns;
}

std::unique_ptr<RowFlow> FlowBuilder::BuildRow(const Row& row, const std::vector<double>& columns, double border) {
  auto built = std::make_unique<RowFlow>();
  built->least = row.height;
  built->exact = row.exact && row.height > 0;
  built->cannotSplit = row.cannotSplit;
  built->border = border;
  for (const Cell& cell : row.cells) {
    CellFlow flow;
    flow.top = cell.top;
    flow.bottom = cell.bottom;
    const double width = std::max(SpanWidth(columns, cell) - cell.left - cell.right, kLeastCellWidth);
    // Text that runs up or down has the row's height for its lines; without one it does not make the row higher.
    if (cell.sideways) {
      flow.flow = Build(cell.blocks, row.height > 0 ? row.height : width, true);
      for (FlowItem& item : flow.flow.items) item.height = item.before = 0;
      flow.flow.after = 0;
    } else {
      flow.flow = Build(cell.blocks, width, true);
    }
    built->cells.push_back(std::move(flow));
  }
  // The text of all cells of a row begins at the same height.
  double top = 0;
  for (const CellFlow& cell : built->cells) top = std::max(top, cell.top);
  for (CellFlow& cell : built->cells) cell.top = top;
  return built;
}

void FlowBuilder::AddTable(const Table& table, double width, Before& before, Flow& flow) {
  const std::vector<double> columns = ColumnWidths(table, width);
  const std::size_t begin = flow.items.size();
  std::vector<Merge> merges;
  bool keep = before.keepNext;
  double headerHeight = 0;
  bool headers = true;
  double space = before.after;
  for (std::size_t r = 0; r < table.rows.size(); ++r) {
    const Row& row = table.rows[r];
    const bool last = r + 1 == table.rows.size();
    FlowItem item;
    // Of the two borders that meet between rows the wider one shows.
    const double above = std::max(row.topBorder, r > 0 ? table.rows[r - 1].bottomBorder : 0);
    item.row = BuildRow(row, columns, above + (last ? row.bottomBorder : 0));
    item.position = row.start;
    // A cell that is merged with others gives its text to the last of them.
    for (std::size_t c = 0; c < row.cells.size(); ++c) {
      const Cell& cell = row.cells[c];
      CellFlow& built = item.row->cells[c];
      if (cell.mergedBelow) {
        Merge merge;
        merge.column = cell.column;
        merge.top = built.top;
        merge.needs = built.top + built.bottom + built.flow.Height();
        merge.flow = std::move(built.flow);
        merge.firstRow = flow.items.size();
        built.flow = {};
        merges.push_back(std::move(merge));
      } else if (cell.mergedAbove) {
        for (FlowItem& hidden : built.flow.items) {
          hidden.height = hidden.before = 0;
          item.row->beside.push_back(std::move(hidden));
        }
        built.flow = {};
      }
    }
    const CellFlow& firstCell = item.row->cells.front();
    if (!firstCell.flow.items.empty()) item.lastBreak = firstCell.flow.items.front().lastBreak;
    item.height = item.row->Height();
    for (std::size_t m = 0; m < merges.size();) {
      const auto goesOn = [&](const Row& below) {
        return std::any_of(below.cells.begin(), below.cells.end(),
                           [&](const Cell& cell) { return cell.column == merges[m].column && cell.mergedAbove; });
      };
      if (!last && goesOn(table.rows[r + 1])) {
        ++m;
        continue;
      }
      double height = item.height;
      for (std::size_t i = merges[m].firstRow; i < flow.items.size(); ++i) height += flow.items[i].height;
      if (!item.row->exact) {
        item.row->least = std::max(item.row->least, item.height + std::max(0.0, merges[m].needs - height));
        item.height = item.row->Height();
      }
      flow.items.push_back(std::move(item));
      Spread(merges[m], flow.items, merges[m].firstRow, flow.items.size());
      item = std::move(flow.items.back());
      flow.items.pop_back();
      merges.erase(merges.begin() + static_cast<std::ptrdiff_t>(m));
    }
    item.before = std::exchange(space, 0);
    item.hold = keep ? Hold::kNext : Hold::kNone;
    item.breakBefore = std::exchange(before.breakBehind, BreakBefore::kNone);
    headers = headers && row.header;
    keep = KeepsWithNext(row) || headers;
    if (headers) {
      headerHeight += item.height;
    } else {
      item.headerHeight = headerHeight;
    }
    flow.items.push_back(std::move(item));
  }
  if (table.floating) {
    // A table that floats stands beside the text when that has room; most do not leave any.
    const double all = std::accumulate(columns.begin(), columns.end(), 0.0);
    if (all < width / 2) {
      for (std::size_t i = begin; i < flow.items.size(); ++i) flow.items[i].height = 0;
    }
  }
  before.after = 0;
  before.keepNext = keep && !headers;
  before.paragraph = nullptr;
}

}  // namespace docx::layout
