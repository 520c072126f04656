-- Reference schema of the fiscal database: the memories of a fiscal printer as the type-E registers read
-- them. A host may keep more tables and columns; these names, forms and orders are the ones that the queries
-- rely on.
--
-- Every value is read as text. The declared types decide how it compares and how its text is rendered:
--   INTEGER        counters and numbers: 9 comes before 11, leading zeros are dropped, never negative.
--   DECIMAL(n,2)   money of a field of n digits, never negative. The affinity is NUMERIC, so MAX, SUM and
--                  ORDER BY work on numbers. SQLite renders a number with 15 significant digits and every
--                  decimal of up to 15 digits survives that exactly; so money is exact to the cent up to
--                  9999999999999.99, and no column takes more. "NOT GLOB '*.???*'" looks at the very text
--                  that a reader gets and refuses a third decimal. A text in the wrong form (a comma, a
--                  separator of thousands) is not converted, stays text, is greater than every number, and
--                  BETWEEN refuses it.
--                  SUM adds binary numbers: up to 99999999999.99, the most that a field of 13 digits holds,
--                  the sum of 300 amounts is less than half a cent from the exact one and rounds to it.
--   DECIMAL(n)     quantities, unit prices and what else is read as a decimal number: any number of decimals.
--   TEXT           all else. Lengths are bytes, since a record counts bytes.
-- A date-time is a text 'YYYY-MM-DD HH:MM:SS' of a day that exists: datetime() of such a text, after a step
-- of no days that makes 30 February 1 March, is the text itself.
--
-- Documents point to their reduction by cont_crz, without a foreign key: those of the open day come before
-- their reduction, and cont_crz may repeat under another cont_cro. Indexes lead from the reductions of a
-- period to their documents; the order over all documents of the period is then sorted, which reads less than
-- the whole tape.

-- The printer. Read by the identity query and E01; one row.
CREATE TABLE dados_ecf (
  num_serie TEXT    NOT NULL CHECK (length(CAST(num_serie AS BLOB)) <= 20),
  modelo    TEXT    NOT NULL CHECK (length(CAST(modelo AS BLOB)) <= 20),
  tipo      TEXT    NOT NULL CHECK (length(CAST(tipo AS BLOB)) <= 7),
  marca     TEXT    NOT NULL CHECK (length(CAST(marca AS BLOB)) <= 20),
  num_caixa INTEGER NOT NULL CHECK (typeof(num_caixa) = 'integer' AND num_caixa BETWEEN 0 AND 999)
);
CREATE UNIQUE INDEX dados_ecf_uma_linha ON dados_ecf ((1));

-- The taxpayer who uses the printer. Read by the identity query, E01, E02, E05, E06, E08 and E10. Former
-- users may stay: E02 lists each of them, but E01, E05, E06 and E08 then carry one CNPJ for each row.
CREATE TABLE dados_usuario (
  seq_usuario        INTEGER NOT NULL
                     CHECK (typeof(seq_usuario) = 'integer' AND seq_usuario BETWEEN 0 AND 99),
  cnpj               TEXT    NOT NULL CHECK (length(CAST(cnpj AS BLOB)) = 14 AND cnpj NOT GLOB '*[^0-9]*'),
  ie                 TEXT    NOT NULL,
  razao_social       TEXT    CHECK (length(CAST(razao_social AS BLOB)) <= 40),
  endereco           TEXT    CHECK (length(CAST(endereco AS BLOB)) <= 120),
  data_hora_gravacao TEXT    CHECK (data_hora_gravacao IS datetime(data_hora_gravacao, '+0 days')),
  cont_cro           INTEGER NOT NULL CHECK (typeof(cont_cro) = 'integer' AND cont_cro >= 0),
  valor_gt           DECIMAL(15,2) NOT NULL
                     CHECK (valor_gt BETWEEN 0 AND 9999999999999.99 AND valor_gt NOT GLOB '*.???*')
);

-- The versions of the basic software; the greatest num_sequencia is the current one. Read by E01 and E07.
CREATE TABLE versao_sb (
  versao             TEXT NOT NULL CHECK (length(CAST(versao AS BLOB)) <= 10),
  data_hora_gravacao TEXT CHECK (data_hora_gravacao IS datetime(data_hora_gravacao, '+0 days')),
  num_sequencia      INTEGER PRIMARY KEY
);

