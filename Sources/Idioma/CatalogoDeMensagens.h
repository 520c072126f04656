// The catalogue behind the messages: gettext's, or a built-in one if there is no gettext.
#pragma once

namespace cotepe {

/// Opens the catalogue of the language that the environment asks for.
void abreCatalogo();

/// The message in that language, or the message itself.
const char* doCatalogo(const char* mensagem);

/// The same for a counted message.
const char* doCatalogo(const char* um, const char* varios, unsigned long quantos);

}  // namespace cotepe
