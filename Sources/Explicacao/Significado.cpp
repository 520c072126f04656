// What the bytes of a field mean to people.
#include <string_view>

#include "Explicacao/Explicacao.h"
#include "Idioma/Idioma.h"
#include "Leiaute/Releitura.h"
#include "Leitor/Valor.h"

namespace cotepe {
namespace {

// Codes such as 01T1800: number, tax, rate in hundredths of a percent.
std::string_view impostoDe(std::string_view codigo) {
  const bool comTaxa = codigo.size() == 7 && soDigitos(codigo.substr(0, 2)) && soDigitos(codigo.substr(3));
  if (!comTaxa) return {};
  return codigo[2] == 'T' ? "ICMS" : codigo[2] == 'S' ? "ISSQN" : "";
}

std::string emPalavras(const Campo& campo, std::string_view valor) {
  for (int i = 0; i < campo.quantosCodigos; ++i)
    if (campo.codigos[i].valor == valor) return traduz(campo.codigos[i].palavras);
  if (!campo.deTotalizador || impostoDe(valor).empty()) return {};
  const std::string inteiros(valor.substr(valor[3] == '0' ? 4 : 3, valor[3] == '0' ? 1 : 2));
  return std::string(impostoDe(valor)) + ' ' + inteiros + ',' + std::string(valor.substr(5)) + " %";
}

bool deDinheiro(Especie especie) { return especie == Especie::Dinheiro || especie == Especie::DinheiroDuplo; }

std::string defeituoso(const CampoLido& lugar, std::string_view bytes) {
  if (bytes.empty()) return traduz("nothing: the line ends before it");
  if (bytes.size() < static_cast<std::size_t>(lugar.largura))
    return traduz("cut short: the line ends inside it");
  if (lugar.campo->largura > lugar.largura)
    return traduz("the first digits alone: what follows stands over the others");
  return traduz("nothing that a field of its kind can hold");
}

}  // namespace

std::string significadoDe(const RegistroLido& lido, std::size_t campo) {
  const CampoLido& lugar = lido.campos[campo];
  const std::string_view bytes = lido.bytes(campo);
  const Valor valor = valorDe(lido, campo);
  if (valor.tipo == TipoDeValor::Bytes) return defeituoso(lugar, bytes);
  if (valor.tipo == TipoDeValor::Ausente) return traduz("blank: none");
  const std::string texto = paraPessoas(valor, bytes);
  if (deDinheiro(lugar.campo->especie)) return "R$ " + texto;
  if (valor.tipo == TipoDeValor::Inteiro) return valor.texto;
  const std::string palavras = emPalavras(*lugar.campo, semBrancosNoFim(bytes));
  if (texto.empty()) return palavras.empty() ? traduz("blank: none") : palavras;
  return palavras.empty() ? texto : texto + ": " + palavras;
}

}  // namespace cotepe