-- The attempts recorded for the basic software. Read by E22 with SELECT *, so the order of the columns
-- counts.
CREATE TABLE tentativas_sb (
  num_tentativa   INTEGER NOT NULL
                  CHECK (typeof(num_tentativa) = 'integer' AND num_tentativa BETWEEN 0 AND 9999),
  versao          TEXT,
  data_hora       TEXT    NOT NULL CHECK (data_hora IS datetime(data_hora, '+0 days')),
  resultado       TEXT
);

-- The coding of the grand total. Read by E05; one row.
CREATE TABLE codificacao_gt (
  data_hora_gravacao TEXT CHECK (data_hora_gravacao IS datetime(data_hora_gravacao, '+0 days')),
  codificacao        TEXT NOT NULL CHECK (length(CAST(codificacao AS BLOB)) = 10)
);
CREATE UNIQUE INDEX codificacao_gt_uma_linha ON codificacao_gt ((1));

-- The symbol of the currency. Read by E06; one row.
CREATE TABLE moeda (
  data_hora_gravacao TEXT CHECK (data_hora_gravacao IS datetime(data_hora_gravacao, '+0 days')),
  simbolo_moeda      TEXT NOT NULL CHECK (length(CAST(simbolo_moeda AS BLOB)) <= 4)
);
CREATE UNIQUE INDEX moeda_uma_linha ON moeda ((1));

-- The technical interventions. Read by E09 in the order of cont_cro.
CREATE TABLE intervencao (
  cont_cro              INTEGER NOT NULL CHECK (typeof(cont_cro) = 'integer' AND cont_cro >= 0),
  data_hora_intervencao TEXT    CHECK (data_hora_intervencao IS datetime(data_hora_intervencao, '+0 days')),
  id_perda_dados_mt     TEXT    NOT NULL CHECK (id_perda_dados_mt IN ('S', 'N')),
  id_tipo_intervencao   TEXT    NOT NULL CHECK (length(CAST(id_tipo_intervencao AS BLOB)) = 1),
  cont_crz              INTEGER NOT NULL CHECK (typeof(cont_crz) = 'integer' AND cont_crz >= 0),
  cont_coo              INTEGER NOT NULL CHECK (typeof(cont_coo) = 'integer' AND cont_coo >= 0)
);
CREATE INDEX intervencao_cro ON intervencao (cont_cro);

-- The issues of the detail tape, about one a day at most. Read by E10 in the order of cont_cfd, by its own
-- date.
CREATE TABLE fita_detalhe (
  cont_cfd          INTEGER PRIMARY KEY CHECK (cont_cfd >= 0),
  data_hora_emissao TEXT    NOT NULL CHECK (data_hora_emissao IS datetime(data_hora_emissao, '+0 days')),
  coo_inicial       INTEGER NOT NULL CHECK (typeof(coo_inicial) = 'integer' AND coo_inicial >= 0),
  coo_final         INTEGER NOT NULL CHECK (typeof(coo_final) = 'integer' AND coo_final >= 0)
);

-- The counters and the grand total as they stand now. Read by E02 and E11; one row.
CREATE TABLE posicao_totalizadores_contadores (
  cont_crz INTEGER NOT NULL CHECK (typeof(cont_crz) = 'integer' AND cont_crz >= 0),
  cont_cro INTEGER NOT NULL CHECK (typeof(cont_cro) = 'integer' AND cont_cro >= 0),
  cont_coo INTEGER NOT NULL CHECK (typeof(cont_coo) = 'integer' AND cont_coo >= 0),
  cont_gnf INTEGER NOT NULL CHECK (typeof(cont_gnf) = 'integer' AND cont_gnf >= 0),
  cont_ccf INTEGER NOT NULL CHECK (typeof(cont_ccf) = 'integer' AND cont_ccf >= 0),
  cont_grg INTEGER NOT NULL CHECK (typeof(cont_grg) = 'integer' AND cont_grg >= 0),
  cont_cfd INTEGER NOT NULL CHECK (typeof(cont_cfd) = 'integer' AND cont_cfd >= 0),
  valor_gt DECIMAL(15,2) NOT NULL
           CHECK (valor_gt BETWEEN 0 AND 9999999999999.99 AND valor_gt NOT GLOB '*.???*')
);
CREATE UNIQUE INDEX posicao_totalizadores_contadores_uma_linha ON posicao_totalizadores_contadores ((1));

