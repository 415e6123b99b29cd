#include "apps/kelvarin/CommandLine.h"

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <functional>
#include <limits>
#include <map>
#include <set>
#include <sstream>

#include "apps/kelvarin/Commands.h"
#include "apps/kelvarin/Identity.h"
#include "apps/kelvarin/Messages.h"
#include "apps/kelvarin/Output.h"
#include "apps/kelvarin/PrivateSettings.h"
#include "apps/kelvarin/Status.h"
#include "apps/kelvarin/Version.h"
#include "apps/kelvarin/WrittenFiles.h"
#include "hosts/json/Json.h"

namespace {

namespace fs = std::filesystem;

/// Seconds for a file of many. Contracts of 10,000 pages take a part of it.
constexpr int kTimeLimit = 900;

void AddSwitch(CLI::App& command, const std::string& name, std::optional<bool>& value, const std::string& help) {
  command
      .add_flag_function(
          "--" + name + ",!--no-" + name, [&value](std::int64_t count) { value = count > 0; }, help)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
}

template <class T>
void AddValue(CLI::App& command, const std::string& name, std::optional<T>& value, const std::string& help,
              const CLI::Validator& check = {}) {
  CLI::Option* option = command.add_option_function<T>(
      name, [&value](const T& given) { value = given; }, help);
  option->check(check);
}

void AddPath(CLI::App& command, const std::string& name, std::optional<fs::path>& value, const std::string& type,
             const std::string& help) {
  command
      .add_option_function<std::string>(
          name,
          [&value, name](const std::string& given) {
            // As of a variable that a script did not set.
            if (given.empty()) throw CLI::ValidationError(name, "a name is expected");
            value = given;
          },
          help)
      ->type_name(type);
}

/// Empty when the text is no place.
std::optional<CursorPlace> ReadPlace(const std::string& text) {
  using Kind = CursorPlace::Kind;
  if (text == "end") return CursorPlace{.kind = Kind::kEnd};
  if (text == "start") return CursorPlace{.kind = Kind::kStart};
  const std::size_t colon = text.find(':');
  if (colon == std::string::npos || colon + 1 == text.size()) return {};
  const std::string kind = text.substr(0, colon);
  const std::string rest = text.substr(colon + 1);
  if (kind == "bookmark") return CursorPlace{.kind = Kind::kBookmark, .text = rest};
  if (kind == "after") return CursorPlace{.kind = Kind::kAfterText, .text = rest};
  CursorPlace place{.kind = Kind::kCharacter};
  const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), place.position);
  const bool isNumber = error == std::errc() && end == rest.data() + rest.size() && place.position >= 0;
  return kind == "char" && isNumber ? std::optional(place) : std::nullopt;
}

docx::PageSource ReadPages(const std::string& given) {
  if (given == "auto") return docx::PageSource::kAuto;
  if (given == "file") return docx::PageSource::kFile;
  if (given == "layout") return docx::PageSource::kLayout;
  if (given == "libreoffice") return docx::PageSource::kPdf;
  throw CLI::ValidationError("--pages", "\"" + given + "\" is none of auto, file, layout, libreoffice");
}

bool HasDisplay() {
  const auto named = [](const char* variable) {
    const char* const value = std::getenv(variable);
    return value != nullptr && *value != '\0';
  };
  return named("WAYLAND_DISPLAY") || named("DISPLAY");
}

class Reader {
 public:
  Reader() : app_("Builds the index of defined terms of contracts in Word documents.", "kelvarin") {
    app_.set_version_flag("--version", std::string("kelvarin ") + kVersion);
    app_.require_subcommand(1);
    app_.footer(
        "Exit status: 0 done; 1 the system refused or stopped; 2 wrong command line; 3 a file could not be read or "
        "written.\nkelvarin COMMAND --help tells a command's options.");
    AddIndex();
    AddTerms();
    AddChange("remove", Command::kRemove, "take entries, index, lists and highlighting of an earlier run away");
    AddChange("unhighlight", Command::kUnhighlight, "take the highlighting of an earlier run away, and nothing else");
    AddChange("update", Command::kUpdate, "bring the index of an earlier run up to date without marking anew");
    AddCheck();
    AddRun();
    AddInspect();
    AddOpen();
  }

