#pragma once

#include <nlohmann/json.hpp>
#include <string_view>
#include <vector>

#include "hosts/recording/CallObserver.h"

/// Keeps what a run's calls into the companion tell about its outcome, and hands everything on to the transcript.
class RunLog : public recording::CallObserver {
 public:
  /// @param next outlives the log; nullptr: there is no transcript
  explicit RunLog(recording::CallObserver* next) : next_(next) {}

  void WordPut(std::string_view member, const nlohmann::ordered_json& value) override;
  void WordCall(std::string_view member, const nlohmann::ordered_json& value) override;
  void Marker(std::string_view operation, const nlohmann::ordered_json& arguments,
              const nlohmann::ordered_json& result) override;

  /// The index was inserted and the marking came to its end.
  bool Indexed() const { return inserted_ && ended_; }

  nlohmann::ordered_json chosen = nlohmann::ordered_json::array();
  /// [[term, count], ...] as the marking left it.
  nlohmann::ordered_json table = nlohmann::ordered_json::array();
  nlohmann::ordered_json notUsed = nlohmann::ordered_json::array();
  nlohmann::ordered_json notFound = nlohmann::ordered_json::array();

 private:
  recording::CallObserver* next_;
  bool inserted_{false};
  bool ended_{false};
};
