#include "hosts/docx/layout/FontNames.h"

#include <algorithm>
#include <array>
#include <map>
#include <vector>

namespace docx::layout {

namespace {

constexpr std::array kRoman{StandIn{"Liberation Serif", 1, {}}, StandIn{"DejaVu Serif", 0.87, {0.891, 0.216, 0.042}}};
constexpr std::array kSwiss{StandIn{"Liberation Sans", 1, {}}, StandIn{"DejaVu Sans", 0.9, {0.905, 0.212, 0.033}}};
constexpr std::array kModern{StandIn{"Liberation Mono", 1, {}}, StandIn{"DejaVu Sans Mono", 1, {0.833, 0.3, 0}}};

using Table = std::map<std::string_view, std::vector<StandIn>>;

/// The metric-compatible ones first; for the others the width factor was found by comparing the advances of the
/// lower-case letters, weighted as they occur in English text.
const Table& Known() {
  static const Table table = [] {
    const LineMetrics times{0.891, 0.216, 0.042};
    const LineMetrics arial{0.905, 0.212, 0.033};
    const LineMetrics calibri{0.952, 0.269, 0};
    const auto serif = [](double factor, LineMetrics line) {
      return std::vector<StandIn>{{"Liberation Serif", factor, line}, {"DejaVu Serif", factor * 0.87, line}};
    };
    const auto sans = [](double factor, LineMetrics line) {
      return std::vector<StandIn>{{"Liberation Sans", factor, line}, {"DejaVu Sans", factor * 0.9, line}};
    };
    const auto mono = [](double factor, LineMetrics line) {
      return std::vector<StandIn>{{"Liberation Mono", factor, line}, {"DejaVu Sans Mono", factor, line}};
    };
    const auto calibriLike = [](double factor, LineMetrics line) {
      return std::vector<StandIn>{{"Carlito", factor, line}, {"Liberation Sans", factor * 0.89, line}};
    };
    Table known;
    for (const char* name : {"times new roman", "times", "tms rmn", "thorndale", "times new roman bold"}) {
      known[name] = serif(1, times);
    }
    for (const char* name : {"arial", "helvetica", "helv", "albany", "arial unicode ms", "microsoft sans serif",
                             "ms sans serif", "arial bold", "helvetica neue"}) {
      known[name] = sans(1, arial);
    }
    for (const char* name : {"courier new", "courier", "cumberland"}) known[name] = mono(1, {0.833, 0.3, 0});
    for (const char* name : {"calibri", "calibri light"}) known[name] = calibriLike(1, calibri);
    known["cambria"] = {{"Caladea", 1, {0.95, 0.222, 0}}, {"Liberation Serif", 1.06, {0.95, 0.222, 0}}};
    known["cambria math"] = known["cambria"];
    known["arial narrow"] = {{"Liberation Sans Narrow", 1, {0.936, 0.212, 0}}, {"Liberation Sans", 0.82, arial}};
    known["verdana"] = {{"DejaVu Sans", 0.985, {1.005, 0.21, 0}}, {"Liberation Sans", 1.15, {1.005, 0.21, 0}}};
    known["tahoma"] = sans(0.975, {1.0, 0.207, 0});
    known["segoe ui"] = sans(0.98, {1.079, 0.251, 0});
    known["segoe ui light"] = sans(0.95, {1.079, 0.251, 0});
    known["segoe ui semibold"] = sans(1.02, {1.079, 0.251, 0});
    known["trebuchet ms"] = sans(0.965, {0.939, 0.222, 0});
    known["century gothic"] = sans(1.06, {1.006, 0.22, 0});
    known["franklin gothic book"] = sans(0.95, {0.91, 0.223, 0});
    known["gill sans mt"] = sans(0.91, {0.918, 0.23, 0.013});
    known["lucida sans unicode"] = sans(1.09, {1.097, 0.44, 0});
    known["lucida grande"] = sans(1.09, {0.966, 0.211, 0});
    known["arial black"] = sans(1.2, {1.1, 0.31, 0});
    known["comic sans ms"] = sans(1.03, {1.102, 0.291, 0});
    known["aptos"] = sans(0.966, {0.939, 0.282, 0});
    known["aptos display"] = sans(0.93, {0.939, 0.282, 0});
    known["candara"] = calibriLike(1.01, {0.952, 0.269, 0});
    known["corbel"] = calibriLike(1.02, {0.952, 0.269, 0});
    known["open sans"] = sans(1.03, {1.069, 0.293, 0});
    known["roboto"] = sans(0.98, {0.927, 0.244, 0});
    known["lato"] = sans(0.95, {0.987, 0.213, 0});
    known["georgia"] = serif(1.115, {0.917, 0.219, 0});
    known["garamond"] = serif(0.925, {0.862, 0.263, 0});
    known["book antiqua"] = serif(1.075, {0.923, 0.283, 0.04});
    known["palatino linotype"] = serif(1.075, {0.732, 0.284, 0.333});
    known["palatino"] = known["book antiqua"];
    known["bookman old style"] = serif(1.16, {0.93, 0.24, 0});
    known["century schoolbook"] = serif(1.1, {0.98, 0.22, 0});
    known["century"] = serif(1.1, {0.98, 0.22, 0});
    known["constantia"] = serif(1.06, {0.952, 0.269, 0});
    known["consolas"] = mono(0.916, {0.919, 0.251, 0});
    known["lucida console"] = mono(1.004, {0.789, 0.211, 0});
    for (const char* name : {"traditional arabic", "simplified arabic"})
      known[name] = {{"DejaVu Sans", 0.55, {1.1, 0.45, 0}}};
    known["symbol"] = serif(1.1, {1.005, 0.22, 0});
    known["wingdings"] = sans(1.5, {0.899, 0.211, 0});
    known["wingdings 2"] = known["wingdings 3"] = known["webdings"] = known["wingdings"];
    return known;
  }();
  return table;
}

}  // namespace

std::span<const StandIn> StandInsFor(std::string_view name) {
  const auto found = Known().find(name);
  if (found == Known().end()) return {};
  return found->second;
}

std::span<const StandIn> StandInsFor(FontClass kind) {
  switch (kind) {
    case FontClass::kRoman:
      return kRoman;
    case FontClass::kModern:
      return kModern;
    case FontClass::kSwiss:
      break;
  }
  return kSwiss;
}

std::string FoldFontName(std::string_view name) {
  std::string folded(name);
  for (char& c : folded) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return folded;
}

}  // namespace docx::layout