  std::optional<Options> Read(int argc, const char* const* argv, int& status) {
    try {
      if (argc < 2 && HasDisplay() && HasDesktop()) {
        options_.command = Command::kOpen;
        return options_;
      }
      CheckCommand(argc, argv);
      app_.parse(argc, argv);
      FindDocuments();
      Check();
      ChooseJournal();
      if (!options_.progress) options_.progress = progress_.value_or(isatty(STDERR_FILENO) != 0);
      if (options_.quiet) options_.progress = false;
      return options_;
    } catch (const CLI::Success& success) {
      std::ostringstream text;
      status = app_.exit(success, text, text);
      WriteText(text.str(), "-");
    } catch (const Failure& failure) {
      Say(failure.what());
      status = failure.Code();
    } catch (const CLI::Error& error) {
      const std::string unknown = UnknownOption();
      Say(unknown.empty() ? error.what() : "there is no option " + unknown + "; --help lists them");
      status = kWrongCommandLine;
    }
    return {};
  }

 private:
  using Command = Options::Command;

  /// The parser would only say that there is no command.
  void CheckCommand(int argc, const char* const* argv) const {
    const std::string name = argc < 2 ? "" : argv[1];
    if (app_.get_option_no_throw(name) != nullptr) return;
    if (name.empty() || name[0] == '-') {
      throw CLI::ValidationError("a command is expected first; kelvarin --help lists them");
    }
    const auto named = [&name](const CLI::App* command) { return command->get_name() == name; };
    if (!app_.get_subcommands(named).empty()) return;
    throw CLI::ValidationError("\"" + name + "\" is no command; kelvarin --help lists them");
  }

  /// The first option that the command does not have; the parser would take its value for one file too many.
  std::string UnknownOption() const {
    for (const std::string& word : app_.remaining(true)) {
      if (word.size() > 1 && word.front() == '-') return word;
    }
    return {};
  }

  CLI::App& AddCommand(const std::string& name, Command command, const std::string& help) {
    CLI::App* added = app_.add_subcommand(name, help);
    added->callback([this, command] { options_.command = command; });
    return *added;
  }

  void AddInputs(CLI::App& command, bool several) {
    CLI::Option* inputs =
        command
            .add_option_function<std::vector<std::string>>(
                "FILE",
                [this](const std::vector<std::string>& given) {
                  const bool anyEmpty =
                      std::any_of(given.begin(), given.end(), [](const auto& one) { return one.empty(); });
                  if (anyEmpty) throw CLI::ValidationError("FILE", "a name is expected");
                  choice_.operands = given;
                },
                several ? "Word documents, folders with them, or @LIST: a file that names such, one a line"
                        : "a Word document")
            ->required()
            ->type_name("");
    if (several) {
      inputs->expected(1, std::numeric_limits<int>::max());
      takesMany_.insert(&command);
    } else {
      inputs->expected(1);
    }
  }

  void AddCommon(CLI::App& command) {
    AddPath(command, "--settings", options_.settings, "FILE",
            "use this kvx.ini, read and written; with several files each starts from it and it is left as it was");
    AddPath(command, "--report", options_.report, "FILE", "write what was done as JSON; - is standard output");
    AddPath(command, "--transcript", options_.transcript, "FILE",
            "write every dialog and call, one JSON object a line");
    command.add_option("--jobs", options_.jobs, "so many files at a time")->check(CLI::Range(1, 256))->type_name("N");
    AddMany(command);
    command.add_flag("--quiet", options_.quiet, "say nothing but why a file failed");
    AddSwitch(command, "progress", progress_, "show progress on standard error (default: when it is a terminal)");
  }

