#include "Valores.h"

#include <algorithm>
#include <charconv>
#include <system_error>
#include <utility>

#include "Corrida/Dia.h"
#include "Idioma/Idioma.h"
#include "Registros/Catalogo.h"
#include "Sugestao.h"

namespace cotepe::programa {
namespace {

std::string citado(const std::string& texto) { return texto.empty() ? traduz("nothing") : texto; }

std::string minusculas(std::string texto) {
  for (char& c : texto)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return texto;
}

std::string lista(const std::vector<std::string>& palavras, const char* separador) {
  std::string texto;
  for (const std::string& palavra : palavras) texto += (texto.empty() ? "" : separador) + palavra;
  return texto;
}

// Changes the text to the spelling of the word that it matches; false when it matches none.
bool tornaPalavra(std::string& texto, const std::vector<std::string>& palavras) {
  const auto igual = [&](const std::string& palavra) { return minusculas(palavra) == minusculas(texto); };
  const auto achada = std::find_if(palavras.begin(), palavras.end(), igual);
  if (achada == palavras.end()) return false;
  texto = *achada;
  return true;
}

std::vector<std::string> codigos() {
  std::vector<std::string> todos;
  for (const Registro* registro : kCatalogo) todos.emplace_back(registro->codigo);
  return todos;
}

}  // namespace

CLI::Validator numeroEntre(long menor, long maior) {
  const auto le = [menor, maior](std::string& texto) {
    long valor = 0;
    const char* fim = texto.data() + texto.size();
    const auto lido = std::from_chars(texto.data(), fim, valor);
    if (lido.ec == std::errc() && lido.ptr == fim && valor >= menor && valor <= maior) {
      texto = std::to_string(valor);
      return std::string();
    }
    return maior == std::numeric_limits<long>::max()
               ? frase("{1} is not a number from {2} on", {citado(texto), std::to_string(menor)})
               : frase("{1} is not a number from {2} to {3}",
                       {citado(texto), std::to_string(menor), std::to_string(maior)});
  };
  return {le, ""};
}

CLI::Validator escolha(std::vector<std::string> palavras) {
  const std::string descricao = '{' + lista(palavras, ",") + '}';
  const auto le = [palavras = std::move(palavras)](std::string& texto) {
    if (tornaPalavra(texto, palavras)) return std::string();
    return frase("{1} is none of {2}", {citado(texto), lista(palavras, ", ")}) +
           voceQuisDizer(texto, palavras);
  };
  return {le, descricao};
}

CLI::Validator comandoDoEcf() { return escolha({"MF", "MFD", "TDM", "RZ"}); }

CLI::Validator codigoDeRegistro() {
  const auto le = [](std::string& texto) {
    const std::vector<std::string> todos = codigos();
    if (tornaPalavra(texto, todos)) return std::string();
    return frase("{1} is not a register; they are {2} to {3}", {citado(texto), todos.front(), todos.back()}) +
           voceQuisDizer(texto, todos);
  };
  return {le, ""};
}

CLI::Validator dia() {
  const auto le = [](std::string& texto) {
    const auto lido = Dia::le(texto);
    if (!lido) return frase("{1} is not a day; write it as DD/MM/YYYY or YYYY-MM-DD", {citado(texto)});
    texto = lido->iso();
    return std::string();
  };
  return {le, ""};
}

CLI::Validator mes() {
  const auto le = [](std::string& texto) {
    const auto barra = Dia::le("01/" + texto), hifen = Dia::le(texto + "-01");
    if (!barra && !hifen) return frase("{1} is not a month; write it as YYYY-MM or MM/YYYY", {citado(texto)});
    texto = (barra ? barra : hifen)->iso().substr(0, 7);
    return std::string();
  };
  return {le, ""};
}

}  // namespace cotepe::programa
