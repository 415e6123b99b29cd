#include "apps/kelvarin/CommandLine.h"

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <charconv>
#include <functional>
#include <iostream>
#include <limits>
#include <map>
#include <set>
#include <thread>

#include "apps/kelvarin/Status.h"
#include "apps/kelvarin/Version.h"

namespace {

namespace fs = std::filesystem;

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
          name, [&value](const std::string& given) { value = given; }, help)
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

bool IsSameFile(const fs::path& one, const fs::path& other) {
  std::error_code error;
  if (fs::equivalent(one, other, error) && !error) return true;
  return fs::weakly_canonical(fs::absolute(one), error) == fs::weakly_canonical(fs::absolute(other), error);
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
    AddRun();
    AddInspect();
    AddOpen();
  }

  std::optional<Options> Read(int argc, const char* const* argv, int& status) {
    try {
      CheckCommand(argc, argv);
      app_.parse(argc, argv);
      Check();
      if (!options_.progress) options_.progress = progress_.value_or(isatty(STDERR_FILENO) != 0);
      if (options_.quiet) options_.progress = false;
      return options_;
    } catch (const CLI::Success& success) {
      status = app_.exit(success);
    } catch (const CLI::Error& error) {
      std::cerr << "kelvarin: " << error.what() << "\n";
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
                [this](const std::vector<std::string>& given) { options_.inputs.assign(given.begin(), given.end()); },
                several ? "Word documents" : "a Word document")
            ->required()
            ->type_name("");
    if (several) {
      inputs->expected(1, std::numeric_limits<int>::max());
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
    command.add_flag("--quiet", options_.quiet, "say nothing but why a file failed");
    AddSwitch(command, "progress", progress_, "show progress on standard error (default: when it is a terminal)");
  }

  void AddOutput(CLI::App& command, bool several) {
    AddPath(command, "-o,--out", options_.output.file, "OUT", "write the result there (one input)");
    AddPath(command, "--out-dir", options_.output.folder, "DIR",
            several ? "write the results there, under the inputs' names" : "write the result there, under its name");
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
            "hand "
            "(layout)")
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
    if (output.file && options_.inputs.size() > 1) throw CLI::ValidationError("-o", "takes one input; use --out-dir");
    CheckNames();
    CheckWritten();
  }

  /// Two inputs of one name would end in one file.
  void CheckNames() const {
    if (!options_.output.folder) return;
    std::map<fs::path, fs::path> names;
    for (const fs::path& input : options_.inputs) {
      const auto [other, isNew] = names.emplace(input.filename(), input);
      if (!isNew) {
        throw CLI::ValidationError("--out-dir",
                                   other->second.string() + " and " + input.string() + " have the same name");
      }
    }
  }

  /// What is written must not be what is read, nor what something else is written to.
  void CheckWritten() const {
    struct File {
      std::string name;
      fs::path path;
    };
    std::vector<File> taken;
    for (const fs::path& input : options_.inputs) taken.push_back({"the input", input});
    if (options_.answers) taken.push_back({"--answers", *options_.answers});
    if (options_.index.load) taken.push_back({"--load", *options_.index.load});
    const auto take = [&taken](const char* name, const fs::path& path) {
      std::error_code error;
      // Nothing is lost in a device.
      if (fs::exists(path, error) && !fs::is_regular_file(path, error)) return;
      for (const File& other : taken) {
        if (!IsSameFile(path, other.path)) continue;
        throw CLI::ValidationError(name, path.string() + " would replace " + other.name +
                                             (other.name == "the input" ? "; only --in-place may" : ""));
      }
      taken.push_back({name, path});
    };
    const OutputOptions& output = options_.output;
    if (output.file) take("-o", *output.file);
    if (output.folder) {
      for (const fs::path& input : options_.inputs) take("--out-dir", *output.folder / input.filename());
    }
    if (options_.settings) take("--settings", *options_.settings);
    if (options_.report && *options_.report != "-") take("--report", *options_.report);
    if (options_.transcript && *options_.transcript != "-") take("--transcript", *options_.transcript);
  }

  CLI::App app_;
  Options options_;
  std::optional<bool> progress_;
};

}  // namespace

std::optional<Options> ReadCommandLine(int argc, const char* const* argv, int& status) {
  return Reader().Read(argc, argv, status);
}