  /// What only a run over many files needs.
  void AddMany(CLI::App& command) {
    if (!takesMany_.contains(&command)) return;
    AddPath(command, "--journal", options_.journal.file, "FILE",
            "keep a record of what is done there, and pass over what it says is done already");
    AddSwitch(command, "resume", resume_, "go on where an interrupted run of the same command stopped (default)");
    command.add_option("--time-limit", options_.timeLimit, "give a file up after so many seconds; 0: never")
        ->default_val(kTimeLimit)
        ->check(CLI::Range(0, 1'000'000))
        ->type_name("SECONDS");
  }

  void AddOutput(CLI::App& command, bool several) {
    AddPath(command, "-o,--out", options_.output.file, "OUT", "write the result there (one input)");
    AddPath(command, "--out-dir", options_.output.folder, "DIR",
            several ? "write the results there, under the inputs' names" : "write the result there, under its name");
    if (several)
      AddPath(command, "--base", choice_.base, "DIR", "results keep their places below DIR (with --out-dir)");
    command.add_flag("--in-place", options_.output.inPlace, "replace the input by the result");
    command.add_flag("--force", options_.output.force, "replace an OUT that exists");
  }

  void AddSearch(CLI::App& command) {
    unattended::IndexOptions& index = options_.index;
    command
        .add_option_function<std::string>(
            "--search",
            [&index](const std::string& given) {
              using Search = unattended::IndexOptions::Search;
              index.search = given == "quoted" ? Search::kQuoted : Search::kCapitals;
            },
            "what counts as a term: a text in quotes, or any capitalised word or phrase")
        ->check(CLI::IsMember({"quoted", "capitals"}));
    AddSwitch(command, "bold", index.bold, "take quoted terms only where they are bold");
    AddSwitch(command, "case", index.matchCase, "match case");
    AddSwitch(command, "caps", index.caps, "take a term in capitals for the term");
    AddSwitch(command, "highlight", index.highlight, "highlight what was marked");
    AddSwitch(command, "ignore-numbers", index.ignoreNumbers, "leave words with digits out of capitalised phrases");
    const std::set<int> quotes{147, 148, 132, 171, 187};
    AddValue(command, "--open-quote", index.openQuote, "Windows-1252 code of the opening quote", CLI::IsMember(quotes));
    AddValue(command, "--close-quote", index.closeQuote, "and of the closing one", CLI::IsMember(quotes));
    command.add_flag("--fix-articles", index.fixArticles,
                     "move the opening quote past the article of every term that begins with one");
  }

  void AddPages(CLI::App& command) {
    command
        .add_option_function<std::string>(
            "--pages", [this](const std::string& given) { options_.pages = ReadPages(given); },
            "what page numbers rest on: file (the breaks in the file and an estimate), layout (the document is laid "
            "out with the fonts at hand), libreoffice (an installed LibreOffice lays it out), or auto, the best at "
            "hand (layout)")
        ->type_name("auto|file|layout|libreoffice");
  }

  void AddPlace(CLI::App& command) {
    command
        .add_option_function<std::string>(
            "--at",
            [this](const std::string& given) {
              options_.at = ReadPlace(given);
              if (!options_.at) throw CLI::ValidationError("--at", "\"" + given + "\" is no place");
            },
            "where the cursor stands, and so where a first index goes (default: end)")
        ->type_name("end|start|bookmark:NAME|after:TEXT|char:N");
  }

