#include <algorithm>
#include <numeric>
#include <optional>
#include <utility>

#include "hosts/docx/layout/Flow.h"

namespace docx::layout {

namespace {

constexpr double kLeastCellWidth = 20;  // twips
/// The version of Word, as it numbers itself.
constexpr int kIndentsEdge = 15;

/// Where columns begin, and the last one ends.
std::vector<double> EdgesOf(const std::vector<double>& columns) {
  std::vector<double> edges(columns.size() + 1, 0);
  std::partial_sum(columns.begin(), columns.end(), edges.begin() + 1);
  return edges;
}

double EdgeAt(const std::vector<double>& edges, int column) {
  return edges[std::min(static_cast<std::size_t>(column), edges.size() - 1)];
}

/// What the first paragraphs of a row's cells say for all of the row.
bool AnyBegins(const Row& row, const std::optional<bool> ParagraphFormat::*with) {
  return std::ranges::any_of(row.cells, [with](const Cell& cell) {
    const Paragraph* paragraph = cell.blocks.empty() ? nullptr : cell.blocks.front().AsParagraph();
    return paragraph != nullptr && *(paragraph->look.format.*with);
  });
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
    item.drop += y - item.height - bottom;
    item.shift += merge.left;
    item.height = 0;
    item.before = 0;
    rows[row].row->beside.push_back(std::move(item));
  }
}

}  // namespace

LineWidths FlowBuilder::WidthsOf(const Cell& cell) {
  LineWidths widths;
  const auto include = [&](const LineWidths& more) {
    widths.least = std::max(widths.least, more.least);
    widths.most = std::max(widths.most, more.most);
  };
  for (const Block& block : cell.blocks) {
    if (const Paragraph* paragraph = block.AsParagraph()) {
      include(lines_.WidthsOf(*paragraph));
      continue;
    }
    const std::vector<double> columns = ColumnWidths(*block.AsTable(), 0);
    const double all = std::accumulate(columns.begin(), columns.end(), 0.0);
    include({all, all});
  }
  const double margins = cell.left + cell.right;
  return {widths.least + margins, widths.most + margins};
}

std::vector<double> FlowBuilder::ColumnWidths(const Table& table, double width) {
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
  if (open <= 0) return columns;
  const double total = wanted > 0 ? wanted : width;
  const double rest = total - std::accumulate(columns.begin(), columns.end(), 0.0);
  if (table.fixed) {
    for (double& column : columns) {
      if (column <= 0) column = std::max(rest / open, kLeastCellWidth);
    }
    return columns;
  }
  std::vector<LineWidths> needs(count);
  for (const Row& row : table.rows) {
    for (const Cell& cell : row.cells) {
      const auto at = static_cast<std::size_t>(cell.column);
      if (cell.span != 1 || columns[at] > 0) continue;
      const LineWidths own = WidthsOf(cell);
      needs[at].least = std::max(needs[at].least, own.least);
      needs[at].most = std::max(needs[at].most, own.most);
    }
  }
  double least = 0;
  double most = 0;
  for (const LineWidths& need : needs) {
    least += need.least;
    most += need.most;
  }
  // What all columns have between their longest word and their longest line, each gets by its share.
  const double share = most > least ? std::clamp((rest - least) / (most - least), 0.0, 1.0) : 1;
  const double scale = least > rest && rest > 0                ? rest / least
                       : most > 0 && most < rest && wanted > 0 ? rest / most
                                                               : 1;
  for (std::size_t i = 0; i < count; ++i) {
    const double need = needs[i].least + (needs[i].most - needs[i].least) * share;
    if (columns[i] <= 0) columns[i] = std::max(need * scale, kLeastCellWidth);
  }
  return columns;
}

double FlowBuilder::TableLeft(const Table& table, double all, double width) const {
  if (table.alignment == Alignment::kRight) return width - all;
  if (table.alignment == Alignment::kCenter) return (width - all) / 2;
  // Up to Word 2010 the text of the first cell stands where the indent says, from then on the cell's edge.
  const Row& first = table.rows.front();
  const bool byText = lines_.Settings().compatibility < kIndentsEdge && !first.cells.empty();
  return table.indent - (byText ? first.cells.front().left : 0);
}

