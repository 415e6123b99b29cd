#include "settings/OptionSettings.h"

#include "addin/modCommonErrorMsgs.h"
#include "platform/AnsiText.h"
#include "platform/Text.h"
#include "settings/Defaults.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <exception>
#include <limits>
#include <optional>
#include <string>
#include <system_error>

namespace {

constexpr std::u16string_view kTabMarker = u"{TAB}";
constexpr int kQuoteCodes[] = {147, 148, 132, 171, 187};

/// While it lives, option controls raise no rules of their dialog.
class SuppressEvents {
 public:
  explicit SuppressEvents(modIniFile& ini) : ini_(ini) { ini_.blnSuppressEvents = true; }
  ~SuppressEvents() { ini_.blnSuppressEvents = false; }
  SuppressEvents(const SuppressEvents&) = delete;
  SuppressEvents& operator=(const SuppressEvents&) = delete;

 private:
  modIniFile& ini_;
};

std::u16string Read(const modIniFile& ini, std::u16string_view key) { return ini.ReadIniValue(kDefaultsSection, key); }

void Write(modIniFile& ini, std::u16string_view key, std::u16string_view value) {
  ini.WriteIniValue(kDefaultsSection, key, value);
}

/// A decimal number, with or without sign, fraction and exponent, as a whole one: halves to the even one, and what is
/// too large or too small to the last one there is.
std::optional<int> WholeNumber(std::u16string_view text) {
  constexpr double kLeast = std::numeric_limits<int>::min();
  constexpr double kMost = std::numeric_limits<int>::max();
  if (text.find_first_not_of(u"0123456789+-.eE") != std::u16string_view::npos) return std::nullopt;
  if (text.starts_with(u"+") && !text.starts_with(u"+-")) text.remove_prefix(1);
  const std::string digits(text.begin(), text.end());
  const char* end = digits.data() + digits.size();
  double value = 0;
  const auto [last, error] = std::from_chars(digits.data(), end, value);
  if (last != end || error == std::errc::invalid_argument) return std::nullopt;
  if (error == std::errc::result_out_of_range) {
    // Too close to nothing, or beyond every whole number; the value does not tell.
    const std::size_t exponent = digits.find_first_of("eE");
    const bool tiny = exponent != std::string::npos && digits.at(exponent + 1) == '-';
    value = tiny ? 0 : digits.front() == '-' ? kLeast : kMost;
  }
  return static_cast<int>(std::clamp(std::nearbyint(value), kLeast, kMost));
}

void WriteDefaults(modIniFile& ini, os::Messages& messages) {
  for (const SettingDefault& setting : kSettingDefaults) {
    if (!ini.WriteIniValue(kDefaultsSection, setting.key, setting.value)) ShowIniFileProblem(messages);
  }
}

void FillQuoteList(forms::ComboBox& list, int chosen) {
  list.Clear();
  for (const int code : kQuoteCodes) list.AddItem(std::u16string(1, CharFromAnsiCode(code)), code);
  list.SetListIndex(chosen);
}

void SelectQuote(forms::ComboBox& list, int code) {
  for (int i = 0; i < list.ListCount(); ++i) {
    if (list.ItemData(i) == code) list.SetListIndex(i);
  }
}

void Tick(const modIniFile& ini, forms::CheckBox& box, std::u16string_view key) {
  box.SetValue(Read(ini, key) == u"True" ? 1 : 0);
}

void Fill(modIniFile& ini, const OptionControls& options) {
  FillQuotes(options.cmbOpenQuote, options.cmbCloseQuote);

  const std::u16string indexWhat = Read(ini, u"IndexWhat");
  options.optIndexWhat[0].SetValue(indexWhat == u"IndexAll" || indexWhat.empty());
  options.optIndexWhat[1].SetValue(indexWhat == u"IndexDefs");

  const std::u16string searchType = Read(ini, u"SearchType");
  if (searchType == u"SearchFlagged" || searchType == u"SearchInitCaps") {
    const bool quotedTerms = searchType == u"SearchFlagged";
    options.optSearchType[quotedTerms ? 0 : 1].SetValue(true);
    ApplySearchTypeRule(options, quotedTerms);
  }

  const int openCode = ReadQuoteCode(ini, u"OpenQuote", u"147");
  const int closeCode = ReadQuoteCode(ini, u"CloseQuote", u"148");
  SelectQuotes(options.cmbOpenQuote, options.cmbCloseQuote, openCode, closeCode);

  Tick(ini, options.chkBold, u"Bold");
  Tick(ini, options.chkIndexCaps, u"IndexAllCaps");
  Tick(ini, options.chkCaseSensitive, u"CaseSensitive");
  Tick(ini, options.chkHighlight, u"Highlight");
  Tick(ini, options.chkIgnoreNums, u"IgnoreWordsWithNums");
  Tick(ini, options.chkIncludeNotUsed, u"IncludeNotUsed");
  Tick(ini, options.chkIncludeNotFound, u"IncludeNotFound");
  ApplyCaseRule(options);

  options.txtCols.SetText(Read(ini, u"IndexCols"));
  const std::u16string separator = Read(ini, u"IndexSep");
  const std::size_t marker = separator.find(kTabMarker);
  options.txtSep.SetText(separator.substr(0, marker));
  options.chkTabSep.SetValue(marker == std::u16string::npos ? 0 : 1);
}

std::u16string_view TrueOrFalse(const forms::CheckBox& box) { return box.Value() == 1 ? u"True" : u"False"; }

std::u16string ChosenCode(const forms::ComboBox& list) { return Decimal(list.ItemData(list.ListIndex())); }

void Save(modIniFile& ini, const OptionControls& options) {
  Write(ini, u"Bold", TrueOrFalse(options.chkBold));
  Write(ini, u"CaseSensitive", TrueOrFalse(options.chkCaseSensitive));
  Write(ini, u"IndexAllCaps", TrueOrFalse(options.chkIndexCaps));
  Write(ini, u"Highlight", TrueOrFalse(options.chkHighlight));
  Write(ini, u"IgnoreWordsWithNums", TrueOrFalse(options.chkIgnoreNums));
  Write(ini, u"IncludeNotFound", TrueOrFalse(options.chkIncludeNotFound));
  Write(ini, u"IncludeNotUsed", TrueOrFalse(options.chkIncludeNotUsed));
  Write(ini, u"IndexCols", options.txtCols.Text());

  std::u16string separator = u"\"" + options.txtSep.Text();
  if (options.chkTabSep.Value() != 0) separator += kTabMarker;
  Write(ini, u"IndexSep", separator + u"\"");

  SaveQuotes(ini, options.cmbOpenQuote, options.cmbCloseQuote);

  if (options.optSearchType[0].Value() || options.optSearchType[1].Value()) {
    const bool quotedTerms = options.optSearchType[0].Value();
    Write(ini, u"SearchType", quotedTerms ? u"SearchFlagged" : u"SearchInitCaps");
    const SuppressEvents suppress(ini);
    ApplySearchTypeRule(options, quotedTerms);
  }

  if (options.optIndexWhat[0].Value()) Write(ini, u"IndexWhat", u"IndexAll");
  if (options.optIndexWhat[1].Value()) Write(ini, u"IndexWhat", u"IndexDefs");
}

}  // namespace