  void AddIndex() {
    CLI::App& command = AddCommand("index", Command::kIndex, "find defined terms, mark them and insert the index");
    AddInputs(command, true);
    AddOutput(command, true);
    AddSearch(command);
    unattended::IndexOptions& index = options_.index;
    AddValue(command, "--columns", index.columns, "columns of the index", CLI::Range(1, 4));
    AddValue(command, "--separator", index.separator, "what stands between a term and its pages");
    AddSwitch(command, "tab", index.tab, "end the separator with a tab");
    AddSwitch(command, "not-used", index.notUsed,
              "write the list of terms that are defined but not used, or used only once, behind the index");
    AddSwitch(command, "not-found", index.notFound, "write the list of terms that are not found behind the index");
    command
        .add_option_function<std::string>(
            "--what",
            [&index](const std::string& given) {
              using What = unattended::IndexOptions::What;
              index.what = given == "all" ? What::kAll : What::kDefinitions;
            },
            "all occurrences, or definitions only")
        ->check(CLI::IsMember({"all", "definitions"}));
    command.add_option("--add", index.add, "index this term too (may be repeated)")
        ->type_name("TERM")
        ->allow_extra_args(false);
    command
        .add_option_function<std::string>(
            "--load", [&index](const std::string& given) { index.load = given; },
            "index the terms of this list too, a .txt file with one term a line")
        ->type_name("FILE");
    command.add_option("--exclude", index.exclude, "do not index this found term (may be repeated)")
        ->type_name("TERM")
        ->allow_extra_args(false);
    command.add_flag("--only-added", index.onlyAdded, "index no found term");
    AddPlace(command);
    AddPages(command);
    AddCommon(command);
  }

  void AddTerms() {
    CLI::App& command = AddCommand("terms", Command::kTerms, "print the candidate terms, one a line");
    AddInputs(command, false);
    AddSearch(command);
    command.add_flag(
        "--json", options_.json,
        "print an array of objects, which say where each term stands and whether it is capitalised only in "
        "headings or at sentence starts");
    AddPages(command);
    AddCommon(command);
  }

  void AddChange(const std::string& name, Command command, const std::string& help) {
    CLI::App& added =
        AddCommand(name, command, help + "; a document that was never indexed is written as it is, byte for byte");
    AddInputs(added, true);
    AddOutput(added, true);
    if (command == Command::kUpdate) AddPages(added);
    AddCommon(added);
  }

  void AddCheck() {
    CLI::App& command = AddCommand("check", Command::kCheck,
                                   "tell what a drafter may have got wrong with the defined terms; nothing is changed");
    AddInputs(command, true);
    command.add_flag("--json", options_.json, "print an object for each document, one a line");
    AddPath(command, "--html", options_.html, "FILE", "write a page about all documents; - is standard output");
    AddPages(command);
    AddCommon(command);
  }

  void AddRun() {
    const std::map<std::string, Command> commands{{"index", Command::kIndex},
                                                  {"remove", Command::kRemove},
                                                  {"unhighlight", Command::kUnhighlight},
                                                  {"update", Command::kUpdate}};
    CLI::App& command = AddCommand("run", Command::kRun, "run a command with its dialogs answered from a file");
    command
        .add_option_function<std::string>(
            "COMMAND", [this, commands](const std::string& name) { options_.runCommand = commands.at(name); },
            "index, remove, unhighlight or update")
        ->required()
        ->type_name("")
        ->check(CLI::IsMember(commands));
    AddInputs(command, false);
    AddOutput(command, false);
    AddPath(command, "--answers", options_.answers, "FILE", "the state at the start and the answers, as JSON");
    command.add_flag("--strict", options_.strict, "stop at a dialog that the next answer does not fit");
    AddPlace(command);
    AddPages(command);
    AddCommon(command);
  }

  void AddOpen() {
    CLI::App& command = AddCommand("open", Command::kOpen, "show a document in a window, to work in its dialogs");
    AddInputs(command, false);
    command.get_option("FILE")->required(false);
  }

  void AddInspect() {
    CLI::App& command = AddCommand("inspect", Command::kInspect, "print the document as JSON");
    AddInputs(command, false);
    AddPages(command);
    AddCommon(command);
  }

