// The rival: the engine of Leiaute/Composicao.h written with the printf family. A program that links this
// file uses it instead of the library's; lists, queries and stream are the same, so the difference is the
// writing of the fields.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "Financial.h"
#include "Leiaute/Composicao.h"
#include "Leiaute/Texto.h"

namespace cotepe {
namespace {

constexpr std::size_t kTexto = 601;     // the longest text of a field, and its terminator
constexpr std::size_t kRegistro = 890;  // the longest record, and some more
constexpr std::size_t kNumero = 32;     // of any number of 64 bits at any width of the lists

const char* textoDe(const Campo& campo, const Fonte& fonte, const Execucao& execucao) {
  switch (campo.origem.tipo) {
    case Origem::Tipo::Coluna:
      return fonte.texto(campo.origem.coluna);
    case Origem::Tipo::Ajuste:
      return execucao.ajustes().*campo.origem.ajuste;
    case Origem::Tipo::Funcao:
      return campo.origem.funcao(fonte, execucao);
    case Origem::Tipo::Constante:
      return campo.origem.constante;
    case Origem::Tipo::Nenhuma:
      break;
  }
  return "";
}

int larguraDe(const Campo& campo, const Execucao& execucao) {
  return campo.largura == Campo::kLarguraDoContador ? execucao.ajustes().larguraDoContador : campo.largura;
}

// Without clearing the rest, as is usual for fixed buffers: that is in the rival's favour.
void copia(char* destino, const char* texto) {
  const std::size_t tamanho = strnlen(texto, kTexto - 1);
  std::memcpy(destino, texto, tamanho);
  destino[tamanho] = '\0';
}

std::size_t imprimeTexto(Linha& linha, const Campo& campo, int largura, char* texto) {
  if (campo.removePontos) removeCaractere(texto, '.');
  if (campo.removeHifens) removeCaractere(texto, '-');
  if (campo.trocaNaoAscii) trocaNaoAscii(texto);
  char* destino = linha.espaco(kTexto);
  const bool preenche = campo.especie == Especie::Texto || campo.especie == Especie::Preenchido;
  const int escritos = preenche ? std::snprintf(destino, kTexto, "%-*s", largura, texto)
                                : std::snprintf(destino, kTexto, "%s", texto);
  return static_cast<std::size_t>(escritos);
}

std::size_t imprimeNumero(Linha& linha, int largura, long long numero) {
  return static_cast<std::size_t>(std::snprintf(linha.espaco(kNumero), kNumero, "%0*lld", largura, numero));
}

std::size_t imprimeSemSinal(Linha& linha, int largura, long long numero) {
  return static_cast<std::size_t>(std::snprintf(linha.espaco(kNumero), kNumero, "%0*llu", largura,
                                                static_cast<unsigned long long>(numero)));
}

// Text to money, money to text, text to integer.
long long centavos(char* texto) {
  trocaCaractere(texto, '.', ',');
  Financial dinheiro;
  dinheiro = texto;
  dinheiro.ToString(texto, static_cast<int>(kTexto), FIN_STR_DEFAULT, 0, 0);
  removeCaractere(texto, '.');
  removeCaractere(texto, ',');
  return std::atoll(texto);
}

std::size_t imprimeData(Linha& linha, Especie especie, const char* t) {
  char* destino = linha.espaco(kNumero);
  const int escritos = especie == Especie::Data ? std::snprintf(destino, kNumero, "%c%c%c%c%c%c%c%c", t[0],
                                                                t[1], t[2], t[3], t[5], t[6], t[8], t[9])
                                                : std::snprintf(destino, kNumero, "%c%c%c%c%c%c", t[11],
                                                                t[12], t[14], t[15], t[17], t[18]);
  return static_cast<std::size_t>(escritos);
}

std::size_t imprime(Linha& linha, const Campo& campo, int largura, const Fonte& fonte,
                    const Execucao& execucao) {
  char texto[kTexto];
  copia(texto, textoDe(campo, fonte, execucao));
  switch (campo.especie) {
    case Especie::Texto:
    case Especie::ComoEsta:
    case Especie::Preenchido:
    case Especie::DataPronta:
    case Especie::HoraPronta:
      return imprimeTexto(linha, campo, largura, texto);
    case Especie::Contador:
      return imprimeNumero(linha, largura, std::atoi(texto) % execucao.ajustes().moduloDoContador);
    case Especie::Numero:
      return imprimeNumero(linha, largura,
                           campo.modulo == 0 ? std::atoi(texto) : std::atoi(texto) % campo.modulo);
    case Especie::Identificador:
      return imprimeSemSinal(linha, largura, std::atoll(texto));
    case Especie::DinheiroDuplo:
      std::snprintf(texto, kTexto, "%11.2f", std::atof(texto));
      return imprimeSemSinal(linha, largura, centavos(texto));
    case Especie::Dinheiro:
      return imprimeSemSinal(linha, largura, centavos(texto));
    case Especie::Decimal: {
      const int casas = campo.colunaDasCasas < 0 ? 0 : std::atoi(fonte.texto(campo.colunaDasCasas));
      return imprimeNumero(linha, largura, arredonda(std::atof(texto) * (casas == 3 ? 1000.0 : 100.0)));
    }
    case Especie::Data:
    case Especie::Hora:
      return imprimeData(linha, campo.especie, texto);
  }
  return 0;
}

bool numerica(Especie especie) {
  return especie == Especie::Numero || especie == Especie::Contador || especie == Especie::Identificador ||
         especie == Especie::Dinheiro || especie == Especie::DinheiroDuplo || especie == Especie::Decimal;
}

bool chega(Linha& linha, const Campo& campo, const Execucao& execucao) {
  if (!campo.existe(execucao.ajustes().versao, execucao.ajustes().cat52)) return false;
  if (campo.posicao != 0) linha.vaiPara(static_cast<std::size_t>(campo.posicao - 1));
  return true;
}

// A record of the fixed size, cleared as printing into it requires.
void zera(Linha& linha) {
  linha.limpa();
  std::memset(linha.espaco(kRegistro), 0, kRegistro);
}

}  // namespace

void compoe(Linha& linha, Campos campos, const Fonte& fonte, const Execucao& execucao) {
  for (const Campo& campo : campos) {
    if (!chega(linha, campo, execucao)) continue;
    const int largura = larguraDe(campo, execucao);
    const std::size_t escritos = imprime(linha, campo, largura, fonte, execucao);
    const std::size_t nominal = campo.desloca ? std::max(escritos, static_cast<std::size_t>(largura))
                                              : static_cast<std::size_t>(largura);
    linha.avanca(escritos, campo.naoAvanca ? 0 : nominal);
  }
}

void compoeVazio(Linha& linha, Campos campos, const Execucao& execucao) {
  for (const Campo& campo : campos) {
    if (!chega(linha, campo, execucao)) continue;
    const int largura = larguraDe(campo, execucao);
    const char* vazio = campo.textoVazio != nullptr ? campo.textoVazio : " ";
    char* destino = linha.espaco(kTexto);
    const int escritos = numerica(campo.especie) && campo.textoVazio == nullptr
                             ? std::snprintf(destino, kTexto, "%0*d", largura, 0)
                             : std::snprintf(destino, kTexto, "%-*s", largura, vazio);
    linha.avanca(static_cast<std::size_t>(escritos),
                 static_cast<std::size_t>(campo.naoAvancaVazio ? 0 : largura));
  }
}

long gravaLinhas(Execucao& execucao, Campos campos, Leitura& leitura, const Fonte& fonte) {
  Linha linha;
  long linhas = 0;
  for (; leitura.avanca(); ++linhas) {
    zera(linha);
    compoe(linha, campos, fonte, execucao);
    execucao.grava(linha);
  }
  return linhas;
}

void gravaVazio(Execucao& execucao, Campos campos) {
  std::size_t fixos = 0;
  while (fixos < campos.size() && campos[fixos].origem.fixa()) ++fixos;
  Linha linha;
  zera(linha);
  compoe(linha, campos.trecho(0, fixos), SemFonte(), execucao);
  compoeVazio(linha, campos.trecho(fixos), execucao);
  execucao.grava(linha);
}

}  // namespace cotepe
