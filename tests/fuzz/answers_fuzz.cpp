// Any bytes as an answers file: they are answers or raise the one error that there is, in a sentence.

#include "hosts/unattended/Answers.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    const auto file = unattended::ParseAnswers({reinterpret_cast<const char*>(data), size});
    for (const unattended::Answer& answer : file.answers) {
      if (unattended::Describe(answer).empty()) std::abort();
    }
  } catch (const unattended::AnswersError& error) {
    if (std::string_view(error.what()).empty()) std::abort();
  }
  return 0;
}