bool LoadSettingsIntoDialog(modIniFile& ini, os::Messages& messages, const OptionControls& options) {
  try {
    if (!ini.FileExists()) WriteDefaults(ini, messages);
    const SuppressEvents suppress(ini);
    Fill(ini, options);
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

void SaveOptionsToIni(modIniFile& ini, os::Messages& messages, const OptionControls& options) {
  TrapErrors(messages, u"Error setting defaults", [&] { Save(ini, options); });
}

int ReadQuoteCode(modIniFile& ini, std::u16string_view key, std::u16string_view defaultCode) {
  const std::optional<int> code = WholeNumber(Read(ini, key));
  if (code) return *code;
  Write(ini, key, defaultCode);
  return WholeNumber(defaultCode).value();
}

void FillQuotes(forms::ComboBox& cmbOpenQuote, forms::ComboBox& cmbCloseQuote) {
  FillQuoteList(cmbOpenQuote, 0);
  FillQuoteList(cmbCloseQuote, 1);
}

void SelectQuotes(forms::ComboBox& cmbOpenQuote, forms::ComboBox& cmbCloseQuote, int openCode, int closeCode) {
  SelectQuote(cmbOpenQuote, openCode);
  SelectQuote(cmbCloseQuote, closeCode);
}

bool SaveQuotes(modIniFile& ini, const forms::ComboBox& cmbOpenQuote, const forms::ComboBox& cmbCloseQuote) {
  const bool openWritten = ini.WriteIniValue(kDefaultsSection, u"OpenQuote", ChosenCode(cmbOpenQuote));
  const bool closeWritten = ini.WriteIniValue(kDefaultsSection, u"CloseQuote", ChosenCode(cmbCloseQuote));
  return openWritten && closeWritten;
}