-- The Z reductions. Read by E01, E02 and E12; their fiscal day puts every document of E13 to E21 into a
-- period.
CREATE TABLE reducao_z (
  cont_crz          INTEGER NOT NULL CHECK (typeof(cont_crz) = 'integer' AND cont_crz >= 0),
  cont_coo          INTEGER NOT NULL CHECK (typeof(cont_coo) = 'integer' AND cont_coo >= 0),
  cont_cro          INTEGER NOT NULL CHECK (typeof(cont_cro) = 'integer' AND cont_cro >= 0),
  data_movimento    TEXT    NOT NULL CHECK (data_movimento IS datetime(data_movimento, '+0 days')),
  data_hora_emissao TEXT    CHECK (data_hora_emissao IS datetime(data_hora_emissao, '+0 days')),
  valor_vb          DECIMAL(14,2) NOT NULL
                    CHECK (valor_vb BETWEEN 0 AND 999999999999.99 AND valor_vb NOT GLOB '*.???*'),
  valor_gt          DECIMAL(15,2) NOT NULL
                    CHECK (valor_gt BETWEEN 0 AND 9999999999999.99 AND valor_gt NOT GLOB '*.???*'),
  PRIMARY KEY (cont_crz, cont_cro)
);
CREATE INDEX reducao_z_movimento ON reducao_z (data_movimento, cont_crz);

-- The partial totalizers of each reduction. Read by E13 (fiscal ones by kind, sum of the others) and E17. Of
-- a fiscal code the third character tells the kind: T taxed, S service (nnTnnnn, nnSnnnn), anything else
-- other.
CREATE TABLE totalizador_reducao (
  cont_crz           INTEGER NOT NULL CHECK (typeof(cont_crz) = 'integer' AND cont_crz >= 0),
  totalizador        TEXT    NOT NULL CHECK (totalizador <> ''),
  valor_base_calculo DECIMAL(13,2) NOT NULL
                     CHECK (valor_base_calculo BETWEEN 0 AND 99999999999.99
                            AND valor_base_calculo NOT GLOB '*.???*'),
  id_fiscal          TEXT    NOT NULL CHECK (id_fiscal IN ('S', 'N')),
  CHECK (id_fiscal = 'N' OR totalizador NOT GLOB '??[TS]*' OR totalizador GLOB '[0-9][0-9][TS][0-9]*')
);
CREATE INDEX totalizador_reducao_crz ON totalizador_reducao (cont_crz);

-- The means of payment of each reduction. Read by E18, sorted without regard to case.
CREATE TABLE meio_pagamento_reducao (
  cont_crz                 INTEGER NOT NULL CHECK (typeof(cont_crz) = 'integer' AND cont_crz >= 0),
  descricao_meio_pagamento TEXT    NOT NULL,
  valor_acumulado          DECIMAL(13) NOT NULL CHECK (valor_acumulado BETWEEN 0 AND 99999999999.99)
);
CREATE INDEX meio_pagamento_reducao_crz ON meio_pagamento_reducao (cont_crz);

