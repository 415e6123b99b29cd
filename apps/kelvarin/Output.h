#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>

#include "apps/kelvarin/Options.h"
#include "hosts/docx/package/Package.h"

/// Where the result of an input goes; empty when it goes nowhere.
/// @throws Failure when that is the input itself without --in-place, or a file that exists without --force
std::optional<std::filesystem::path> ChooseTarget(const OutputOptions& output, const std::filesystem::path& input);

/// Writes the document so that the target is at every moment the old file or the whole new one.
/// @throws Failure kUnreadable
void WriteDocument(const docx::Package& package, const std::filesystem::path& target);

/// Writes a report, a transcript or settings in the same way. "-" is standard output. @throws Failure kUnreadable
void WriteText(const std::string& text, const std::filesystem::path& target);

/// The file's bytes. @throws Failure kUnreadable
std::string ReadFile(const std::filesystem::path& file);