std::unique_ptr<RowFlow> FlowBuilder::BuildRow(const Row& row, const std::vector<double>& edges) {
  auto built = std::make_unique<RowFlow>();
  built->least = built->stated = row.height;
  built->exact = row.exact && row.height > 0;
  built->cannotSplit = row.cannotSplit;
  for (const Cell& cell : row.cells) {
    CellFlow flow;
    flow.top = cell.top;
    flow.bottom = cell.bottom;
    flow.cell = &cell;
    // Of the gap each of two neighbours gives a half.
    flow.left = EdgeAt(edges, cell.column) + (&cell == &row.cells.front() ? row.gap : row.gap / 2);
    flow.width =
        EdgeAt(edges, cell.column + cell.span) - flow.left - (&cell == &row.cells.back() ? row.gap : row.gap / 2);
    flow.textLeft = flow.left + cell.left;
    const double width = std::max(flow.width - cell.left - cell.right, kLeastCellWidth);
    // Text that runs up or down has the row's height for its lines; without one it does not make the row higher.
    if (cell.sideways) {
      flow.flow = Build(cell.blocks, row.height > 0 ? row.height : width, true);
      for (FlowItem& item : flow.flow.items) {
        item.height = item.before = 0;
        item.shown.paragraph = nullptr;
      }
      flow.flow.after = 0;
    } else {
      flow.flow = Build(cell.blocks, width, true);
    }
    if (cell.hidesMark && !flow.flow.items.empty()) {
      FlowItem& last = flow.flow.items.back();
      if (last.shown.paragraph != nullptr && last.shown.paragraph->text.empty()) last.height = 0;
    }
    built->cells.push_back(std::move(flow));
  }
  // The text of all cells of a row begins at the same height.
  double top = 0;
  for (const CellFlow& cell : built->cells) top = std::max(top, cell.top);
  for (CellFlow& cell : built->cells) cell.top = top;
  return built;
}

void FlowBuilder::AddTable(const Table& table, double width, bool inCell, Before& before, Flow& flow) {
  const std::vector<double> columns = ColumnWidths(table, width);
  const std::vector<double> edges = EdgesOf(columns);
  const double left = TableLeft(table, edges.back(), width);
  const std::size_t begin = flow.items.size();
  std::vector<Merge> merges;
  bool keep = before.keepNext;
  double headerHeight = 0;
  std::uint32_t headerRows = 0;
  bool headers = true;
  double space = before.after;
  for (std::size_t r = 0; r < table.rows.size(); ++r) {
    const Row& row = table.rows[r];
    const bool last = r + 1 == table.rows.size();
    FlowItem item;
    item.row = BuildRow(row, edges);
    if (row.gap > 0) {
      item.row->gapAbove = row.gap;
      item.row->gapBelow = last ? row.gap : 0;
      item.row->border = row.gap + row.topBorder;
      item.row->below = row.bottomBorder + item.row->gapBelow;
    } else {
      // Of the two borders that meet between rows the wider one shows.
      item.row->border = std::max(row.topBorder, r > 0 ? table.rows[r - 1].bottomBorder : 0);
      item.row->below = last ? row.bottomBorder : 0;
    }
    item.position = row.start;
    item.row->table = &table;
    item.row->number = r;
    item.row->left = left;
    // A cell that is merged with others gives its text to the last of them.
    for (std::size_t c = 0; c < row.cells.size(); ++c) {
      const Cell& cell = row.cells[c];
      CellFlow& built = item.row->cells[c];
      if (cell.mergedBelow) {
        Merge merge;
        merge.column = cell.column;
        merge.top = built.top;
        merge.left = built.textLeft;
        merge.needs = built.top + built.bottom + built.flow.Height();
        merge.flow = std::move(built.flow);
        merge.firstRow = flow.items.size();
        built.flow = {};
        merges.push_back(std::move(merge));
      } else if (cell.mergedAbove) {
        for (FlowItem& hidden : built.flow.items) {
          hidden.height = hidden.before = 0;
          hidden.shown.paragraph = nullptr;
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
    if (!inCell && AnyBegins(row, &ParagraphFormat::pageBreakBefore)) item.breakBefore = BreakBefore::kPage;
    headers = headers && row.header;
    keep = AnyBegins(row, &ParagraphFormat::keepNext) || headers;
    if (headers) {
      headerHeight += item.height;
      ++headerRows;
    } else {
      item.headerHeight = headerHeight;
      item.headers = headerRows;
      item.headersBack = static_cast<std::uint32_t>(r);
    }
    Push(std::move(item), flow);
  }
  if (table.floating) {
    // A table that floats stands beside the text when that has room; most do not leave any.
    const double all = edges.back();
    if (all < width / 2) {
      double drop = 0;
      const double at = table.alignment == Alignment::kRight ? width - all : table.floatingLeft.value_or(left);
      for (std::size_t i = begin; i < flow.items.size(); ++i) {
        FlowItem& item = flow.items[i];
        item.drop = drop;
        drop += std::exchange(item.height, 0);
        item.row->left = at;
      }
      column_.bottom -= drop;
      column_.obstacles.Add(
          {column_.bottom, column_.bottom + drop, at - table.floatingMargin, at + all + table.floatingMargin});
    }
  }
  before.after = 0;
  before.keepNext = keep && !headers;
  before.paragraph = nullptr;
}

}  // namespace docx::layout
