#include "Exportacao/Planilha.h"

#ifdef COTEPE_XLSX
#include <sqlite3.h>
#include <xlsxwriter.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <map>
#include <memory>
#include <string_view>
#include <vector>

#include "Exportacao/TabelaDoRegistro.h"
#include "Exportacao/Visoes.h"
#include "Idioma/Idioma.h"
#include "Sistema/Arquivo.h"
#include "Sistema/Falha.h"
#endif

namespace cotepe::exportacao {

#ifdef COTEPE_XLSX

namespace {

constexpr lxw_row_t kLinhasPorFolha = LXW_ROW_MAX - 1;
constexpr int kLinhasEntrePulsos = 1024;

/// How the cells of a column look.
enum class Aparencia { Simples, Reais, Dia };

struct FechaPasta {
  void operator()(lxw_workbook* pasta) const { static_cast<void>(workbook_close(pasta)); }
};
struct FechaLinhas {
  void operator()(sqlite3_stmt* linhas) const { sqlite3_finalize(linhas); }
};

class Planilha {
 public:
  Planilha(sqlite3* banco, const std::string& caminho, const std::string& nome,
           const std::function<void()>& pulsa)
      : banco_(banco), nome_(nome), pulsa_(pulsa), temporaria_(pastaTemporaria()) {
    lxw_workbook_options opcoes{};
    opcoes.constant_memory = LXW_TRUE;
    opcoes.tmpdir = temporaria_.data();
    pasta_.reset(workbook_new_opt(caminho.c_str(), &opcoes));
    if (!pasta_) naoEscreve(LXW_ERROR_MEMORY_MALLOC_FAILED);
    titulo_ = workbook_add_format(pasta_.get());
    format_set_bold(titulo_);
    reais_ = workbook_add_format(pasta_.get());
    format_set_num_format(reais_, "#,##0.00");
    dia_ = workbook_add_format(pasta_.get());
    format_set_num_format(dia_, "dd/mm/yyyy");
  }

  /// `dinheiro`: the columns that hold cents.
  void tabela(const std::string& nome, const std::string& sql,
              const std::map<std::string, Aparencia>& aparencias) {
    sqlite3_stmt* preparada = nullptr;
    if (sqlite3_prepare_v2(banco_, sql.c_str(), -1, &preparada, nullptr) != SQLITE_OK) naoLe();
    const std::unique_ptr<sqlite3_stmt, FechaLinhas> linhas(preparada);
    lxw_row_t linha = kLinhasPorFolha;
    int folhas = 0, situacao = 0;
    lxw_worksheet* folha = nullptr;
    while ((situacao = sqlite3_step(linhas.get())) == SQLITE_ROW) {
      if (linha == kLinhasPorFolha) {
        folha = novaFolha(nome + (folhas == 0 ? "" : " (" + std::to_string(folhas + 1) + ')'), linhas.get());
        ++folhas;
        linha = 0;
      }
      ++linha;
      for (int i = 0; i < sqlite3_column_count(linhas.get()); ++i) {
        const auto achada = aparencias.find(sqlite3_column_name(linhas.get(), i));
        celula(folha, linha, i, linhas.get(),
               achada == aparencias.end() ? Aparencia::Simples : achada->second);
      }
      if (linha % kLinhasEntrePulsos == 0) pulsa_();
    }
    if (situacao != SQLITE_DONE) naoLe();
  }

  void conclui() {
    const lxw_error erro = workbook_close(pasta_.release());
    if (erro != LXW_NO_ERROR) naoEscreve(erro);
  }

 private:
  lxw_worksheet* novaFolha(const std::string& nome, sqlite3_stmt* linhas) {
    lxw_worksheet* folha = workbook_add_worksheet(pasta_.get(), nome.c_str());
    if (folha == nullptr) naoEscreve(LXW_ERROR_MEMORY_MALLOC_FAILED);
    worksheet_freeze_panes(folha, 1, 0);
    const auto colunas = static_cast<lxw_col_t>(sqlite3_column_count(linhas));
    worksheet_set_column(folha, 0, static_cast<lxw_col_t>(colunas - 1), 14, nullptr);
    for (lxw_col_t i = 0; i < colunas; ++i)
      confere(worksheet_write_string(folha, 0, i, sqlite3_column_name(linhas, i), titulo_));
    return folha;
  }

  void celula(lxw_worksheet* folha, lxw_row_t linha, int i, sqlite3_stmt* linhas, Aparencia aparencia) {
    const auto coluna = static_cast<lxw_col_t>(i);
    const int tipo = sqlite3_column_type(linhas, i);
    if (tipo == SQLITE_NULL) return;
    if (tipo == SQLITE_INTEGER && aparencia == Aparencia::Reais)
      return confere(worksheet_write_number(
          folha, linha, coluna, static_cast<double>(sqlite3_column_int64(linhas, i)) / 100, reais_));
    if (tipo == SQLITE_INTEGER || tipo == SQLITE_FLOAT)
      return confere(worksheet_write_number(folha, linha, coluna, sqlite3_column_double(linhas, i), nullptr));
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(linhas, i));
    const std::string_view texto(bytes == nullptr ? "" : bytes,
                                 static_cast<std::size_t>(sqlite3_column_bytes(linhas, i)));
    if (aparencia == Aparencia::Dia && texto.size() == 10) return dia(folha, linha, coluna, texto);
    confere(
        worksheet_write_string(folha, linha, coluna, mostravel(texto, tipo == SQLITE_BLOB).c_str(), nullptr));
  }

