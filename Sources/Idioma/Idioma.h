// The language in which the program speaks to people: messages are English in the code, and the catalogue
// po/pt_BR.po has them in Portuguese. Neither data nor anything the library libcotepe says is ever
// translated.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace cotepe {

/// What fills the places of a message, in order: "{1}" is the first.
using Partes = std::initializer_list<std::string_view>;

/// Takes the language of the messages from the environment (LANGUAGE, LC_ALL, LC_MESSAGES, LANG), and nothing
/// else from a locale: numbers, dates and the reading of bytes stay as in the C locale. The catalogues are
/// found relative to the executable, whether installed, moved or just built. To be called by main() only;
/// without it every message is English.
void escolheIdioma();

/// The message in the user's language, in UTF-8; the message itself where the catalogue has none.
const char* traduz(const char* mensagem);

/// A model, in any language, with its places filled. A place without a part stays as written, and so do other
/// braces: no catalogue can do harm.
std::string preenche(const char* modelo, Partes partes);

/// The message in the user's language with its places filled in this way.
std::string frase(const char* modelo, Partes partes);

/// The same for a counted message, in the form that the language uses for that count; "{n}" is the count.
std::string fraseDe(const char* um, const char* varios, long long quantos, Partes partes = {});

/// The system's words for a value of errno, in the user's language.
std::string motivoDoSistema(int codigo);

/// A count as people write it, with a separator between thousands.
std::string contado(long long quantos);

/// While one exists, messages are English whatever the user's language: for output that programs read.
class EmIngles {
 public:
  EmIngles();
  ~EmIngles();
  EmIngles(const EmIngles&) = delete;
  EmIngles& operator=(const EmIngles&) = delete;
};

/// Marks a message of a table for the catalogue; traduz translates it where it is shown.
constexpr const char* marca(const char* mensagem) { return mensagem; }

}  // namespace cotepe
