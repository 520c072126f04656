// What registers and fields are called, letter by letter.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Registros/Catalogo.h"

namespace {

using Rotulos = std::vector<std::string>;

const Rotulos kComum = {"Tipo do registro", "Nº de fabricação do ECF", "MF adicional", "Modelo do ECF"};
const Rotulos kDoUsuario = {"Tipo do registro", "Nº de fabricação do ECF", "MF adicional", "Modelo do ECF",
                            "Nº de ordem do usuário"};

const struct {
  const char* codigo;
  const char* nome;
  Rotulos cabecalho;
  Rotulos campos;
} kRegistros[] = {
    {"E01",
     "Identificação do ECF",
     {},
     {"Tipo do registro", "Nº de fabricação", "MF adicional", "Tipo de ECF", "Marca", "Modelo",
      "Versão do software básico", "Data de gravação do SB", "Hora de gravação do SB", "Nº sequencial do ECF",
      "CNPJ do usuário", "Comando de geração", "CRZ inicial", "CRZ final", "Data inicial", "Data final",
      "Versão do programa gerador", "Versão do leiaute"}},
    {"E02",
     "Identificação do atual contribuinte usuário do ECF",
     kComum,
     {"CNPJ", "Inscrição estadual", "Razão social", "Endereço", "Data do cadastro", "Hora do cadastro", "CRO",
      "Totalizador geral (GT)", "Nº do usuário"}},
    {"E03",
     "Identificação dos prestadores de serviço cadastrados no ECF",
     kComum,
     {"Nº do prestador", "Data", "Hora", "Primeiro número", "Segundo número", "Terceiro número"}},
    {"E04",
     "Relação dos usuários anteriores do ECF",
     kComum,
     {"Nº do usuário", "Data", "Hora", "Primeiro número", "Segundo número", "Contador", "Terceiro número"}},
    {"E05",
     "Relação das codificações de GT",
     kComum,
     {"CNPJ do usuário", "Data de gravação", "Hora de gravação", "Codificação do GT"}},
    {"E06",
     "Relação dos símbolos da moeda",
     kComum,
     {"CNPJ do usuário", "Data de gravação", "Hora de gravação", "Símbolo da moeda"}},
    {"E07",
     "Relação das alterações de versão do Software Básico do ECF",
     kComum,
     {"Versão do software básico", "Data de gravação"}},
    {"E08", "Relação dos dispositivos de MFD utilizados", kComum, {"CNPJ do usuário", "Nº de série da MFD"}},
    {"E09",
     "Relação de intervenções técnicas",
     kComum,
     {"CRO", "Data da intervenção", "Hora da intervenção", "Perda de dados da MT", "Tipo de intervenção",
      "CRZ", "COO"}},
    {"E10",
     "Relação de Fitas-detalhe emitidas",
     kComum,
     {"CFD", "Data de emissão", "COO inicial", "COO final", "CNPJ do usuário"}},
    {"E11",
     "Posição atual dos contadores e totalizadores",
     kComum,
     {"CRZ", "CRO", "COO", "GNF", "CCF", "Primeiro contador sem fonte", "Segundo contador sem fonte", "GRG",
      "Terceiro contador sem fonte", "CFD", "Totalizador geral (GT)", "Data de geração", "Hora de geração"}},
    {"E12",
     "Relação de Reduções Z",
     kDoUsuario,
     {"CRZ", "COO", "CRO", "Data do movimento", "Data de emissão", "Hora de emissão", "Venda bruta diária",
      "Indicador"}},
    {"E13",
     "Detalhe da Redução Z - Totalizadores Parciais",
     kDoUsuario,
     {"CRZ", "Totalizador parcial", "Valor acumulado"}},
    {"E14",
     "Cupom Fiscal, Nota Fiscal de Venda a Consumidor ou Bilhete de Passagem",
     kDoUsuario,
     {"CCF", "COO", "Data de emissão", "Subtotal", "Desconto", "Tipo do desconto", "Acréscimo",
      "Tipo do acréscimo", "Valor total líquido", "Cancelado (S/N)", "Cancelamento de acréscimo",
      "Ordem de desconto e acréscimo", "Nome do consumidor", "CPF/CNPJ do consumidor", "Texto suplementar",
      "Texto complementar", "Assinatura do documento"}},
    {"E15",
     "Detalhe do Cupom Fiscal, Nota Fiscal de Venda a Consumidor ou Bilhete de Passagem",
     kDoUsuario,
     {"COO", "CCF", "Nº do item", "Código", "Descrição", "Quantidade", "Unidade", "Valor unitário",
      "Desconto", "Acréscimo", "Valor total líquido", "Totalizador parcial", "Cancelado (S/N)",
      "Quantidade cancelada", "Valor cancelado", "Cancelamento de acréscimo", "Arredondamento ou truncamento",
      "Casas decimais da quantidade", "Casas decimais do valor unitário"}},
    {"E16",
     "Demais documentos emitidos pelo ECF",
     kDoUsuario,
     {"COO", "GNF", "GRG", "CDC", "CRZ", "Símbolo do documento", "Data final de emissão",
      "Hora final de emissão"}},
    {"E17",
     "Detalhe da Redução Z - Totalizadores Não Fiscais",
     kDoUsuario,
     {"CRZ", "Totalizador não fiscal", "Valor acumulado"}},
    {"E18",
     "Detalhe da Redução Z - Meios de Pagamento",
     kDoUsuario,
     {"CRZ", "Meio de pagamento", "Valor acumulado"}},
    {"E19",
     "Comprovante Não Fiscal",
     kDoUsuario,
     {"COO", "GNF", "Data de emissão", "Subtotal", "Desconto", "Tipo do desconto", "Acréscimo",
      "Tipo do acréscimo", "Valor total líquido", "Cancelado (S/N)", "Cancelamento de acréscimo",
      "Ordem de desconto e acréscimo", "Nome do consumidor", "CPF/CNPJ do consumidor"}},
    {"E20",
     "Detalhe do Comprovante Não Fiscal",
     kDoUsuario,
     {"COO", "GNF", "Nº do item", "Denominação da operação", "Valor", "Desconto", "Acréscimo",
      "Valor líquido", "Cancelado (S/N)", "Cancelamento de acréscimo"}},
    {"E21",
     "Detalhe do Cupom Fiscal e do Documento Não Fiscal - Meio de Pagamento",
     kDoUsuario,
     {"COO", "CCF", "GNF", "Meio de pagamento", "Valor pago", "Estornado (S/N)", "Valor estornado"}},
    {"E22",
     "Tentativas relativas ao Software Básico",
     {"Tipo do registro", "Nº de fabricação do ECF", "Modelo do ECF"},
     {"Número", "Data"}},
};

TEST(Rotulos, EveryRegisterAndFieldHasItsName) {
  EXPECT_EQ(std::size(kRegistros), cotepe::kCatalogo.size());
  for (const auto& esperado : kRegistros) {
    SCOPED_TRACE(esperado.codigo);
    const cotepe::Registro* registro = cotepe::registroDe(esperado.codigo);
    ASSERT_NE(registro, nullptr);
    EXPECT_EQ(std::string(registro->nome), esperado.nome);
    Rotulos esperados = esperado.cabecalho;
    esperados.insert(esperados.end(), esperado.campos.begin(), esperado.campos.end());
    Rotulos rotulos;
    for (const cotepe::Campo& campo : registro->campos) rotulos.emplace_back(campo.rotulo);
    EXPECT_EQ(rotulos, esperados);
  }
}

}  // namespace
