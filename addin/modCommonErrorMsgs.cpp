#include "addin/modCommonErrorMsgs.h"

#include "platform/Text.h"
#include "platform/word/HostError.h"

#include <exception>
#include <new>
#include <string>

namespace {

/// For failures that have no number of the host's.
constexpr int kInternalError = 51;

std::u16string FromPlain(std::string_view text) {
  std::u16string result;
  for (const char byte : text) result += static_cast<unsigned char>(byte) < 0x80 ? static_cast<char16_t>(byte) : u'?';
  return result;
}

void ShowError(os::Messages& messages, std::u16string_view title, int number, std::u16string_view description) {
  std::u16string text = u"Error: ";
  text += Decimal(number);
  text += u' ';
  text += description;
  messages.Show(title, text, os::Icon::kCritical, os::Buttons::kOk);
}

}  // namespace

bool TrapErrors(os::Messages& messages, std::u16string_view title, const std::function<void()>& body) {
  try {
    body();
    return true;
  } catch (const word::HostError& error) {
    ShowError(messages, title, error.Number(), error.Description());
  } catch (const std::bad_alloc&) {
    ShowError(messages, title, word::kOutOfMemory, u"Out of memory");
  } catch (const std::exception& error) {
    ShowError(messages, title, kInternalError, FromPlain(error.what()));
  }
  return false;
}

void IgnoreErrors(const std::function<void()>& step) {
  try {
    step();
  } catch (const word::HostError&) {
    // The document may be closed or protected; there is nothing left to do about it here.
  }
}

void ShowIniFileProblem(os::Messages& messages) {
  messages.Show(u"Ini file problem",
                u"There is a problem with the ini file. "
                u"Please reinstall to try to fix the problem.",
                os::Icon::kExclamation, os::Buttons::kOk);
}
