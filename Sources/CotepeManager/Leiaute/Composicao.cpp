#include "Leiaute/Composicao.h"

#include <algorithm>
#include <cstring>

#include "Financial.h"
#include "Leiaute/Releitura.h"
#include "Leiaute/Texto.h"

namespace cotepe {
namespace {

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

// Cleans a terminated text as the field asks and returns the length that is left.
std::size_t limpa(const Campo& campo, char* texto, std::size_t tamanho) {
  if (campo.removePontos) tamanho = removeCaractere(texto, '.');
  if (campo.removeHifens) tamanho = removeCaractere(texto, '-');
  if (campo.trocaNaoAscii) tamanho = trocaNaoAscii(texto);
  return tamanho;
}

std::size_t escreveTexto(Linha& linha, const Campo& campo, const char* texto, std::size_t largura) {
  const std::size_t tamanho = std::strlen(texto);
  char* destino = linha.espaco(std::max(tamanho, largura));
  std::memcpy(destino, texto, tamanho + 1);
  const std::size_t limpo = limpa(campo, destino, tamanho);
  if (campo.especie != Especie::Texto || limpo >= largura) return limpo;
  std::memset(destino + limpo, ' ', largura - limpo);
  return largura;
}

// The host's routine takes a text that it may change and fills the width; where it puts more or less, the
// law of the line holds for what it put.
std::size_t escrevePreenchido(Linha& linha, const Campo& campo, const char* texto, const Execucao& execucao) {
  const std::size_t tamanho = std::strlen(texto);
  const auto largura = static_cast<std::size_t>(campo.largura);
  const std::size_t destinado = std::max(tamanho, largura) + 1;
  char* destino = linha.espaco(destinado + tamanho + 1);
  char* copia = destino + destinado;
  std::memcpy(copia, texto, tamanho + 1);
  limpa(campo, copia, tamanho);
  std::memset(destino, 0, destinado);
  execucao.hospedeiro().preenche(copia, destino, campo.largura);
  return strnlen(destino, destinado - 1);
}

std::size_t escreveData(Linha& linha, Especie especie, const char* texto) {
  char* destino = linha.espaco(kLarguraData);
  if (especie == Especie::Data)
    formataData(texto, destino);
  else
    formataHora(texto, destino);
  return std::strlen(destino);
}

double escala(const Campo& campo, const Fonte& fonte) {
  return campo.colunaDasCasas >= 0 && leInteiro(fonte.texto(campo.colunaDasCasas)) == 3 ? 1000.0 : 100.0;
}

// Writes the field at the cursor and returns the count of bytes.
std::size_t escreve(Linha& linha, const Campo& campo, std::size_t largura, const Fonte& fonte,
                    const Execucao& execucao) {
  const char* texto = textoDe(campo, fonte, execucao);
  switch (campo.especie) {
    case Especie::Texto:
    case Especie::ComoEsta:
    case Especie::DataPronta:
    case Especie::HoraPronta:
      return escreveTexto(linha, campo, texto, largura);
    case Especie::Preenchido:
      return escrevePreenchido(linha, campo, texto, execucao);
    case Especie::Contador:
      return linha.escreveNumero(leInteiro(texto) % execucao.ajustes().moduloDoContador, largura);
    case Especie::Numero: {
      const std::int64_t valor = leInteiro(texto);
      return linha.escreveNumero(campo.modulo == 0 ? valor : valor % campo.modulo, largura);
    }
    case Especie::Identificador:
      return linha.escreveSemSinal(static_cast<std::uint64_t>(leInteiro(texto)), largura);
    case Especie::Dinheiro:
      return linha.escreveSemSinal(static_cast<std::uint64_t>(Financial::CentavosDoBanco(texto)), largura);
    case Especie::DinheiroDuplo:
      return linha.escreveSemSinal(static_cast<std::uint64_t>(Financial::CentavosDoDecimal(leDecimal(texto))),
                                   largura);
    case Especie::Decimal:
      return linha.escreveNumero(arredonda(leDecimal(texto) * escala(campo, fonte)), largura);
    case Especie::Data:
    case Especie::Hora:
      return escreveData(linha, campo.especie, texto);
  }
  return 0;
}

std::size_t larguraEm(const Campo& campo, const Execucao& execucao) {
  return static_cast<std::size_t>(
      campo.largura == Campo::kLarguraDoContador ? execucao.ajustes().larguraDoContador : campo.largura);
}

// Moves the line to where the field stands; false when the field is not there under the run's settings.
bool chega(Linha& linha, const Campo& campo, const Execucao& execucao) {
  if (!campo.existe(execucao.ajustes().versao, execucao.ajustes().cat52)) return false;
  if (campo.posicao != 0) linha.vaiPara(static_cast<std::size_t>(campo.posicao - 1));
  return true;
}

// The leading fields that are the same in every record: written once, and never replaced by blanks.
std::size_t camposFixos(Campos campos) {
  std::size_t n = 0;
  while (n < campos.size() && campos[n].origem.fixa()) ++n;
  return n;
}

}  // namespace

void compoe(Linha& linha, Campos campos, const Fonte& fonte, const Execucao& execucao) {
  for (const Campo& campo : campos) {
    if (!chega(linha, campo, execucao)) continue;
    const std::size_t largura = larguraEm(campo, execucao);
    const std::size_t escritos = escreve(linha, campo, largura, fonte, execucao);
    const std::size_t nominal = campo.desloca ? std::max(escritos, largura) : largura;
    linha.avanca(escritos, campo.naoAvanca ? 0 : nominal);
  }
}

void compoeVazio(Linha& linha, Campos campos, const Execucao& execucao) {
  for (const Campo& campo : campos) {
    if (!chega(linha, campo, execucao)) continue;
    const std::size_t largura = larguraEm(campo, execucao);
    const std::size_t nominal = campo.naoAvancaVazio ? 0 : largura;
    if (campo.textoVazio != nullptr)
      linha.poeTexto(campo.textoVazio, largura, nominal);
    else
      linha.poeRepetido(numerica(campo.especie) ? '0' : ' ', largura, nominal);
  }
}

long gravaLinhas(Execucao& execucao, Campos campos, Leitura& leitura, const Fonte& fonte) {
  const std::size_t fixos = camposFixos(campos);
  Linha linha;
  compoe(linha, campos.trecho(0, fixos), fonte, execucao);
  const Linha::Marca cabecalho = linha.marca();
  long linhas = 0;
  for (; leitura.avanca(); ++linhas) {
    linha.volta(cabecalho);
    compoe(linha, campos.trecho(fixos), fonte, execucao);
    execucao.grava(linha);
  }
  return linhas;
}

void gravaVazio(Execucao& execucao, Campos campos) {
  const std::size_t fixos = camposFixos(campos);
  Linha linha;
  compoe(linha, campos.trecho(0, fixos), SemFonte(), execucao);
  compoeVazio(linha, campos.trecho(fixos), execucao);
  execucao.grava(linha);
}

}  // namespace cotepe
