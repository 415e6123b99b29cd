#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <string>

#include "addin/Connect.h"
#include "apps/kelvarin/LibreOfficePdf.h"
#include "apps/kelvarin/MenuLog.h"
#include "apps/kelvarin/Options.h"
#include "apps/kelvarin/PrivateDocument.h"
#include "apps/kelvarin/PrivateSettings.h"
#include "apps/kelvarin/RunFiles.h"
#include "apps/kelvarin/RunLog.h"
#include "apps/kelvarin/RunWatch.h"
#include "hosts/docx/WordProcessor.h"
#include "hosts/linux/IcuCharacters.h"
#include "hosts/linux/LinuxDesktop.h"
#include "hosts/linux/LinuxProfile.h"
#include "hosts/linux/LinuxServices.h"
#include "hosts/unattended/RunStateOptions.h"
#include "hosts/unattended/Transcript.h"
#include "hosts/unattended/UnattendedHost.h"
#include "hosts/unattended/UnattendedServices.h"

/// One document and one run of the system on it: the hosts that stand for Word, for the operating system and for the
/// person at the screen, put together for one input file.
class Session {
 public:
  /// Opens the document, unless the state says that there is none.
  /// @param answers outlives the session
  /// @param transcript outlives the session, and gets the transcript when the options want one. Its last line is the
  /// state, also when a member throws
  /// @throws docx::PackageError, Failure
  Session(const std::filesystem::path& input, const Options& options, unattended::DialogAnswers& answers,
          const unattended::RunStateOptions& state, std::ostream& transcript);

  /// Connects the add-in as Word does, puts the cursor where the options say, gives the command, disconnects, and gives
  /// a named settings file what was written.
  /// @throws Failure kStopped when there is no such place for the cursor, kUnreadable
  void Run(const std::function<void(Connect&)>& command);

  /// Ends a session that gave no command. @throws Failure kUnreadable
  void Finish();

  bool HasDocument() const { return processor_.Document() != nullptr; }
  docx::WordProcessor& Processor() { return processor_; }
  const PrivateDocument& Document() const { return file_; }
  const RunLog& Log() const { return log_; }
  const RunWatch& Watch() const { return watch_; }
  /// "SearchFlagged" or "SearchInitCaps", as the settings have it after the run.
  std::string SearchType();

 private:
  void Open(const std::filesystem::path& input);
  void ApplyState();
  void Command(const std::function<void(Connect&)>& command);
  bool ApplyOption(const std::string& name, const unattended::RunStateOptions::OptionValue& value);
  void PlaceCursor();
  word::ApplicationPtr Application();
  std::unique_ptr<TermMarker> MakeMarker();
  template <class Work>
  void Conduct(Work work);
  void WriteState();
  /// Where help and instructions are looked for.
  std::string AddInFolder() const;
  json::Value OptionsAtEnd() const;
  json::Value StateAtEnd();
  int AttributesAtEnd();

  const Options& options_;
  unattended::RunStateOptions state_;
  PrivateSettings settings_;
  PrivateDocument file_;
  int attributes_;

  os::LinuxProfile profile_;
  RunFiles files_;
  os::LinuxFolders folders_;
  os::LinuxProcesses processes_;
  os::LinuxUserSettings userSettings_;
  os::IcuCharacters characters_;

  std::optional<unattended::Transcript> transcript_;
  RunLog log_;
  RunWatch watch_;
  unattended::UnattendedHost host_;
  unattended::UnattendedServices services_;
  std::optional<LibreOfficePdf> libreOffice_;
  MenuLog menuLog_;
  menus::MenuBars menus_{&menuLog_};
  docx::WordProcessor processor_;
};
