#pragma once

#include <string_view>
#include <vector>

#include "hosts/json/Json.h"
#include "hosts/recording/CallObserver.h"

/// Keeps what a run's calls into the companion tell about its outcome, and hands everything on to the transcript.
class RunLog : public recording::CallObserver {
 public:
  /// @param next outlives the log; nullptr: there is no transcript
  explicit RunLog(recording::CallObserver* next) : next_(next) {}

  void WordPut(std::string_view member, const json::Value& value) override;
  void WordCall(std::string_view member, const json::Value& value) override;
  void Marker(std::string_view operation, const json::Value& arguments, const json::Value& result) override;

  /// The index was inserted and the marking came to its end.
  bool Indexed() const { return inserted_ && ended_; }

  json::Value chosen = json::Value::array();
  /// [[term, count], ...] as the marking left it.
  json::Value table = json::Value::array();
  json::Value notUsed = json::Value::array();
  json::Value notFound = json::Value::array();

 private:
  recording::CallObserver* next_;
  bool inserted_{false};
  bool ended_{false};
};
