-- What no printer should hold: overlong and missing texts, short dates, negative and misspelt amounts, empty
-- flags, punctuation in numbers, counters beyond their modulus, several printers and users, missing tables.
DROP TABLE moeda;
DROP TABLE meio_pagamento_reducao;

INSERT INTO dados_ecf VALUES('PRIMEIRA', 'MODELO UM', 'TIPO-UM', 'MARCA UM', '1');
INSERT INTO dados_ecf VALUES('SERIE-MUITO-LONGA-0123456789AB', NULL, '', 'MARCA-COM-NOME-MUITO-COMPRIDO', '12345');
INSERT INTO dados_usuario VALUES('7', '12.345.678/0001-90', NULL, NULL, NULL, NULL, NULL, '5.00');
INSERT INTO dados_usuario VALUES('123', '987654320001876', 'ISENTO-DE.INSCRICAO',
  'RAZAO SOCIAL COMPRIDA DEMAIS PARA OS QUARENTA CARACTERES',
  'ENDERECO: 012345678901234567890123456789012345678901234567890123456789' ||
  '0123456789012345678901234567890123456789012345678901234567890123456789', '2020-02-30 24:61:61', '-7', NULL);
INSERT INTO versao_sb VALUES('1.0', '2010-01-02 03:04:05', 1);
INSERT INTO versao_sb VALUES('VERSAO-MUITO-LONGA', NULL, 2);
INSERT INTO versao_sb VALUES('2.0', '2011', 0);
INSERT INTO tentativas_sb VALUES('12345', 'X', '2022-11-12 13:14:15', 'N');
INSERT INTO tentativas_sb VALUES(NULL, 'X', NULL, 'N');
INSERT INTO tentativas_sb VALUES('-1', 'X', '2022-11', 'N');
INSERT INTO codificacao_gt VALUES(NULL, 'COD1');
INSERT INTO codificacao_gt VALUES('2021-05-06 07:08:09', 'SEGUNDA-CODIFICACAO');
INSERT INTO intervencao VALUES('4', '2022-02-03 04:05:06', '', 'T', '1', '2');
INSERT INTO intervencao VALUES('1234567', NULL, 'S', 'T', '12345', '12345678901');
INSERT INTO intervencao VALUES('2', '2021-01-02 03:04', 'SIM', 'XYZ', 'a', NULL);
INSERT INTO intervencao VALUES('3', '2021-01-02 03:04:05', 'NAO', '', '1', '2');
INSERT INTO intervencao VALUES('5', '2022-02-03 04:05:06', 'N', 'Talvez', '-1', '-5');
INSERT INTO fita_detalhe VALUES('1000001', '2024-01-06', '12345678901', 'abc');
INSERT INTO fita_detalhe VALUES('-3', '2024-01-05 10:00:00', '1234567', '-2');
INSERT INTO fita_detalhe VALUES('2', '2024-02-01 00:00:00', '1', '2');
INSERT INTO posicao_totalizadores_contadores VALUES('1', '2', '3', '4', '5', '6', '7', '123456789012345.67');
INSERT INTO posicao_totalizadores_contadores VALUES('1234567', '-1', '12345678901', NULL, 'abc', '0x10', '9999999',
  '-1.00');

INSERT INTO reducao_z VALUES('3', '1', '1', '2024-01-2', '2024-01-20 09:08:07', '1', NULL);
INSERT INTO reducao_z VALUES('0999999', '12345678901', '-1', '2024-01-10 00:00:00', NULL, '-12.34', '1');
INSERT INTO reducao_z VALUES('1234567', NULL, '7', '2024-01-20', '2024-01-20 09:08:07', '1.234,56', '');
INSERT INTO reducao_z VALUES('5', '1', '1', '2024-02-01 00:00:00', '2024-02-01 23:00:00', '1', '1');
INSERT INTO totalizador_reducao VALUES('1234567', '', '1.5', 'S');
INSERT INTO totalizador_reducao VALUES('1234567', NULL, '1', 'S');
INSERT INTO totalizador_reducao VALUES('0999999', 'F1', NULL, 'S');
INSERT INTO totalizador_reducao VALUES('0999999', 'F1', NULL, 'S');
INSERT INTO totalizador_reducao VALUES('0999999', '02S05001234', '100000000000.00', 'S');
INSERT INTO totalizador_reducao VALUES('0999999', '01T18.00', '-5.00', 'S');
INSERT INTO totalizador_reducao VALUES('5', '01T1800', '1', 'S');
INSERT INTO totalizador_reducao VALUES('3', 'X', NULL, 'N');
INSERT INTO totalizador_reducao VALUES('3', NULL, 'abc', 'N');
INSERT INTO totalizador_reducao VALUES('0999999', 'SUPRIMENTO', '0.2', 'N');
INSERT INTO totalizador_reducao VALUES('0999999', 'SANGRIA MUITO COMPRIDA', '0.1', 'N');

INSERT INTO cupom_fiscal VALUES('3', '3', '3', '2024-01-15 10:11:12', NULL, '', NULL, '', '', '1', 'NINGUEM', '1', 'V',
  'V', '0', '0', 'NADA', 'NADA', 'NADA');
