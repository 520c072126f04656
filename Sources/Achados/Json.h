// Small pieces of JSON, written straight to a stream.
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>

namespace cotepe {

/// The text as a JSON string, quotes included. Bytes that are not UTF-8 are taken as Latin-1, so that the
/// result is valid whatever the text holds.
std::string textoJson(std::string_view texto);

/// A file name as the path of a URI reference: all but letters, digits and -._~/ percent-encoded.
std::string uriDoArquivo(std::string_view nome);

/// One object, member by member; opened by the constructor.
class ObjetoJson {
 public:
  explicit ObjetoJson(std::ostream& saida);

  ObjetoJson& texto(const char* nome, std::string_view valor);
  ObjetoJson& numero(const char* nome, long valor);
  ObjetoJson& textoSeHouver(const char* nome, std::string_view valor);
  ObjetoJson& numeroSeHouver(const char* nome, long valor);
  void fecha();

 private:
  std::ostream& membro(const char* nome);

  std::ostream& saida_;
  bool primeiro_ = true;
};

}  // namespace cotepe
