#include "DirectSession.h"

#include "AddInSession.h"
#include "marker/MakeTermMarker.h"
#include "platform/word/Application.h"

DirectSession::DirectSession(const std::string& sample) {
  processor.SetCommandBars(bars.CommandBars());
  processor.Open(Sample(sample), {.name = u"contract.docx", .path = u"C:\\Contracts"}, file_);
  addIn_ =
      std::make_unique<Connect>(services_.Services(u"C:\\Kelvarin", [this] { return MakeTermMarker(characters_); }));
  addIn_->OnConnection(processor.Application(), ConnectMode::kStartup);
  addIn_->OnStartupComplete();
}

DirectSession::~DirectSession() { addIn_->OnDisconnection(DisconnectMode::kHostShutdown); }