INSERT INTO cupom_fiscal VALUES('2', '2', '1234567', NULL, '1', '1', '1', '1', 'N', '1', 'NINGUEM', '1', 'V', 'V', '0',
  '0', 'NADA', 'NADA', 'NADA');
INSERT INTO cupom_fiscal VALUES('-5', '12345678901', '0999999', '2024-01-09 23:59:59', '1234567890123.45', '-1.00',
  '1e2', '0,99', 'SIM', NULL, 'CONSUMIDOR DE NOME MUITO COMPRIDO PARA A LINHA INTEIRA', '123.456.789-01', 'P', 'P',
  '50', '60', 'AÇÃO' || char(10) || 'FIM',
  'COMPLEMENTO 012345678901234567890123456789012345678901234567890123456789012345678901234567890123456789',
  'ASSINATURA COM ACENTO É MAIS DO QUE QUARENTA E QUATRO');
INSERT INTO cupom_fiscal VALUES('4', '4', '5', '2024-01-15 10:11:12', '1', '1', '1', '1', 'N', '1', 'DEPOIS', '1', 'V',
  'V', '0', '0', '', '', '');
INSERT INTO item_cupom_fiscal VALUES('12345678901', '9', NULL, NULL, NULL, NULL, '0.125', '', '', '', '', 'S', '', 'A',
  '', '12', '0', '0');
INSERT INTO item_cupom_fiscal VALUES('12345678901', '1234567', 'ABCDEFGHIJKLMNOPQRST',
  'DESCRICAO 0123456789012345678901234567890123456789012345678901234567890123456789012345678901234567890123456789',
  '-1.5', 'CAIXA', '99999999.999', '-0.05', '0.005', '-0.01', 'T.1.8.0.0.EXTRA', 'NAO', 'abc', 'TRUNCADO', '2', '3',
  '0', '0');
INSERT INTO item_cupom_fiscal VALUES('3', '1', 'COD', 'ITEM', '2', 'UN', '1.00', '0', '0', '2.00', 'F1', '', '0', 'A',
  '2', '2', '0', '0');
INSERT INTO item_cupom_fiscal VALUES('99', '1', 'COD', 'ORFAO', '2', 'UN', '1.00', '0', '0', '2.00', 'F1', 'N', '0',
  'A', '2', '2', '0', '0');
INSERT INTO outros_documentos VALUES('6', '7', '8', '9', '0999999', 'NCX', '2024-01-10 11:12:13');
INSERT INTO outros_documentos VALUES('5', NULL, NULL, NULL, '3', NULL, '2024-01-10 11:12:13');
INSERT INTO outros_documentos VALUES('4', '4', '5', '6', '1234567', 'RZ', '');
INSERT INTO outros_documentos VALUES('3', '4', '5', '6', '3', 'cc', '2024-01-10 11:12:13');
INSERT INTO outros_documentos VALUES('2', '-1', '1234567', '4', '0999999', 'RG', '2024-01-10');
INSERT INTO outros_documentos VALUES('1', '2', '3', '12345', '0999999', 'CC', '2024-01-10 11:12:13');

INSERT INTO cupom_nf VALUES('22', '3', '3', '2024', '1', '1', 'V', '1', 'V', '1', 'N', '0', 'NINGUEM', '1');
INSERT INTO cupom_nf VALUES('21', '2', '1234567', '2024-01-20 10:00:00', '10', '1', '', '1', 'V', '1', 'N', '0',
  'NINGUEM', '1');
INSERT INTO cupom_nf VALUES('20', '1234567890', '0999999', NULL, '1.005', '0.004', '%', '0', ' ', '-1.00', 'NAO', '2.5',
  'CONSUMIDOR DE NOME MUITO COMPRIDO PARA A LINHA INTEIRA', '123456789012345678');
INSERT INTO totalizador_nao_fiscal VALUES(1, 'NOME DE TOTALIZADOR COMPRIDO');
INSERT INTO totalizador_nao_fiscal VALUES(2, NULL);
INSERT INTO item_cupom_nf VALUES('21', '-1', 2, '0.10', '0.01', '0.02', '0.11', '', '1');
INSERT INTO item_cupom_nf VALUES('20', '2', 9, '1', '1', '1', '1', 'N', '1');
INSERT INTO item_cupom_nf VALUES('20', '1000', 1, '1', '-1', '', 'x', 'NAO', '-0.01');
INSERT INTO meio_pagamento VALUES(1, 'MEIO DE PAGAMENTO COMPRIDO');
INSERT INTO meio_pagamento VALUES(2, NULL);
INSERT INTO pagamento_cupom VALUES('3', 1, NULL, NULL, '1');
INSERT INTO pagamento_cupom VALUES('20', 1, '1.5', 'N', '');
INSERT INTO pagamento_cupom VALUES('20', 2, '5', '', '1');
INSERT INTO pagamento_cupom VALUES('12345678901', 1, '-1.00', 'SIM', '-1.00');
INSERT INTO pagamento_cupom VALUES('12345678901', 9, '1', 'N', '1');
