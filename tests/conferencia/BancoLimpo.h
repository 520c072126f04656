// A small database in memory that is clean, and what the checker says of it when something is changed.
#pragma once

#include <string>
#include <vector>

#include "Achados/SaidaDeAchados.h"
#include "Banco.h"
#include "Conferencia/Conferencia.h"
#include "TabelasSoltas.h"

namespace cotepe::testes {

inline constexpr char kIndices[] = R"(
CREATE INDEX i01 ON reducao_z(data_movimento);
CREATE INDEX i02 ON reducao_z(cont_crz);
CREATE INDEX i03 ON totalizador_reducao(cont_crz);
CREATE INDEX i04 ON meio_pagamento_reducao(cont_crz);
CREATE INDEX i05 ON cupom_fiscal(cont_crz);
CREATE INDEX i06 ON cupom_fiscal(cont_coo);
CREATE INDEX i07 ON item_cupom_fiscal(cont_coo);
CREATE INDEX i08 ON outros_documentos(cont_crz);
CREATE INDEX i09 ON cupom_nf(cont_crz);
CREATE INDEX i10 ON cupom_nf(cont_coo);
CREATE INDEX i11 ON item_cupom_nf(cont_coo);
CREATE INDEX i12 ON pagamento_cupom(cont_coo);
CREATE INDEX i13 ON meio_pagamento(num_indice);
CREATE INDEX i14 ON totalizador_nao_fiscal(num_indice);
)";

// Reductions 4 and 5; coupons 11 (fiscal) and 12 (non-fiscal) of the latter.
inline constexpr char kLinhas[] = R"(
INSERT INTO dados_ecf VALUES('SERIAL', 'MODELO', 'ECF-IF', 'MARCA', 1);
INSERT INTO dados_usuario VALUES(1, '11222333000181', '1104249', 'LOJA', 'RUA 1', NULL, 1, 10.5);
INSERT INTO versao_sb VALUES('01.00.00', NULL, 1);
INSERT INTO tentativas_sb VALUES(1, 'x', '2024-01-01 00:00:00', 'N');
INSERT INTO codificacao_gt VALUES(NULL, 'ABCDEFGHIJ');
INSERT INTO moeda VALUES('                   ', 'R$');
INSERT INTO intervencao VALUES(1, '2023-12-01 10:00:00', 'N', 'T', 1, 2);
INSERT INTO fita_detalhe VALUES(1, '2024-01-06 10:00:00', 1, 12);
INSERT INTO posicao_totalizadores_contadores VALUES(5, 1, 13, 2, 1, 1, 1, 300);
INSERT INTO reducao_z VALUES(4, 10, 1, '2024-01-04 00:00:00', NULL, 100, 200);
INSERT INTO reducao_z VALUES(5, 13, 1, '2024-01-05 00:00:00', '2024-01-05 23:00:00', 100, 300);
INSERT INTO totalizador_reducao VALUES(5, '01T18.00', 100, 'S');
INSERT INTO totalizador_reducao VALUES(5, 'SANGRIA 567890', 20, 'N');
INSERT INTO meio_pagamento_reducao VALUES(5, 'DINHEIRO', 100);
INSERT INTO cupom_fiscal VALUES(1, 11, 5, '2024-01-05 10:00:00', 100, 0, 0, 100, 'N', 0, 'ANA', '52998224725',
  NULL, NULL, NULL, NULL, '', '', '');
INSERT INTO item_cupom_fiscal VALUES(11, 1, '789', 'CAFE', 1.5, 'KG', 66.67, 0, 0, 100, '01T18.00', 'N', 0, 'T', 3, 2,
  NULL, NULL);
INSERT INTO outros_documentos VALUES(10, 1, 0, 0, 4, 'RZ', '2024-01-04 23:00:00');
INSERT INTO cupom_nf VALUES(12, 2, 5, '2024-01-05 11:00:00', 20, 0, 'V', 0, 'V', 20, 'N', 0, '', '');
INSERT INTO item_cupom_nf VALUES(12, 1, 1, 20, 0, 0, 20, 'N', 0);
INSERT INTO totalizador_nao_fiscal VALUES(1, 'SANGRIA');
INSERT INTO pagamento_cupom VALUES(11, 1, 100, 'N', 0);
INSERT INTO pagamento_cupom VALUES(12, 1, 20, 'N', 0);
INSERT INTO meio_pagamento VALUES(1, 'DINHEIRO');
)";

class Junta final : public RecebeAchados {
 public:
  void recebe(const Achado& achado) override { textos.push_back(textoDoAchado(achado)); }
  std::vector<std::string> textos;
};

class BancoLimpo {
 public:
  BancoLimpo() {
    for (const char* sql : {kTabelasSoltas, kIndices, kLinhas}) banco_.sql(sql);
  }

  void executa(const std::string& sql) { banco_.sql(sql); }
  sqlite3* aberto() const { return banco_.aberto(); }

  // The findings as texts, without a file.
  std::vector<std::string> achados(const OpcoesDaConferencia& opcoes = {}) {
    Junta junta;
    confereBanco(banco_.aberto(), opcoes, junta);
    return junta.textos;
  }

 private:
  Banco banco_;
};

inline std::vector<std::string> depoisDe(const std::string& sql, const OpcoesDaConferencia& opcoes = {}) {
  BancoLimpo banco;
  banco.executa(sql);
  return banco.achados(opcoes);
}

using Linhas = std::vector<std::string>;

}  // namespace cotepe::testes
