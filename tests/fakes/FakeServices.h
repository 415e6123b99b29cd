#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "platform/os/Characters.h"
#include "platform/os/FileDialogs.h"
#include "platform/os/Files.h"
#include "platform/os/Folders.h"
#include "platform/os/Help.h"
#include "platform/os/Messages.h"
#include "platform/os/Processes.h"
#include "platform/os/Profile.h"
#include "platform/os/Shell.h"
#include "platform/os/UserSettings.h"
#include "tests/fakes/CallLog.h"

/// The operating system's services in memory.
namespace fakes {

/// Files and folders as two sets; paths compare as they stand, with doubled separators made single.
class FakeFiles : public os::Files {
 public:
  static std::u16string Single(std::u16string_view path) {
    std::u16string result;
    for (const char16_t unit : path) {
      if (unit != u'\\' || result.empty() || result.back() != u'\\') result += unit;
    }
    return result;
  }
  bool FileExists(std::u16string_view path) override { return files.count(Single(path)) != 0; }
  bool FolderExists(std::u16string_view path) override { return folders.count(Single(path)) != 0; }
  int Attributes(std::u16string_view path) override {
    const auto found = attributes.find(Single(path));
    return found == attributes.end() ? os::kArchive : found->second;
  }
  void CreateFolder(std::u16string_view path) override {
    const std::u16string folder = Single(path);
    if (!folders.count(folder.substr(0, folder.rfind(u'\\')))) {
      throw word::HostError(word::kPathNotFound, u"Path not found", "CreateFolder");
    }
    created.push_back(folder);
    folders.insert(folder);
  }
  void OpenForBinary(std::u16string_view path) override {
    if (locked.count(Single(path)) != 0) {
      throw word::HostError(word::kPermissionDenied, u"Permission denied", "OpenForBinary");
    }
    RequireFolder(path);
    files.insert(Single(path));
  }
  std::string Read(std::u16string_view path) override {
    if (!FileExists(path)) throw word::HostError(word::kFileNotFound, u"File not found", "Read");
    if (unreadable.count(Single(path)) != 0) throw word::HostError(word::kDeviceError, u"Device I/O error", "Read");
    return contents[Single(path)];
  }
  std::unique_ptr<os::OutputFile> OpenForOutput(std::u16string_view path) override {
    RequireFolder(path);
    return std::make_unique<Output>(*this, Single(path));
  }

  std::set<std::u16string> files;
  std::set<std::u16string> folders;
  std::vector<std::u16string> created;
  /// Of files that are more than merely there.
  std::map<std::u16string, int> attributes;
  /// The bytes of files; one that is not here is empty.
  std::map<std::u16string, std::string> contents;
  std::set<std::u16string> locked;
  std::set<std::u16string> unreadable;
  /// How many bytes can still be written.
  std::size_t space{1000000};

 private:
  class Output : public os::OutputFile {
   public:
    Output(FakeFiles& files, std::u16string path) : files_(files), path_(std::move(path)) {}
    void Write(std::string_view bytes) override {
      if (bytes.size() > files_.space) throw word::HostError(word::kDiskFull, u"Disk full", "Write");
      files_.space -= bytes.size();
      content_ += bytes;
    }
    void Close() override {
      files_.files.insert(path_);
      files_.contents[path_] = content_;
    }

   private:
    FakeFiles& files_;
    std::u16string path_;
    std::string content_;
  };

  void RequireFolder(std::u16string_view path) {
    const std::u16string file = Single(path);
    if (!folders.count(file.substr(0, file.rfind(u'\\')))) {
      throw word::HostError(word::kPathNotFound, u"Path not found", "FakeFiles");
    }
  }
};

/// Answers from a queue of paths; an empty queue cancels. Keeps what it was asked.
class FakeFileDialogs : public os::FileDialogs {
 public:
  std::u16string Choose(const os::FileDialog& dialog) override {
    asked.push_back(dialog);
    if (paths.empty()) return {};
    const std::u16string path = paths.front();
    paths.pop_front();
    return path;
  }
  std::deque<std::u16string> paths;
  std::vector<os::FileDialog> asked;
};

/// Opens nothing, and keeps what it was asked.
class FakeShell : public os::Shell {
 public:
  bool Open(std::u16string_view verb, std::u16string_view path, std::intptr_t owner) override {
    opened.push_back({std::u16string(verb), std::u16string(path), owner});
    return true;
  }
  struct Call {
    std::u16string verb;
    std::u16string path;
    std::intptr_t owner;
  };
  std::vector<Call> opened;
};

class FakeHelp : public os::Help {
 public:
  void Show(std::u16string_view file, int command, int data, std::intptr_t owner) override {
    shown.push_back({std::u16string(file), command, data, owner});
  }
  struct Call {
    std::u16string file;
    int command;
    int data;
    std::intptr_t owner;
  };
  std::vector<Call> shown;
};

/// One settings file in memory; writing makes it. Values lose one enclosing pair of quotes on reading. Reading compares
/// keys without regard to case.
class FakeProfile : public os::Profile {
 public:
  explicit FakeProfile(FakeFiles& files) : files_(files) {}

