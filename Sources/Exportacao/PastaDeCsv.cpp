#include "Exportacao/PastaDeCsv.h"

#include "Idioma/Utf8.h"

namespace cotepe::exportacao {
namespace {

constexpr char kFim[] = ".csv";

bool deCsv(const std::string& nome) {
  const std::size_t fim = sizeof kFim - 1;
  return nome.size() > fim && nome.compare(nome.size() - fim, fim, kFim) == 0;
}

void poeTexto(std::string& linha, std::string_view texto) {
  if (texto.find_first_of("\",\r\n") == std::string_view::npos) {
    linha += texto;
    return;
  }
  linha += '"';
  for (const char c : texto) linha += c == '"' ? std::string_view("\"\"") : std::string_view(&c, 1);
  linha += '"';
}

void poeDecimal(std::string& linha, std::int64_t numero, int casas) {
  std::string digitos = std::to_string(numero);
  const auto minimo = static_cast<std::size_t>(casas) + 1;
  if (digitos.size() < minimo) digitos.insert(0, minimo - digitos.size(), '0');
  digitos.insert(digitos.size() - static_cast<std::size_t>(casas), 1, '.');
  linha += digitos;
}

void poe(std::string& linha, const ValorTipado& celula) {
  linha += ',';
  if (celula.nula) return;
  switch (celula.tipo) {
    case Tipo::Inteiro:
      linha += std::to_string(celula.numero);
      break;
    case Tipo::Centavos:
      poeDecimal(linha, celula.numero, 2);
      break;
    case Tipo::Decimal:
      poeDecimal(linha, celula.numero, celula.casas);
      break;
    default:
      poeTexto(linha, celula.texto);
  }
}

void poe(std::string& linha, std::string_view texto) {
  linha += ',';
  poeTexto(linha, texto);
}

}  // namespace

PastaDeCsv::PastaDeCsv(const std::string& destino, bool substitui) : pasta_(destino, substitui, deCsv) {}

// Writes the row in `linha_`.
void PastaDeCsv::escreve(Texto& texto, const std::string& nome, std::string_view titulos) {
  if (!texto) {
    texto = std::make_unique<programa::TextoEmArquivo>(pasta_.caminho(nome + kFim), nome + kFim);
    texto->escreve(titulos);
  }
  linha_ += '\n';
  texto->escreve(linha_);
}

void PastaDeCsv::abreRegistro(std::size_t indice) {
  const std::string nome = std::string(kCatalogo[indice]->codigo) + kFim;
  registros_[indice] = std::make_unique<programa::TextoEmArquivo>(pasta_.caminho(nome), nome);
  std::string titulos = "arquivo,linha,vazio";
  for (const ColunaDaTabela& coluna : tabelas()[indice].colunas) titulos += ',' + coluna.nome;
  registros_[indice]->escreve(titulos + '\n');
}

void PastaDeCsv::registro(const ArquivoExportado& arquivo, const RegistroLido& lido,
                          const LinhaTipada& linha) {
  const auto indice = static_cast<std::size_t>(lido.indice);
  if (!registros_[indice]) abreRegistro(indice);
  const std::string numero = std::to_string(arquivo.numero) + ',' + std::to_string(lido.linha.numero);
  linha_ = numero + (lido.vazio ? ",1" : ",0");
  for (std::size_t i = 0; i < tabelas()[indice].colunas.size(); ++i) poe(linha_, linha.celulas()[i]);
  linha_ += '\n';
  registros_[indice]->escreve(linha_);
  for (const Repetida& repetida : linha.repetidas()) {
    linha_ =
        numero + ',' + tabelas()[indice].colunas[repetida.coluna].nome + ',' + std::to_string(repetida.vez);
    poe(linha_, repetida.celula);
    escreve(repetidos_, "repetidos", "arquivo,linha,coluna,vez,valor\n");
  }
}

// As Latin-1 whatever it contains, so that every byte is one character.
void PastaDeCsv::literal(const ArquivoExportado& arquivo, long linha, std::string_view bytes) {
  linha_ = std::to_string(arquivo.numero) + ',' + std::to_string(linha);
  std::string texto;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x80) texto += static_cast<char>(0xC0 | (byte >> 6));
    texto += byte < 0x80 ? c : static_cast<char>(0x80 | (byte & 0x3F));
  }
  poe(linha_, texto);
  escreve(literais_, "linhas_literais", "arquivo,linha,bytes\n");
}

void PastaDeCsv::arquivo(const ArquivoExportado& arquivo) {
  linha_ = std::to_string(arquivo.numero);
  for (const std::string* texto :
       {&arquivo.nome, &arquivo.fabricacao, &arquivo.modelo, &arquivo.cnpj, &arquivo.comando})
    poe(linha_, emUtf8(*texto));
  linha_ += ',' + std::to_string(arquivo.leiaute.versao) + (arquivo.leiaute.cat52 ? ",1," : ",0,") +
            (arquivo.fim == "\r\n" ? "CRLF"
             : arquivo.fim == "\n" ? "LF"
                                   : "") +
            ',' + std::to_string(arquivo.linhas) + ',' + std::to_string(arquivo.bytes);
  escreve(arquivos_, "arquivos",
          "arquivo,nome,numero_fabricacao,modelo,cnpj,comando,leiaute,cat52,fim_de_linha,linhas,bytes\n");
}

void PastaDeCsv::conclui() {
  for (Texto& texto : registros_)
    if (texto) texto->publica(false);
  for (Texto* texto : {&literais_, &repetidos_, &arquivos_})
    if (*texto) (*texto)->publica(false);
  for (Texto& texto : registros_) texto.reset();
  for (Texto* texto : {&literais_, &repetidos_, &arquivos_}) texto->reset();
  pasta_.publica();
}

}  // namespace cotepe::exportacao
