#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

/// What became of one input.
struct FileResult {
  int status{0};
  std::string report{};      ///< one JSON object without a line end; empty when none is wanted
  std::string transcript{};  ///< whole lines
};

/// Runs the work for each input, at most so many at a time. Several inputs run in processes of their own: what one does
/// to the program's state, or a crash, does not reach the next.
/// @return the results in the order of the inputs. One whose process died has kUnreadable and no report; that is said
/// on standard error
std::vector<FileResult> RunEach(const std::vector<std::filesystem::path>& inputs, int jobs,
                                const std::function<FileResult(const std::filesystem::path&)>& work);
