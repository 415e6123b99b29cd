#include "apps/kelvarin/CheckOutput.h"

#include "apps/kelvarin/CheckReport.h"
#include "apps/kelvarin/Output.h"
#include "hosts/json/Json.h"

namespace {

using Json = json::Value;

}  // namespace

CheckOutput::CheckOutput(const Options& options) : options_(options) {
  if (!options_.html) return;
  page_.emplace();
  // A page that cannot be written is told of before hours of work, not behind them.
  const TextSink unused(*options_.html);
}

void CheckOutput::Take(const FileResult& result) {
  if (result.result.empty()) {
    if (!page_ || result.report.empty()) return;
    const Json report = json::Read(result.report);
    const Json& messages = report.at("messages");
    page_->AddFailure(report.at("file").get<std::string>(),
                      messages.empty() ? "could not be checked" : messages.back().at("text").get<std::string>());
    return;
  }
  if (options_.json) {
    WriteText(result.result + "\n", "-");
  } else if (!page_ || *options_.html != "-") {
    WriteText((anyShown_ ? "\n" : "") + CheckAsText(json::Read(result.result)), "-");
    anyShown_ = true;
  }
  if (page_) page_->Add(json::Read(result.result));
}

void CheckOutput::Finish() {
  if (page_) page_->Write(*options_.html);
}
