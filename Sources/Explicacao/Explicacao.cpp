#include "Explicacao/Explicacao.h"

#include <algorithm>

#include "BancoFiscal/ConsultaAnalisada.h"
#include "Idioma/Idioma.h"
#include "Leiaute/Releitura.h"
#include "Leitor/Valor.h"

namespace cotepe {
namespace {

std::string numeroDe(const std::string& nome, int largura, std::int64_t modulo) {
  if (modulo == 0)
    return fraseDe("{1}, {n} digit filled up with zeros", "{1}, {n} digits filled up with zeros", largura,
                   {nome});
  return fraseDe("{1}, {n} digit filled up with zeros, the remainder by {2}",
                 "{1}, {n} digits filled up with zeros, the remainder by {2}", largura,
                 {nome, std::to_string(modulo)});
}

std::string decimalDe(const Campo& campo, const Registro& registro, int largura) {
  std::string nome = traduz("decimal number with 2 decimal places and no point");
  for (const Campo& outro : registro.campos)
    if (campo.colunaDasCasas >= 0 && outro.origem.deColuna() && outro.origem.coluna == campo.colunaDasCasas)
      nome = frase("decimal number with 2 or 3 decimal places as \"{1}\" says and no point", {outro.rotulo});
  return numeroDe(nome, largura, 0);
}

std::string escrita(const Campo& campo, const Registro& registro, int versao) {
  const int largura = larguraNominal(campo, versao);
  switch (campo.especie) {
    case Especie::Texto:
      return fraseDe("text, left-aligned and filled up with blanks to {n} byte",
                     "text, left-aligned and filled up with blanks to {n} bytes", largura);
    case Especie::ComoEsta:
      if (campo.origem.tipo == Origem::Tipo::Constante)
        return fraseDe("text of {n} byte", "text of {n} bytes", largura);
      return fraseDe("text of {n} byte as it stands, never filled up, so that an empty one ends the line",
                     "text of {n} bytes as it stands, never filled up, so that an empty one ends the line",
                     largura);
    case Especie::Preenchido:
      return fraseDe("text that the application's padding routine places in {n} byte",
                     "text that the application's padding routine places in {n} bytes", largura);
    case Especie::Numero:
      return numeroDe(traduz("number"), largura, campo.modulo);
    case Especie::Contador:
      return numeroDe(traduz("document counter"), largura, moduloDoContador(versao));
    case Especie::Identificador:
      return numeroDe(traduz("number without sign"), largura, 0);
    case Especie::Dinheiro:
      return numeroDe(traduz("money in cents, without sign"), largura, 0);
    case Especie::DinheiroDuplo:
      return numeroDe(traduz("money in cents, rounded through a binary number, without sign"), largura, 0);
    case Especie::Decimal:
      return decimalDe(campo, registro, largura);
    case Especie::Data:
      return traduz("date AAAAMMDD, cut by position out of a date and time");
    case Especie::Hora:
      return traduz("hour HHMMSS, cut by position out of a date and time");
    case Especie::DataPronta:
      return traduz("date AAAAMMDD as the clock gives it");
    case Especie::HoraPronta:
      break;
  }
  return traduz("hour HHMMSS as the clock gives it");
}

// Whether a value can need more bytes than the field has.
bool podeExceder(const Campo& campo, int largura) {
  if (deData(campo.especie) || deHora(campo.especie) || campo.especie == Especie::Contador) return false;
  if (campo.origem.tipo == Origem::Tipo::Nenhuma || campo.origem.tipo == Origem::Tipo::Constante)
    return false;
  if (campo.modulo == 0) return true;
  std::int64_t potencia = 1;
  for (int i = 0; i < largura; ++i) potencia *= 10;
  return campo.modulo > potencia;
}

const char* excesso(const Campo& campo, bool ultimo) {
  if (campo.desloca) return traduz("a longer one is never clipped and moves the later fields right");
  if (campo.naoAvanca) return traduz("the next line's recording is written over it");
  return ultimo ? traduz("a longer one runs on behind the end of the record")
                : traduz("of a longer one the end is overwritten by the next field");
}

void juntaColunas(const char* sql, int coluna, std::vector<std::string>& palavras) {
  if (sql == nullptr) return;
  for (const SelectAnalisado& select : analisa(sql)) {
    const std::string lida =
        select.lista.empty()
            ? frase("column {1} of {2}", {std::to_string(coluna + 1), select.tabelas.front().nome})
            : select.lista[static_cast<std::size_t>(coluna)].emPalavras();
    if (std::find(palavras.begin(), palavras.end(), lida) == palavras.end()) palavras.push_back(lida);
  }
}

// The column behind a field, or the columns if SELECTs differ.
std::string colunasEmPalavras(const Origem& origem, const Registro& registro) {
  std::vector<std::string> palavras;
  for (int i = 0; i < static_cast<int>(Registro::kConsultas); ++i)
    if (i == origem.consulta || origem.consulta == Origem::kDeCadaConsulta)
      juntaColunas(registro.consultas[i].sql, origem.coluna, palavras);
  std::string texto;
  for (const std::string& lida : palavras) texto = texto.empty() ? lida : frase("{1} or {2}", {texto, lida});
  return texto;
}

ExplicacaoDoCampo explicaCampo(const RegistroLido& lido, std::size_t i, int versao) {
  const CampoLido& lugar = lido.campos[i];
  const char* nota = lugar.campo->observacao;
  ExplicacaoDoCampo e;
  e.numero = lugar.numero;
  e.rotulo = rotuloUnico(lido, i);
  e.de = lugar.posicao + 1;
  e.ate = lugar.posicao + lugar.largura;
  e.regra = regraDe(*lugar.campo, *lido.registro, versao, i + 1 == lido.quantos);
  e.fonte = fonteDe(*lugar.campo, *lido.registro);
  e.bytes = lido.bytes(i);
  e.significado = significadoDe(lido, i);
  if (nota != nullptr) e.nota = traduz(nota);
  return e;
}

}  // namespace

std::string regraDe(const Campo& campo, const Registro& registro, int versao, bool ultimo) {
  std::string texto = escrita(campo, registro, versao);
  const auto junta = [&texto](const std::string& parte) { texto += "; " + parte; };
  if (podeExceder(campo, larguraNominal(campo, versao))) junta(excesso(campo, ultimo));
  if (campo.removePontos) junta(traduz("dots are taken out"));
  if (campo.removeHifens) junta(traduz("hyphens are taken out"));
  if (campo.trocaNaoAscii) junta(traduz("control characters and bytes outside ASCII become blanks"));
  if (campo.posicao != 0) junta(frase("always at position {1}", {std::to_string(campo.posicao)}));
  if (campo.soNaVersao2) junta(traduz("in layout 2 only"));
  if (campo.soForaDoCat52) junta(traduz("not in CAT52 mode"));
  return texto;
}

std::string fonteDe(const Campo& campo, const Registro& registro) {
  if (campo.fonteDita != nullptr) return traduz(campo.fonteDita);
  if (campo.origem.tipo == Origem::Tipo::Constante) return frase("always \"{1}\"", {campo.origem.constante});
  if (campo.origem.deColuna()) return colunasEmPalavras(campo.origem, registro);
  return numerica(campo.especie) ? traduz("nothing: always zeros") : traduz("nothing: always blanks");
}

ExplicacaoDaLinha explica(const RegistroLido& lido, const AjusteDoLeiaute& leiaute) {
  ExplicacaoDaLinha explicacao{lido.registro, leiaute, {}, {}};
  if (lido.vazio)
    explicacao.notas.emplace_back(
        traduz("a placeholder record: the register has no row, and but for its head all fields are zeros or "
               "blanks"));
  if (!lido.medidaCerta)
    explicacao.notas.push_back(frase("the line has {1} bytes instead of {2}: its fields may stand elsewhere",
                                     {std::to_string(lido.linha.tamanho), std::to_string(lido.comprimento)}));
  if (const char* nota = lido.registro->observacao) explicacao.notas.emplace_back(traduz(nota));
  for (std::size_t i = 0; i < lido.quantos; ++i)
    explicacao.campos.push_back(explicaCampo(lido, i, leiaute.versao));
  return explicacao;
}

}  // namespace cotepe