  void Check() {
    const OutputOptions& output = options_.output;
    const int places = output.file.has_value() + output.folder.has_value() + output.inPlace;
    if (places > 1) throw CLI::ValidationError("-o, --out-dir, --in-place", "only one of them can be used");
    const std::set<Command> writing{Command::kIndex, Command::kRemove, Command::kUnhighlight, Command::kUpdate};
    const bool needsOutput = writing.contains(options_.command);
    if (needsOutput && places == 0) throw CLI::RequiredError("-o OUT, --out-dir DIR or --in-place");
    const bool several = options_.inputs.size() > 1 || choice_.operands.size() > 1;
    if (output.file && several) throw CLI::ValidationError("-o", "takes one input; use --out-dir");
    CheckWrittenFiles(options_);
  }

  void FindDocuments() {
    const CLI::App* command = app_.get_subcommands().front();
    if (!takesMany_.contains(command)) {
      for (const std::string& operand : choice_.operands) options_.inputs.push_back({.file = operand, .name = {}});
    } else {
      if (choice_.base && !options_.output.folder)
        throw CLI::ValidationError("--base", "is of use with --out-dir only");
      choice_.output = options_.output.folder;
      options_.inputs = FindInputs(choice_);
      std::error_code error;
      const std::string& first = choice_.operands.front();
      // A pattern of the shell may stand for one file by chance, and what was asked for holds for that, too.
      const bool asked = options_.journal.file || command->get_option("--time-limit")->count() > 0;
      options_.many = asked || choice_.operands.size() > 1 || first.starts_with("@") || fs::is_directory(first, error);
      // No failure: where names are divided among lists, some have none.
      if (options_.inputs.empty() && !options_.quiet) Say("no files are named");
    }
    for (Input& input : options_.inputs) {
      if (input.name.empty()) input.name = input.file.filename();
    }
  }

  void ChooseJournal() {
    JournalOptions& journal = options_.journal;
    if (!options_.many) {
      journal.file.reset();
      return;
    }
    journal.kept = journal.file.has_value();
    if (!journal.kept && options_.output.folder && resume_.value_or(true)) {
      journal.file = *options_.output.folder / OwnJournalName();
    }
    journal.options = GivenOptions();
  }

  /// The same for the same command, whatever it says of how it is to be run.
  std::string OwnJournalName() const {
    std::error_code error;
    std::string command = fs::current_path(error).string() + '\0' + app_.get_subcommands().front()->get_name();
    for (const std::string& operand : choice_.operands) command += '\0' + operand;
    const std::uint32_t code = Checksum(command);
    char name[40];
    std::snprintf(name, sizeof name, ".kelvarin-%08x.journal", static_cast<unsigned>(code));
    return name;
  }

  /// The options that results depend on, and the content of the files that they name.
  std::string GivenOptions() const {
    const std::set<std::string> indifferent{"FILE",    "--jobs",       "--quiet",      "--progress", "--report",
                                            "--force", "--transcript", "--journal",    "--resume",   "--base",
                                            "--out",   "--out-dir",    "--time-limit", "--html",     "--json"};
    const CLI::App* command = app_.get_subcommands().front();
    json::Value given{{"program", kVersion}, {"command", command->get_name()}};
    for (const CLI::Option* option : command->get_options()) {
      if (option->count() > 0 && !indifferent.contains(option->get_name()))
        given[option->get_name()] = option->results();
    }
    const auto addContent = [&given](const char* name, const fs::path& file) {
      if (const std::optional<Identity> content = IdentityOf(file)) given[name] = {content->size, content->checksum};
    };
    addContent("settings", options_.settings ? *options_.settings : PersonsSettingsFile());
    if (options_.index.load) addContent("list", *options_.index.load);
    return json::InAscii(given);
  }

  CLI::App app_;
  Options options_;
  InputChoice choice_;
  std::set<const CLI::App*> takesMany_;
  std::optional<bool> progress_;
  std::optional<bool> resume_;
};

}  // namespace

std::optional<Options> ReadCommandLine(int argc, const char* const* argv, int& status) {
  return Reader().Read(argc, argv, status);
}