-- The fiscal coupons. Read by E14, E15 and E21; items and payments join by cont_coo, which therefore is
-- unique. The last four columns before the texts are selected by E14 and never printed.
CREATE TABLE cupom_fiscal (
  cont_coo             INTEGER PRIMARY KEY CHECK (cont_coo >= 0),
  cont_ccf             INTEGER NOT NULL CHECK (typeof(cont_ccf) = 'integer' AND cont_ccf >= 0),
  cont_crz             INTEGER NOT NULL CHECK (typeof(cont_crz) = 'integer' AND cont_crz >= 0),
  data_hora_emissao    TEXT    NOT NULL CHECK (data_hora_emissao IS datetime(data_hora_emissao, '+0 days')),
  valor_subtotal       DECIMAL(14,2) NOT NULL
                       CHECK (valor_subtotal BETWEEN 0 AND 999999999999.99
                              AND valor_subtotal NOT GLOB '*.???*'),
  valor_desconto       DECIMAL(13,2) NOT NULL
                       CHECK (valor_desconto BETWEEN 0 AND 99999999999.99
                              AND valor_desconto NOT GLOB '*.???*'),
  valor_acrescimo      DECIMAL(13,2) NOT NULL
                       CHECK (valor_acrescimo BETWEEN 0 AND 99999999999.99
                              AND valor_acrescimo NOT GLOB '*.???*'),
  valor_total          DECIMAL(14,2) NOT NULL
                       CHECK (valor_total BETWEEN 0 AND 999999999999.99 AND valor_total NOT GLOB '*.???*'),
  valor_canc_acrescimo DECIMAL(13,2) NOT NULL
                       CHECK (valor_canc_acrescimo BETWEEN 0 AND 99999999999.99
                              AND valor_canc_acrescimo NOT GLOB '*.???*'),
  id_cancelado         TEXT    NOT NULL CHECK (id_cancelado IN ('S', 'N')),
  nome_consumidor      TEXT    NOT NULL DEFAULT '',
  cpf_cnpj_consumidor  TEXT    NOT NULL DEFAULT ''
                       CHECK (length(CAST(cpf_cnpj_consumidor AS BLOB)) <= 14
                              AND cpf_cnpj_consumidor NOT GLOB '*[^0-9]*'),
  tipo_acrescimo       TEXT,
  tipo_desconto        TEXT,
  perc_desconto        DECIMAL(5),
  perc_acrescimo       DECIMAL(5),
  texto_suplementar    TEXT    NOT NULL DEFAULT '' CHECK (length(CAST(texto_suplementar AS BLOB)) <= 560),
  texto_complementar   TEXT    NOT NULL DEFAULT '' CHECK (length(CAST(texto_complementar AS BLOB)) <= 84),
  assinatura_documento TEXT    NOT NULL DEFAULT '' CHECK (length(CAST(assinatura_documento AS BLOB)) <= 44)
);
CREATE INDEX cupom_fiscal_crz ON cupom_fiscal (cont_crz, cont_ccf);

-- The items of the fiscal coupons, stored coupon by coupon. Read by E15; the two percentages are never
-- printed. Quantity and unit price hold 7 and 8 digits with the decimal places that the row declares.
CREATE TABLE item_cupom_fiscal (
  cont_coo             INTEGER NOT NULL CHECK (typeof(cont_coo) = 'integer' AND cont_coo >= 0)
                       REFERENCES cupom_fiscal (cont_coo) DEFERRABLE INITIALLY DEFERRED,
  seq_item             INTEGER NOT NULL CHECK (typeof(seq_item) = 'integer' AND seq_item BETWEEN 0 AND 999),
  cod_item             TEXT    NOT NULL CHECK (length(CAST(cod_item AS BLOB)) <= 14),
  descricao            TEXT    NOT NULL,
  quantidade           DECIMAL(7) NOT NULL,
  un_medida            TEXT    NOT NULL CHECK (length(CAST(un_medida AS BLOB)) <= 3),
  valor_unitario       DECIMAL(8) NOT NULL,
  valor_desconto       DECIMAL(8) NOT NULL CHECK (valor_desconto BETWEEN 0 AND 999999.99),
  valor_acrescimo      DECIMAL(8) NOT NULL CHECK (valor_acrescimo BETWEEN 0 AND 999999.99),
  valor_total          DECIMAL(14,2) NOT NULL
                       CHECK (valor_total BETWEEN 0 AND 999999999999.99 AND valor_total NOT GLOB '*.???*'),
  valor_canc_acrescimo DECIMAL(13,2) NOT NULL
                       CHECK (valor_canc_acrescimo BETWEEN 0 AND 99999999999.99
                              AND valor_canc_acrescimo NOT GLOB '*.???*'),
  aliquota             TEXT    NOT NULL CHECK (length(CAST(replace(aliquota, '.', '') AS BLOB)) <= 7),
  id_cancelado         TEXT    NOT NULL CHECK (id_cancelado IN ('S', 'N')),
  id_arred_trunc_valor TEXT    NOT NULL CHECK (length(CAST(id_arred_trunc_valor AS BLOB)) = 1),
  casas_decimais_quantidade INTEGER NOT NULL CHECK (casas_decimais_quantidade IN (2, 3)),
  casas_decimais_valor INTEGER NOT NULL CHECK (casas_decimais_valor IN (2, 3)),
  perc_acrescimo       DECIMAL(5),
  perc_desconto        DECIMAL(5),
  PRIMARY KEY (cont_coo, seq_item),
  CHECK (quantidade BETWEEN 0 AND CASE casas_decimais_quantidade WHEN 3 THEN 9999.999 ELSE 99999.99 END),
  CHECK (valor_unitario BETWEEN 0 AND CASE casas_decimais_valor WHEN 3 THEN 99999.999 ELSE 999999.99 END)
) WITHOUT ROWID;

