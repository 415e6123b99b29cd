#pragma once

#include <string_view>

#include "platform/Host.h"
#include "platform/forms/Form.h"

/// The help file in the add-in's folder; the name begins with its separator.
inline constexpr std::u16string_view kHelpFile = u"\\Kelvarin3Help.chm";

/// Topics of the help file by their numbers.
enum HelpTopic : int {
  kHelpContentsPage = 0,
  kHelpGettingStarted = 7,
  kHelpCreateIndex = 11,
  kHelpDeleteIndex = 12,
  kHelpRemoveHighlighting = 13,
  kHelpUpdateIndex = 14,
  kHelpTermLists = 15,
  kHelpFormattingTerms = 16,
  kHelpOptions = 17,
  kHelpDocumentWindow = 18,
};

/// What the instructions are set for.
enum class PaperSize { kA4, kLetter };

/// Shows a topic of a help file in the add-in's folder for a form; a number below 1 shows its contents.
void OpenHelpTopic(const Host& host, std::u16string_view fileName, int topic, forms::Form& form);

/// Opens the questions and answers: the page in the add-in's folder, or where it is missing the maker's.
void OpenFAQ(const Host& host, forms::Form& form);

/// Opens the instructions for printing on a paper. A missing file is reported.
void OpenInstructions(const Host& host, PaperSize paper, forms::Form& form);