  std::u16string Read(std::u16string_view section, std::u16string_view key, std::u16string_view defaultValue, int size,
                      std::u16string_view path) override {
    if (files_.unreadable.count(FakeFiles::Single(path)) != 0) {
      throw word::HostError(word::kDeviceError, u"Device I/O error", "Read");
    }
    if (!files_.FileExists(path)) return std::u16string(defaultValue);
    const auto found = std::find_if(values.begin(), values.end(), [&](const auto& entry) {
      return entry.first.first == section && SameKey(entry.first.second, key);
    });
    std::u16string value = found == values.end() ? std::u16string(defaultValue) : found->second;
    if (value.size() >= 2 && value.front() == u'"' && value.back() == u'"') value = value.substr(1, value.size() - 2);
    return value.substr(0, static_cast<std::size_t>(size - 1));
  }
  bool Write(std::u16string_view section, std::u16string_view key, std::u16string_view value,
             std::u16string_view path) override {
    if (failing.count(std::u16string(key)) != 0) return false;
    lastPath = path;
    files_.files.insert(FakeFiles::Single(path));
    values[{std::u16string(section), std::u16string(key)}] = value;
    written.emplace_back(key);
    return true;
  }

  std::u16string& operator[](std::u16string_view key) { return values[{u"Defaults", std::u16string(key)}]; }

  std::map<std::pair<std::u16string, std::u16string>, std::u16string> values;
  /// Keys in the order in which they were written.
  std::vector<std::u16string> written;
  /// Keys whose writing fails.
  std::set<std::u16string> failing;
  std::u16string lastPath;

 private:
  static bool SameKey(std::u16string_view left, std::u16string_view right) {
    const auto lower = [](char16_t unit) { return unit >= u'A' && unit <= u'Z' ? unit + 32 : +unit; };
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [&](char16_t a, char16_t b) { return lower(a) == lower(b); });
  }
  FakeFiles& files_;
};

class FakeFolders : public os::Folders {
 public:
  std::u16string SpecialFolder(int folder, std::intptr_t owner) override {
    askedFor = folder;
    askedOwner = owner;
    return applicationData;
  }
  std::u16string applicationData{u"C:\\Data"};
  int askedFor{0};
  std::intptr_t askedOwner{-1};
};

/// ASCII is all that the tests need.
class FakeCharacters : public os::Characters {
 public:
  std::u16string ToUpper(std::u16string_view text) override { return Map(text, u'a', u'z', -32); }
  std::u16string ToLower(std::u16string_view text) override { return Map(text, u'A', u'Z', 32); }
  char32_t Fold(char32_t character) override {
    return character >= U'A' && character <= U'Z' ? character + 32 : character;
  }
  bool IsWordCharacter(char32_t character) override {
    const char32_t folded = Fold(character);
    return (folded >= U'a' && folded <= U'z') || (character >= U'0' && character <= U'9');
  }

 private:
  static std::u16string Map(std::u16string_view text, char16_t first, char16_t last, int shift) {
    std::u16string result(text);
    for (char16_t& unit : result) {
      if (unit >= first && unit <= last) unit = static_cast<char16_t>(unit + shift);
    }
    return result;
  }
};

class FakeProcesses : public os::Processes {
 public:
  std::vector<std::u16string> ModuleFileNames() override { return names; }
  std::vector<std::u16string> names{u"C:\\Office\\WINWORD.EXE"};
};

class FakeUserSettings : public os::UserSettings {
 public:
  std::u16string Read(std::u16string_view section, std::u16string_view key, std::u16string_view defaultValue) override {
    const auto found = values.find({std::u16string(section), std::u16string(key)});
    return found == values.end() ? std::u16string(defaultValue) : found->second;
  }
  void Write(std::u16string_view section, std::u16string_view key, std::u16string_view value) override {
    values[{std::u16string(section), std::u16string(key)}] = value;
  }
  std::map<std::pair<std::u16string, std::u16string>, std::u16string> values;
};

/// Answers from a queue. A box that nobody expected, or an expected one that never came, fails the test.
class FakeMessages : public os::Messages {
 public:
  explicit FakeMessages(CallLog& log) : log_(log) {}
  ~FakeMessages() override {
    for (const auto& [title, pressed] : expected_) ADD_FAILURE() << "message that never came: " << Plain(title);
  }
  void Expect(std::u16string title, os::Pressed press = os::Pressed::kOk) {
    expected_.emplace_back(std::move(title), press);
  }
  os::Pressed Show(std::u16string_view title, std::u16string_view text, os::Icon icon, os::Buttons buttons) override {
    log_.Add("message " + Plain(title));
    shown.push_back({std::u16string(title), std::u16string(text), icon, buttons});
    if (expected_.empty() || expected_.front().first != title) {
      ADD_FAILURE() << "unexpected message \"" << Plain(title) << "\": " << Plain(text);
      return os::Pressed::kOk;
    }
    const os::Pressed pressed = expected_.front().second;
    expected_.pop_front();
    return pressed;
  }

  struct Box {
    std::u16string title;
    std::u16string text;
    os::Icon icon;
    os::Buttons buttons;
  };
  std::vector<Box> shown;

 private:
  CallLog& log_;
  std::deque<std::pair<std::u16string, os::Pressed>> expected_;
};

}  // namespace fakes