-- The other documents: CN non-fiscal coupon, RG managerial report, CC credit or debit slip, NC cancellation
-- of a non-fiscal coupon, RZ Z reduction. Read by E16; a counter that the type does not own is ignored.
CREATE TABLE outros_documentos (
  cont_coo              INTEGER NOT NULL CHECK (typeof(cont_coo) = 'integer' AND cont_coo >= 0),
  cont_gnf              INTEGER NOT NULL CHECK (typeof(cont_gnf) = 'integer' AND cont_gnf >= 0),
  cont_grg              INTEGER NOT NULL CHECK (typeof(cont_grg) = 'integer' AND cont_grg >= 0),
  cont_cdc              INTEGER NOT NULL CHECK (typeof(cont_cdc) = 'integer' AND cont_cdc >= 0),
  cont_crz              INTEGER NOT NULL CHECK (typeof(cont_crz) = 'integer' AND cont_crz >= 0),
  id_tipo_documento     TEXT    NOT NULL CHECK (id_tipo_documento IN ('CN', 'RG', 'CC', 'NC', 'RZ')),
  data_hora_fim_emissao TEXT    NOT NULL
                        CHECK (data_hora_fim_emissao IS datetime(data_hora_fim_emissao, '+0 days'))
);
CREATE INDEX outros_documentos_crz ON outros_documentos (cont_crz);

-- The non-fiscal coupons. Read by E19, E20 and E21; items and payments join by cont_coo, which therefore is
-- unique.
CREATE TABLE cupom_nf (
  cont_coo             INTEGER PRIMARY KEY CHECK (cont_coo >= 0),
  cont_gnf             INTEGER NOT NULL CHECK (typeof(cont_gnf) = 'integer' AND cont_gnf >= 0),
  cont_crz             INTEGER NOT NULL CHECK (typeof(cont_crz) = 'integer' AND cont_crz >= 0),
  data_hora_emissao    TEXT    CHECK (data_hora_emissao IS datetime(data_hora_emissao, '+0 days')),
  valor_subtotal       DECIMAL(14,2) NOT NULL
                       CHECK (valor_subtotal BETWEEN 0 AND 999999999999.99
                              AND valor_subtotal NOT GLOB '*.???*'),
  valor_desconto       DECIMAL(13,2) NOT NULL
                       CHECK (valor_desconto BETWEEN 0 AND 99999999999.99
                              AND valor_desconto NOT GLOB '*.???*'),
  valor_acrescimo      DECIMAL(13,2) NOT NULL
                       CHECK (valor_acrescimo BETWEEN 0 AND 99999999999.99
                              AND valor_acrescimo NOT GLOB '*.???*'),
  valor_total_cupom    DECIMAL(14,2) NOT NULL
                       CHECK (valor_total_cupom BETWEEN 0 AND 999999999999.99
                              AND valor_total_cupom NOT GLOB '*.???*'),
  valor_canc_acrescimo DECIMAL(13,2) NOT NULL
                       CHECK (valor_canc_acrescimo BETWEEN 0 AND 99999999999.99
                              AND valor_canc_acrescimo NOT GLOB '*.???*'),
  id_cancelado         TEXT    NOT NULL CHECK (id_cancelado IN ('S', 'N')),
  tipo_acrescimo       TEXT    NOT NULL CHECK (length(CAST(tipo_acrescimo AS BLOB)) = 1),
  tipo_desconto        TEXT    NOT NULL CHECK (length(CAST(tipo_desconto AS BLOB)) = 1),
  nome_consumidor      TEXT    NOT NULL DEFAULT '',
  cpf_cnpj_consumidor  TEXT    NOT NULL DEFAULT ''
                       CHECK (length(CAST(cpf_cnpj_consumidor AS BLOB)) <= 14
                              AND cpf_cnpj_consumidor NOT GLOB '*[^0-9]*')
);
CREATE INDEX cupom_nf_crz ON cupom_nf (cont_crz, cont_gnf);