  void dia(lxw_worksheet* folha, lxw_row_t linha, lxw_col_t coluna, std::string_view iso) {
    const auto numero = [&iso](std::size_t onde, std::size_t quantos) {
      return static_cast<int>(std::strtol(std::string(iso.substr(onde, quantos)).c_str(), nullptr, 10));
    };
    if (numero(0, 4) < 1900)  // which a spreadsheet cannot represent
      return confere(worksheet_write_string(folha, linha, coluna, std::string(iso).c_str(), nullptr));
    lxw_datetime data{};
    data.year = numero(0, 4);
    data.month = numero(5, 2);
    data.day = numero(8, 2);
    confere(worksheet_write_datetime(folha, linha, coluna, &data, dia_));
  }

  // A NUL would end the text; what is too long for a cell is cut and marked. Bytes of a line are read as
  // Latin-1.
  static std::string mostravel(std::string_view texto, bool latin1) {
    constexpr std::size_t kMaximoDaCelula = 32000;
    std::string feito;
    for (const char c : texto) {
      const auto byte = static_cast<unsigned char>(c);
      if (feito.size() > kMaximoDaCelula && (byte & 0xC0) != 0x80) return feito + "\xE2\x80\xA6";
      if (c == '\0') {
        feito += "\xE2\x90\x80";
      } else if (latin1 && byte >= 0x80) {
        feito += static_cast<char>(0xC0 | (byte >> 6));
        feito += static_cast<char>(0x80 | (byte & 0x3F));
      } else {
        feito += c;
      }
    }
    return feito;
  }

  void confere(lxw_error erro) const {
    if (erro != LXW_NO_ERROR) naoEscreve(erro);
  }

  [[noreturn]] void naoEscreve(lxw_error erro) const {
    throw programa::Falha(
        programa::kNaoEscreve,
        frase("cannot write the output {1}: {2}; check the disk and try again", {nome_, lxw_strerror(erro)}));
  }

  [[noreturn]] void naoLe() const {
    throw programa::Falha(programa::kNaoEscreve,
                          frase("cannot write the output {1}: {2}; check the disk and try again",
                                {nome_, sqlite3_errmsg(banco_)}));
  }

  sqlite3* banco_;
  std::string nome_;
  const std::function<void()>& pulsa_;
  std::string temporaria_;
  std::unique_ptr<lxw_workbook, FechaPasta> pasta_;
  lxw_format *titulo_ = nullptr, *reais_ = nullptr, *dia_ = nullptr;
};

// The columns of the views that hold cents and days.
const std::map<std::string, Aparencia>& aparenciasDasVisoes() {
  static const std::map<std::string, Aparencia> todas = [] {
    std::map<std::string, Aparencia> mapa = {{"data", Aparencia::Dia}};
    for (const char* coluna :
         {"venda_bruta", "descontos", "acrescimos", "cancelamentos", "venda_liquida", "total_dos_cupons",
          "subtotal", "desconto", "acrescimo", "total", "acumulado", "pago", "estornado", "dos_itens"})
      mapa[coluna] = Aparencia::Reais;
    return mapa;
  }();
  return todas;
}

std::map<std::string, Aparencia> aparenciasDe(const TabelaDoRegistro& tabela) {
  std::map<std::string, Aparencia> mapa;
  for (const ColunaDaTabela& coluna : tabela.colunas) {
    if (coluna.tipo == Tipo::Centavos) mapa[coluna.nome] = Aparencia::Reais;
    if (coluna.tipo == Tipo::Data) mapa[coluna.nome] = Aparencia::Dia;
  }
  return mapa;
}

}  // namespace

bool fazPlanilhas() noexcept { return true; }

void escrevePlanilha(sqlite3* banco, const std::string& caminho, const std::string& nome,
                     const std::function<void()>& pulsa) {
  Planilha planilha(banco, caminho, nome, pulsa);
  planilha.tabela("arquivo", "SELECT * FROM arquivo", {});
  for (const char* visao : kVisoes)
    planilha.tabela(visao, std::string("SELECT * FROM ") + visao, aparenciasDasVisoes());
  for (const TabelaDoRegistro& tabela : tabelas()) {
    const std::string codigo(tabela.registro->codigo);
    planilha.tabela(codigo, "SELECT * FROM " + codigo + " ORDER BY arquivo, linha", aparenciasDe(tabela));
  }
  planilha.tabela("repetido", "SELECT * FROM repetido", {});
  planilha.tabela("linha_literal", "SELECT * FROM linha_literal", {});
  planilha.conclui();
}

#else

bool fazPlanilhas() noexcept { return false; }

void escrevePlanilha(sqlite3* /*banco*/, const std::string& /*caminho*/, const std::string& /*nome*/,
                     const std::function<void()>& /*pulsa*/) {}

#endif

}  // namespace cotepe::exportacao
