#pragma once

#include <string_view>

#include "platform/Host.h"
#include "platform/forms/Form.h"

/// Opens a document or page for a form, by the program that is there for it. Where none takes it, that is reported.
/// @param verb as the operating system knows it, @param path a file in Windows form, or a web address
void StartBrowser(const Host& host, std::u16string_view verb, std::u16string_view path, forms::Form& form);