-- The totalizers of non-fiscal operations, by index. Their names are read by E20.
CREATE TABLE totalizador_nao_fiscal (
  num_indice INTEGER PRIMARY KEY,
  descricao  TEXT NOT NULL
);

-- The items of the non-fiscal coupons, stored coupon by coupon. Read by E20.
CREATE TABLE item_cupom_nf (
  cont_coo              INTEGER NOT NULL CHECK (typeof(cont_coo) = 'integer' AND cont_coo >= 0)
                        REFERENCES cupom_nf (cont_coo) DEFERRABLE INITIALLY DEFERRED,
  seq_item              INTEGER NOT NULL CHECK (typeof(seq_item) = 'integer' AND seq_item BETWEEN 0 AND 999),
  indice_totalizador_nf INTEGER NOT NULL
                        REFERENCES totalizador_nao_fiscal (num_indice) DEFERRABLE INITIALLY DEFERRED,
  valor_total           DECIMAL(13,2) NOT NULL
                        CHECK (valor_total BETWEEN 0 AND 99999999999.99 AND valor_total NOT GLOB '*.???*'),
  valor_desconto        DECIMAL(13,2) NOT NULL
                        CHECK (valor_desconto BETWEEN 0 AND 99999999999.99
                               AND valor_desconto NOT GLOB '*.???*'),
  valor_acrescimo       DECIMAL(13,2) NOT NULL
                        CHECK (valor_acrescimo BETWEEN 0 AND 99999999999.99
                               AND valor_acrescimo NOT GLOB '*.???*'),
  valor_total_liquido   DECIMAL(13,2) NOT NULL
                        CHECK (valor_total_liquido BETWEEN 0 AND 99999999999.99
                               AND valor_total_liquido NOT GLOB '*.???*'),
  valor_canc_acrescimo  DECIMAL(13,2) NOT NULL
                        CHECK (valor_canc_acrescimo BETWEEN 0 AND 99999999999.99
                               AND valor_canc_acrescimo NOT GLOB '*.???*'),
  id_cancelado          TEXT    NOT NULL CHECK (id_cancelado IN ('S', 'N')),
  PRIMARY KEY (cont_coo, seq_item)
) WITHOUT ROWID;

-- The means of payment, by index. Their names are read by E21.
CREATE TABLE meio_pagamento (
  num_indice INTEGER PRIMARY KEY,
  descricao  TEXT NOT NULL
);

-- The payments of fiscal and of non-fiscal coupons alike: cont_coo is one of either table. Read by E21.
CREATE TABLE pagamento_cupom (
  cont_coo              INTEGER NOT NULL CHECK (typeof(cont_coo) = 'integer' AND cont_coo >= 0),
  indice_meio_pagamento INTEGER NOT NULL
                        REFERENCES meio_pagamento (num_indice) DEFERRABLE INITIALLY DEFERRED,
  valor_pagamento       DECIMAL(13,2) NOT NULL
                        CHECK (valor_pagamento BETWEEN 0 AND 99999999999.99
                               AND valor_pagamento NOT GLOB '*.???*'),
  valor_estornado       DECIMAL(13,2) NOT NULL
                        CHECK (valor_estornado BETWEEN 0 AND 99999999999.99
                               AND valor_estornado NOT GLOB '*.???*'),
  id_estornado          TEXT    NOT NULL CHECK (id_estornado IN ('S', 'N'))
);
CREATE INDEX pagamento_cupom_coo ON pagamento_cupom (cont_coo);
