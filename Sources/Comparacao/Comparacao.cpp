#include "Comparacao/Comparacao.h"

#include <algorithm>
#include <cstdio>
#include <map>

#include "Achados/Citacao.h"
#include "Idioma/Idioma.h"
#include "Leiaute/Releitura.h"
#include "Leitor/ChaveNatural.h"
#include "Leitor/Valor.h"

namespace cotepe {
namespace {

constexpr Regra regraDaDiferenca(const char* nome) { return {nome, Severidade::Erro, nullptr, nullptr}; }

constexpr Regra kCampo = regraDaDiferenca("field"), kFalta = regraDaDiferenca("missing"),
                kSobra = regraDaDiferenca("added"), kLinha = regraDaDiferenca("line"),
                kFimDeLinha = regraDaDiferenca("line-end"), kOrdem = regraDaDiferenca("order"),
                kLarguras = regraDaDiferenca("layout");

constexpr int kFolga = 16;  // lines that one side may be ahead by register: one out of place is not a gap

bool doCarimbo(const RegistroLido& lido, std::size_t campo) {
  return lido.campos[campo].campo->origem.tipo == Origem::Tipo::Relogio;
}

bool mesmoFim(const LinhaLida& a, const LinhaLida& b) { return a.comCr == b.comCr && a.semFim == b.semFim; }

bool inteira(const LinhaLida& linha) { return linha.tamanho == linha.texto.size(); }

bool mesmaLinha(const LinhaLida& a, const LinhaLida& b) {
  return a.texto == b.texto && mesmoFim(a, b) && inteira(a) && inteira(b);
}

// The value for people and, where that is a different text, the bytes too.
std::string legivel(const RegistroLido& lido, std::size_t campo) {
  const std::string_view bytes = lido.bytes(campo);
  if (bytes.empty()) return traduz("nothing");
  const Valor valor = valorDe(lido, campo);
  const bool formado = valor.tipo == TipoDeValor::Decimal || valor.tipo == TipoDeValor::Data ||
                       valor.tipo == TipoDeValor::Hora;
  return formado ? paraPessoas(valor, bytes) : entreAspas(bytes);
}

// Two texts that look the same are told apart by the first byte that differs.
std::string primeiroByte(std::string_view bytes, std::size_t i) {
  const std::string lugar = std::to_string(i + 1);
  if (i >= bytes.size()) return frase("the end at byte {1}", {lugar});
  char texto[8];
  static_cast<void>(std::snprintf(texto, sizeof texto, "0x%02X", static_cast<unsigned char>(bytes[i])));
  return frase("byte {1} {2}", {lugar, texto});
}

void diz(Achado& achado, const RegistroLido& esperado, std::size_t i, const RegistroLido& encontrado,
         std::size_t j) {
  achado.esperado = legivel(esperado, i);
  achado.encontrado = legivel(encontrado, j);
  if (achado.esperado != achado.encontrado) return;
  const std::string_view a = esperado.bytes(i), b = encontrado.bytes(j);
  const auto diferem =
      std::mismatch(a.begin(), a.begin() + static_cast<long>(std::min(a.size(), b.size())), b.begin());
  const auto primeiro = static_cast<std::size_t>(diferem.first - a.begin());
  achado.esperado = primeiroByte(a, primeiro);
  achado.encontrado = primeiroByte(b, primeiro);
}

// Pairs of places of the same field in both records; a place is -1 where a record has no such field.
std::vector<std::pair<int, int>> paresDeCampos(const RegistroLido& a, const RegistroLido& b) {
  std::map<std::pair<const Campo*, int>, int> emA;
  std::map<const Campo*, int> vezesEmA, vezesEmB;
  for (std::size_t i = 0; i < a.quantos; ++i)
    emA[{a.campos[i].campo, ++vezesEmA[a.campos[i].campo]}] = static_cast<int>(i);
  std::vector<std::pair<int, int>> pares;
  for (std::size_t j = 0; j < b.quantos; ++j) {
    const auto par = emA.find({b.campos[j].campo, ++vezesEmB[b.campos[j].campo]});
    pares.emplace_back(par == emA.end() ? -1 : par->second, static_cast<int>(j));
    if (par != emA.end()) emA.erase(par);
  }
  for (const auto& [campo, i] : emA) pares.emplace_back(i, -1);
  return pares;
}

bool soOutraLargura(const CampoLido& a, std::string_view bytesA, const CampoLido& b,
                    std::string_view bytesB) {
  if (a.largura == b.largura || bytesA.size() != static_cast<std::size_t>(a.largura) ||
      bytesB.size() != static_cast<std::size_t>(b.largura))
    return false;
  const Especie especie = a.campo->especie;
  return semEnchimento(especie, bytesA) == semEnchimento(especie, bytesB);
}

// What follows the last field.
std::string_view resto(const RegistroLido& lido) {
  std::size_t fim = 0;
  for (std::size_t i = 0; i < lido.quantos; ++i)
    fim = std::max(fim, static_cast<std::size_t>(lido.campos[i].posicao + lido.campos[i].largura));
  return fim < lido.linha.texto.size() ? lido.linha.texto.substr(fim) : std::string_view();
}

// The count is that of the file; of a line that is too long only the beginning is kept.
std::string nomeDoResto(const LinhaLida& linha, std::string_view resto) {
  if (resto.empty()) return traduz("nothing");
  const std::uint64_t quantos = linha.tamanho - (linha.texto.size() - resto.size());
  return fraseDe("{n} byte {1}", "{n} bytes {1}", static_cast<long long>(quantos), {entreAspas(resto)});
}

// As `Lado` leaves a line, in a file whose first line ends with CR and LF, or with LF.
const char* nomeDoFim(const LinhaLida& linha, bool crlf) {
  if (linha.semFim) return traduz("the end of the file");
  return linha.comCr != crlf ? traduz("CR and LF") : "LF";
}

std::string registroComChave(const RegistroLido& lido, long ordem) {
  if (lido.registro == nullptr) return frase("a line of no register, {1}", {entreAspas(lido.linha.texto)});
  const std::string qual = lido.vazio ? traduz("a placeholder record") : traduz("a record");
  const std::string chave = chaveParaPessoas(lido, ordem);
  return chave.empty() ? qual : qual + ": " + chave;
}

}  // namespace

RegistroLido Comparacao::Guardado::vista() const {
  RegistroLido copia = lido;
  copia.linha.texto = texto;
  copia.campos = campos.data();
  return copia;
}

void Comparacao::Lado::avanca() {
  do ha = registros.proximo(lido);
  while (ha && lido.assinatura());
  if (!ha) return;
  if (lido.linha.numero == 1) crlf = lido.linha.comCr;
  lido.linha.comCr = !lido.linha.semFim && lido.linha.comCr != crlf;
  if (lido.indice >= 0) bloco = static_cast<std::size_t>(lido.indice) + 1;
  ordem = ++ordens[static_cast<std::size_t>(lido.indice) + 1];
}

void Comparacao::compara(LeitorDeLinhas& esperado, LeitorDeLinhas& encontrado) {
  Lado a(esperado, opcoes_.catalogo), b(encontrado, opcoes_.catalogo);
  a.avanca();
  b.avanca();
  crlf_ = b.crlf;
  while (a.ha || b.ha) {
    if (a.ha && b.ha && mesmaLinha(a.lido.linha, b.lido.linha)) {
      ++pares_;
      confereOrdem(a.lido, b.lido, b.ordem);
      a.avanca();
      b.avanca();
    } else {
      a.adiante = b.ha && a.bloco > b.bloco ? a.adiante + 1 : 0;
      b.adiante = a.ha && b.bloco > a.bloco ? b.adiante + 1 : 0;
      const bool leA = a.ha && a.adiante <= kFolga, leB = b.ha && b.adiante <= kFolga;
      if (leA) chega(a, b, true);
      if (leB) chega(b, a, false);
      if (leA) a.avanca();
      if (leB) b.avanca();
    }
    fecha(a, b);
  }
  if (soLarguras_ == 0) return;
  Achado achado = achadoDe(kLarguras, opcoes_.encontrado);
  achado.encontrado =
      fraseDe("{n} record in fields of other widths", "{n} records in fields of other widths", soLarguras_);
  achado.esperado = frase("the widths of {1}", {opcoes_.esperado});
  achado.conserto = traduz("the values are the same");
  saida_.recebe(achado);
}

void Comparacao::chega(Lado& lado, Lado& outro, bool esperado) {
  const auto tipo = static_cast<std::size_t>(lado.lido.indice) + 1;
  const std::string chave = chaveDe(lado.lido, lado.ordem);
  const auto par = outro.pendentes[tipo].find(chave);
  if (par != outro.pendentes[tipo].end()) {
    const RegistroLido guardado = par->second.front().vista();
    if (esperado)
      confronta(lado.lido, guardado, par->second.front().ordem);
    else
      confronta(guardado, lado.lido, lado.ordem);
    par->second.pop_front();
    if (par->second.empty()) outro.pendentes[tipo].erase(par);
    return;
  }
  const RegistroLido& lido = lado.lido;
  lado.pendentes[tipo][chave].push_back({std::string(lido.linha.texto),
                                         std::vector<CampoLido>(lido.campos, lido.campos + lido.quantos),
                                         lido, lado.ordem});
}

void Comparacao::confronta(const RegistroLido& esperado, const RegistroLido& encontrado, long ordem) {
  ++pares_;
  confereOrdem(esperado, encontrado, ordem);
  if (mesmaLinha(esperado.linha, encontrado.linha)) return;
  if (confrontaCampos(esperado, encontrado, ordem) > 0) ++soLarguras_;
  confrontaResto(esperado, encontrado, ordem);
}

// Returns how many fields have the same value in another width; 0 where others differ.
int Comparacao::confrontaCampos(const RegistroLido& esperado, const RegistroLido& encontrado, long ordem) {
  int larguras = 0, diferentes = 0;
  for (const auto& [i, j] : paresDeCampos(esperado, encontrado)) {
    if (i < 0 || j < 0) {
      ++diferentes;
      const RegistroLido& tem = i < 0 ? encontrado : esperado;
      const auto k = static_cast<std::size_t>(i < 0 ? j : i);
      Achado achado = achadoEm(kCampo, esperado, encontrado, ordem);
      achado.numero = tem.campos[k].numero;
      achado.campo = rotuloUnico(tem, k);
      achado.encontrado = i < 0 ? legivel(tem, k) : traduz("no such field");
      achado.esperado = i < 0 ? traduz("no such field") : legivel(tem, k);
      saida_.recebe(achado);
      continue;
    }
    const auto a = static_cast<std::size_t>(i), b = static_cast<std::size_t>(j);
    const std::string_view bytesA = esperado.bytes(a), bytesB = encontrado.bytes(b);
    if (bytesA == bytesB ||
        (!opcoes_.comCarimbo && doCarimbo(encontrado, b) && bytesA.size() == bytesB.size()))
      continue;
    if (soOutraLargura(esperado.campos[a], bytesA, encontrado.campos[b], bytesB)) {
      ++larguras;
      continue;
    }
    ++diferentes;
    Achado achado = achadoEm(kCampo, esperado, encontrado, ordem);
    const CampoLido& campo = encontrado.campos[b];
    achado.numero = campo.numero;
    achado.campo = rotuloUnico(encontrado, b);
    achado.de = campo.posicao + 1;
    achado.ate = campo.posicao + campo.largura;
    diz(achado, esperado, a, encontrado, b);
    saida_.recebe(achado);
  }
  return diferentes > 0 ? 0 : larguras;
}

void Comparacao::confrontaResto(const RegistroLido& esperado, const RegistroLido& encontrado, long ordem) {
  const auto aponta = [&](const Regra& regra, const std::string& encontra, const std::string& espera) {
    Achado achado = achadoEm(regra, esperado, encontrado, ordem);
    achado.encontrado = encontra;
    achado.esperado = espera;
    saida_.recebe(achado);
  };
  const std::string_view restoA = resto(esperado), restoB = resto(encontrado);
  if (restoA != restoB)
    aponta(kLinha, frase("{1} behind the last field", {nomeDoResto(encontrado.linha, restoB)}),
           nomeDoResto(esperado.linha, restoA));
  if (!inteira(esperado.linha) || !inteira(encontrado.linha))
    aponta(kLinha,
           frase("a line of {1} bytes, not all of them compared", {std::to_string(encontrado.linha.tamanho)}),
           fraseDe("{n} byte", "{n} bytes", static_cast<long long>(esperado.linha.tamanho)));
  if (!mesmoFim(esperado.linha, encontrado.linha))
    aponta(kFimDeLinha, nomeDoFim(encontrado.linha, crlf_), nomeDoFim(esperado.linha, crlf_));
}

// Both sides are read in their order, so that pairs which are in order come in order.
void Comparacao::confereOrdem(const RegistroLido& esperado, const RegistroLido& encontrado, long ordem) {
  const bool fora = esperado.linha.numero < ultimaEsperada_ || encontrado.linha.numero < ultimaEncontrada_;
  ultimaEsperada_ = std::max(ultimaEsperada_, esperado.linha.numero);
  ultimaEncontrada_ = std::max(ultimaEncontrada_, encontrado.linha.numero);
  if (!fora || !opcoes_.comOrdem) return;
  Achado achado = achadoEm(kOrdem, esperado, encontrado, ordem);
  achado.encontrado = traduz("the record out of its place");
  achado.esperado = frase("the order of {1}", {opcoes_.esperado});
  saida_.recebe(achado);
}

// A register is over when both sides are in a later one, or at their end.
void Comparacao::fecha(Lado& esperado, Lado& encontrado) {
  const std::size_t ate = std::min(esperado.ha ? esperado.bloco : esperado.ordens.size(),
                                   encontrado.ha ? encontrado.bloco : encontrado.ordens.size());
  for (std::size_t tipo = 0; tipo < ate; ++tipo) {
    faltaOuSobra(esperado.pendentes[tipo], true);
    faltaOuSobra(encontrado.pendentes[tipo], false);
  }
}

void Comparacao::faltaOuSobra(Pendentes& pendentes, bool falta) {
  if (pendentes.empty()) return;
  std::vector<const Guardado*> emOrdem;
  for (const auto& item : pendentes)
    for (const Guardado& guardado : item.second) emOrdem.push_back(&guardado);
  std::sort(emOrdem.begin(), emOrdem.end(),
            [](const Guardado* a, const Guardado* b) { return a->lido.linha.numero < b->lido.linha.numero; });
  for (const Guardado* guardado : emOrdem) {
    const RegistroLido lido = guardado->vista();
    Achado achado = achadoDe(falta ? kFalta : kSobra, opcoes_.encontrado);
    achado.conteudo = guardado->texto;
    if (lido.registro != nullptr) achado.registro = lido.registro->codigo;
    const std::string qual = registroComChave(lido, guardado->ordem);
    achado.encontrado = falta ? traduz("none") : qual;
    achado.esperado = falta ? qual : traduz("none");
    if (falta) {
      achado.outraLinha = lido.linha.numero;
      achado.conserto = frase("line {1} of {2}", {std::to_string(lido.linha.numero), opcoes_.esperado});
    }
    if (!falta) achado.linha = lido.linha.numero;
    saida_.recebe(achado);
  }
  pendentes.clear();
}

Achado Comparacao::achadoEm(const Regra& regra, const RegistroLido& esperado, const RegistroLido& encontrado,
                            long ordem) const {
  Achado achado = achadoDe(regra, opcoes_.encontrado);
  achado.linha = encontrado.linha.numero;
  achado.conteudo = std::string(encontrado.linha.texto);
  if (encontrado.registro != nullptr) achado.registro = encontrado.registro->codigo;
  achado.outraLinha = esperado.linha.numero;
  const std::string chave = chaveParaPessoas(encontrado, ordem);
  achado.conserto = (chave.empty() ? "" : chave + "; ") +
                    frase("line {1} of {2}", {std::to_string(esperado.linha.numero), opcoes_.esperado});
  return achado;
}

}  // namespace cotepe
