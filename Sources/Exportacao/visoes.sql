-- What people ask a report for. Placeholder records are left out; amounts are in cents; each view keeps the
-- file that a row is of, since two files may hold the same documents.

-- A day of movement: what its Z reductions say, and what was issued on it.
CREATE VIEW dia AS
WITH reducao AS (
  SELECT arquivo, data_movimento AS data, count(*) AS reducoes, min(crz) AS crz_inicial, max(crz) AS crz_final,
         sum(venda_bruta_diaria) AS venda_bruta
  FROM E12 WHERE NOT vazio AND data_movimento IS NOT NULL GROUP BY arquivo, data_movimento
), totalizador AS (
  SELECT E12.arquivo, E12.data_movimento AS data,
         sum(valor_acumulado) FILTER (WHERE totalizador_parcial IN ('DT', 'DS')) AS descontos,
         sum(valor_acumulado) FILTER (WHERE totalizador_parcial IN ('AT', 'AS')) AS acrescimos,
         sum(valor_acumulado) FILTER (WHERE totalizador_parcial LIKE 'Can-%') AS cancelamentos,
         sum(valor_acumulado) FILTER (WHERE totalizador_parcial NOT IN ('DT', 'DS', 'AT', 'AS', 'OPNF')
                                            AND totalizador_parcial NOT LIKE 'Can-%') AS venda_liquida
  FROM E13 JOIN E12 USING (arquivo, crz) WHERE NOT E13.vazio AND NOT E12.vazio
  GROUP BY E12.arquivo, E12.data_movimento
), cupons AS (
  SELECT arquivo, data_emissao AS data, count(*) AS cupons, sum(cancelado = 'S') AS cupons_cancelados,
         min(ccf) AS ccf_inicial, max(ccf) AS ccf_final, min(coo) AS coo_inicial, max(coo) AS coo_final,
         sum(valor_total_liquido) FILTER (WHERE cancelado <> 'S') AS total_dos_cupons
  FROM E14 WHERE NOT vazio AND data_emissao IS NOT NULL GROUP BY arquivo, data_emissao
), dias AS (SELECT arquivo, data FROM reducao UNION SELECT arquivo, data FROM cupons)
SELECT dias.arquivo, dias.data, reducoes, crz_inicial, crz_final, venda_bruta, descontos, acrescimos,
       cancelamentos, venda_liquida, cupons, cupons_cancelados, ccf_inicial, ccf_final, coo_inicial, coo_final,
       total_dos_cupons
FROM dias LEFT JOIN reducao USING (arquivo, data) LEFT JOIN totalizador USING (arquivo, data)
     LEFT JOIN cupons USING (arquivo, data)
ORDER BY dias.arquivo, dias.data;

-- A fiscal coupon, with the count of its items.
CREATE VIEW cupom AS
SELECT arquivo, linha, ccf, coo, data_emissao AS data, subtotal, desconto, acrescimo,
       valor_total_liquido AS total, cancelado = 'S' AS cancelado, nome_consumidor, cpf_cnpj_consumidor,
       (SELECT count(*) FROM E15 WHERE E15.arquivo = E14.arquivo AND E15.ccf = E14.ccf AND NOT E15.vazio) AS itens
FROM E14 WHERE NOT vazio;

-- An item of a coupon, with the day of its coupon.
CREATE VIEW item AS
SELECT E15.arquivo, E15.linha, E14.data_emissao AS data, E15.ccf, E15.coo, E15.numero_item, E15.codigo,
       E15.descricao, E15.quantidade, E15.unidade, E15.valor_unitario, E15.desconto, E15.acrescimo,
       E15.valor_total_liquido AS total, E15.totalizador_parcial AS aliquota,
       (E15.cancelado = 'S' OR E14.cancelado IS 'S') AS cancelado
FROM E15 LEFT JOIN E14 ON E14.arquivo = E15.arquivo AND E14.ccf = E15.ccf AND NOT E14.vazio
WHERE NOT E15.vazio;

-- What each means of payment brought: in the Z reductions, and on the documents.
CREATE VIEW pagamento_por_meio AS
WITH meios AS (SELECT arquivo, meio_pagamento FROM E18 WHERE NOT vazio
               UNION SELECT arquivo, meio_pagamento FROM E21 WHERE NOT vazio),
acumulado AS (SELECT arquivo, meio_pagamento, sum(valor_acumulado) AS acumulado FROM E18 WHERE NOT vazio
              GROUP BY arquivo, meio_pagamento),
pago AS (SELECT arquivo, meio_pagamento, count(*) AS pagamentos, sum(valor_pago) AS pago,
                sum(valor_estornado) AS estornado
         FROM E21 WHERE NOT vazio GROUP BY arquivo, meio_pagamento)
SELECT arquivo, meio_pagamento AS meio, acumulado, pagamentos, pago, estornado
FROM meios LEFT JOIN acumulado USING (arquivo, meio_pagamento) LEFT JOIN pago USING (arquivo, meio_pagamento)
ORDER BY arquivo, meio_pagamento;

-- What each tax code sold: in the Z reductions, and of the items that were not cancelled.
CREATE VIEW totalizador_por_aliquota AS
WITH nomes AS (SELECT arquivo, totalizador_parcial FROM E13 WHERE NOT vazio
               UNION SELECT arquivo, totalizador_parcial FROM E15 WHERE NOT vazio),
acumulado AS (SELECT arquivo, totalizador_parcial, sum(valor_acumulado) AS acumulado FROM E13 WHERE NOT vazio
              GROUP BY arquivo, totalizador_parcial),
itens AS (SELECT arquivo, aliquota AS totalizador_parcial, count(*) AS itens, sum(total) AS dos_itens
          FROM item WHERE NOT cancelado GROUP BY arquivo, aliquota)
SELECT arquivo, totalizador_parcial AS totalizador, acumulado, itens, dos_itens
FROM nomes LEFT JOIN acumulado USING (arquivo, totalizador_parcial)
     LEFT JOIN itens USING (arquivo, totalizador_parcial)
ORDER BY arquivo, totalizador_parcial;
