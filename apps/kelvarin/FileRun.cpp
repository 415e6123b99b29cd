#include "apps/kelvarin/FileRun.h"

#include <algorithm>
#include <chrono>
#include <new>

#include "apps/kelvarin/Messages.h"
#include "hosts/docx/package/Package.h"
#include "hosts/unattended/Answers.h"
#include "hosts/unattended/Text.h"
#include "platform/word/HostError.h"

namespace {

using unattended::ToUtf8;

bool IsError(const RunWatch::ShownMessage& message) { return message.text.starts_with(u"Error: "); }

const char* Word(Status status) {
  switch (status) {
    case kDone:
      return "done";
    case kStopped:
      return "stopped";
    default:
      return "failed";
  }
}

/// Turns what ends the work early into a status and a sentence.
Status Guard(const std::filesystem::path& input, FileRecord& record, const std::function<Status(FileRecord&)>& work) {
  const auto fail = [&](Status status, const std::string& reason) {
    Say(input, reason);
    record.report.AddReason(reason);
    return status;
  };
  try {
    return work(record);
  } catch (const Failure& failure) {
    return fail(failure.Code(), failure.what());
  } catch (const docx::PackageError& error) {
    return fail(kUnreadable, error.what());
  } catch (const unattended::AnswersError& error) {
    return fail(kUnreadable, error.what());
  } catch (const word::HostError& error) {
    return fail(kStopped, "Error: " + std::to_string(error.Number()) + " " + ToUtf8(error.Description()));
  } catch (const std::bad_alloc&) {
    return fail(kUnreadable, "needs more memory than there is");
  } catch (const std::exception& error) {
    return fail(kUnreadable, std::string("could not be worked on: ") + error.what());
  }
}

}  // namespace

FileResult RunOnFile(const Options& options, const std::filesystem::path& input,
                     const std::function<Status(FileRecord&)>& work) {
  const auto start = std::chrono::steady_clock::now();
  FileRecord record{.report = Report(input)};
  const Status status = Guard(input, record, work);
  record.report.SetStatus(Word(status));
  const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
  record.report.SetSeconds(seconds.count());
  return {.status = status,
          .report = options.WantsReport() ? record.report.Line() : std::string(),
          .transcript = record.transcript.str()};
}

void TellRun(const Options& options, const std::filesystem::path& input, Session& session, Status status,
             const std::string& failure, Report& report) {
  if (options.WantsReport()) report.Fill(session);
  if (status == kDone && options.quiet) return;
  bool said = false;
  for (const RunWatch::ShownMessage& message : session.Watch().Messages()) {
    if (message.asked) continue;
    Say(input, ToUtf8(message.title) + ": " + ToUtf8(message.text));
    said = true;
  }
  std::string reason = failure;
  if (reason.empty() && status != kDone && !said) {
    const bool nothingFound = session.Watch().TermsShown() && session.Watch().Found().empty();
    reason = nothingFound ? "no defined terms were found, and none were added" : "nothing was indexed";
  }
  if (reason.empty()) return;
  Say(input, reason);
  report.AddReason(reason);
}

Status IndexingStatus(const Session& session, const std::string& failure) {
  const auto& messages = session.Watch().Messages();
  const bool failed = !failure.empty() || std::any_of(messages.begin(), messages.end(), IsError);
  return session.Log().Indexed() && !failed ? kDone : kStopped;
}
